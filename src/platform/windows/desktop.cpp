#include "platform/desktop.h"

#include "platform/back_end.h"
#include "platform/windows/support/native.h"

#include <exception>

namespace VESK_BACK_END {
namespace {

HWND Native(Window window) {
    return reinterpret_cast<HWND>(window);
}

Window FromNative(HWND window) {
    return Window{reinterpret_cast<std::uintptr_t>(window)};
}

struct Listing {
    std::vector<Window> windows;
    std::exception_ptr error;
};

BOOL CALLBACK AddWindow(HWND window, LPARAM context) {
    auto& listing = *reinterpret_cast<Listing*>(context);
    // No exception may pass through the frames of the platform.
    try {
        listing.windows.push_back(FromNative(window));
        return TRUE;
    } catch (...) {
        listing.error = std::current_exception();
        return FALSE;
    }
}

} // namespace

std::vector<Window> EnumWindows() {
    Listing listing;
    ::EnumWindows(AddWindow, reinterpret_cast<LPARAM>(&listing));
    if (listing.error) {
        std::rethrow_exception(listing.error);
    }
    return std::move(listing.windows);
}

std::uint32_t GetWindowTextLengthW(Window window) {
    return static_cast<std::uint32_t>(::GetWindowTextLengthW(Native(window)));
}

bool IsWindowEnabled(Window window) {
    return ::IsWindowEnabled(Native(window)) != FALSE;
}

bool IsWindow(Window window) {
    return ::IsWindow(Native(window)) != FALSE;
}

bool IsWindowVisible(Window window) {
    return ::IsWindowVisible(Native(window)) != FALSE;
}

bool IsIconic(Window window) {
    return ::IsIconic(Native(window)) != FALSE;
}

Window GetAncestor(Window window, std::uint32_t which) {
    return FromNative(::GetAncestor(Native(window), which));
}

Window GetLastActivePopup(Window window) {
    return FromNative(::GetLastActivePopup(Native(window)));
}

bool GetTitleBarInfo(Window window, TitleBarInfo& info) {
    static_assert(sizeof(TitleBarInfo) == sizeof(TITLEBARINFO) &&
                  offsetof(TitleBarInfo, states) == offsetof(TITLEBARINFO, rgstate));
    return ::GetTitleBarInfo(Native(window), reinterpret_cast<TITLEBARINFO*>(&info)) != FALSE;
}

std::uint32_t GetWindowLongW(Window window, std::int32_t index) {
    return static_cast<std::uint32_t>(::GetWindowLongW(Native(window), index));
}

std::uint32_t GetClassNameW(Window window, char16_t* name, std::uint32_t size) {
    return static_cast<std::uint32_t>(::GetClassNameW(Native(window), Wide(name), static_cast<int>(size)));
}

std::uint32_t GetWindowTextW(Window window, char16_t* text, std::uint32_t size) {
    return static_cast<std::uint32_t>(::GetWindowTextW(Native(window), Wide(text), static_cast<int>(size)));
}

Window FindWindowExW(Window parent, Window after, const char16_t* className) {
    return FromNative(::FindWindowExW(Native(parent), Native(after), Wide(className), nullptr));
}

std::uint32_t GetWindowThreadProcessId(Window window) {
    DWORD process = 0;
    ::GetWindowThreadProcessId(Native(window), &process);
    return process;
}

} // namespace VESK_BACK_END
