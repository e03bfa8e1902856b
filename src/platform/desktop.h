// The windows on the desktop.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace platform {

enum class Window : std::uintptr_t { None = 0 };

/// The windows of EnumWindows, topmost first. EnumWindows takes its list before the first callback and skips
/// windows that are closed meanwhile. A window of this list that has been closed fails IsWindow, so a list is
/// equivalent.
std::vector<Window> EnumWindows();

std::uint32_t GetWindowTextLengthW(Window window);
bool IsWindowEnabled(Window window);
bool IsWindow(Window window);
bool IsWindowVisible(Window window);
bool IsIconic(Window window);

inline constexpr std::uint32_t RootOwner = 3; // GA_ROOTOWNER

Window GetAncestor(Window window, std::uint32_t which);
Window GetLastActivePopup(Window window);

/// TITLEBARINFO
struct TitleBarInfo {
    std::uint32_t size; // of this structure
    std::array<std::int32_t, 4> rectangle;
    std::array<std::uint32_t, 6> states; // of the bar, then of its elements
};

static_assert(sizeof(TitleBarInfo) == 44);

inline constexpr std::uint32_t StateInvisible = 0x8000; // STATE_SYSTEM_INVISIBLE

bool GetTitleBarInfo(Window window, TitleBarInfo& info);

inline constexpr std::int32_t ExtendedStyle = -20; // GWL_EXSTYLE
inline constexpr std::uint32_t ToolWindow = 0x80;  // WS_EX_TOOLWINDOW

std::uint32_t GetWindowLongW(Window window, std::int32_t index);

/// Both return the length of the string, 0 if there is none. `size` is in characters with the terminator; a
/// longer string is cut.
std::uint32_t GetClassNameW(Window window, char16_t* name, std::uint32_t size);
std::uint32_t GetWindowTextW(Window window, char16_t* text, std::uint32_t size);

/// FindWindowExW by class, with any title: searches the children of `parent`, or the top-level windows without
/// one, from the first or after `after`.
Window FindWindowExW(Window parent, Window after, const char16_t* className);

/// The process of GetWindowThreadProcessId; 0 for a window that does not exist any more.
std::uint32_t GetWindowThreadProcessId(Window window);

} // namespace platform
