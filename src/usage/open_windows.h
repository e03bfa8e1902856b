// The topmost windows of the desktop.
#pragma once

#include "platform/desktop.h"
#include "usage/open_window_record.h"

#include <string>
#include <vector>

namespace sondrel {

/// The class of the window in which a packaged application draws.
inline constexpr const char16_t* CoreWindowClass = u"Windows.UI.Core.CoreWindow";

/// One walk over the top-level windows, topmost first. Positions start at 1 in every walk, so a host that calls
/// twice gets two complete answers.
struct OpenWindowWalk {
    std::int32_t WindowZOrderCounter = 0;
    std::vector<OpenWindowRecord> records;
};

/// The JSON document of one walk.
void ReadOpenWindows(std::u16string& out);

/// Adds one window to the walk if it counts. After the fifth that counts, windows only get a position. Waits
/// one second for each window whose processor time is sampled.
void EnumOpenWindowProc(platform::Window window, OpenWindowWalk& walk);

/// Appends the base name of the window's executable. For the frame of a packaged application that is the
/// process of its core window. False if there is no such name; the window is not listed then.
bool GetWindowProcessName(platform::Window window, std::u16string& name);

} // namespace sondrel
