// The windows on top of the stacking order.
#pragma once

#include "platform/desktop.h"
#include "usage/open_window_record.h"

#include <string>
#include <vector>

namespace sondrel {

/// The class of the window that a packaged application draws in.
inline constexpr const char16_t* CoreWindowClass = u"Windows.UI.Core.CoreWindow";

/// One walk over the top-level windows, uppermost first. Positions start anew with every walk: a host that asks
/// twice gets two answers.
struct OpenWindowWalk {
    std::int32_t WindowZOrderCounter = 0;
    std::vector<OpenWindowRecord> records;
};

/// The document of one walk.
void ReadOpenWindows(std::u16string& out);

/// Takes one window into the walk. One that fails a test leaves no trace; one that counts but stands below the
/// fifth is not measured. Waits one second for each window that is.
void EnumOpenWindowProc(platform::Window window, OpenWindowWalk& walk);

/// Appends the base name of the executable behind a window. For the frame of a packaged application that is the
/// process behind its core window. False when there is no such name, which keeps the window out of the list.
bool GetWindowProcessName(platform::Window window, std::u16string& name);

} // namespace sondrel
