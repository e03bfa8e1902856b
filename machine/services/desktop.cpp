#include "platform/desktop.h"

#include "machine/machine.h"
#include "machine/text/folding.h"
#include "platform/back_end.h"

#include <algorithm>
#include <iterator>

namespace VESK_BACK_END {
namespace {

using machine::Machine;
using machine::StackedWindow;
using machine::WindowProfile;
using machine::WindowStack;

/// The profile of a window; for one that does not exist, what is reported of nothing.
const WindowProfile& ProfileOf(const Machine& machine, Window window) {
    static const WindowProfile Nothing{.enabled = false, .visible = false};
    const StackedWindow* const found = machine.windows.Find(window);
    return found == nullptr ? Nothing : *found->profile;
}

Window HandleOf(const WindowStack& windows, const std::string& name) {
    const StackedWindow* const found = windows.Find(name);
    return found == nullptr ? Window::None : found->handle;
}

/// The window at the end of the chain of parents and owners. A profile may close that chain to a circle,
/// so only so many steps are followed.
Window RootOwnerOf(const WindowStack& windows, const StackedWindow& window) {
    Window root = window.handle;
    for (int steps = 0; steps < 100; ++steps) {
        const StackedWindow* const at = windows.Find(root);
        const Window above = at->parent != Window::None ? at->parent : HandleOf(windows, at->profile->owner);
        if (above == Window::None) {
            break;
        }
        root = above;
    }
    return root;
}

std::uint32_t CopyText(std::u16string_view text, char16_t* out, std::uint32_t size) {
    const std::size_t length = std::min<std::size_t>(text.size(), size - 1);
    *std::copy_n(text.data(), length, out) = u'\0';
    return static_cast<std::uint32_t>(length);
}

} // namespace

std::vector<Window> EnumWindows() {
    const auto machine = machine::Current();
    std::vector<Window> windows;
    std::ranges::copy_if(machine->windows.Within(Window::None), std::back_inserter(windows),
                         [&](Window window) { return machine->windows.Find(window) != nullptr; });
    return windows;
}

std::uint32_t GetWindowTextLengthW(Window window) {
    return static_cast<std::uint32_t>(ProfileOf(*machine::Current(), window).title.size());
}

bool IsWindowEnabled(Window window) {
    return ProfileOf(*machine::Current(), window).enabled;
}

bool IsWindow(Window window) {
    return machine::Current()->windows.Find(window) != nullptr;
}

bool IsWindowVisible(Window window) {
    return ProfileOf(*machine::Current(), window).visible;
}

bool IsIconic(Window window) {
    return ProfileOf(*machine::Current(), window).minimised;
}

Window GetAncestor(Window window, std::uint32_t which) {
    const auto machine = machine::Current();
    const StackedWindow* const found = machine->windows.Find(window);
    return found != nullptr && which == RootOwner ? RootOwnerOf(machine->windows, *found) : Window::None;
}

Window GetLastActivePopup(Window window) {
    const auto machine = machine::Current();
    if (machine->windows.Find(window) == nullptr) {
        return Window::None;
    }
    const Window popup = HandleOf(machine->windows, ProfileOf(*machine, window).lastActivePopup);
    return popup == Window::None ? window : popup;
}

bool GetTitleBarInfo(Window window, TitleBarInfo& info) {
    const auto machine = machine::Current();
    if (machine->windows.Find(window) == nullptr || info.size != sizeof info) {
        return false;
    }
    info.states[0] = ProfileOf(*machine, window).titleBarState;
    return true;
}

std::uint32_t GetWindowLongW(Window window, std::int32_t index) {
    return index == ExtendedStyle ? ProfileOf(*machine::Current(), window).extendedStyle : 0;
}

std::uint32_t GetClassNameW(Window window, char16_t* name, std::uint32_t size) {
    return CopyText(ProfileOf(*machine::Current(), window).className, name, size);
}

std::uint32_t GetWindowTextW(Window window, char16_t* text, std::uint32_t size) {
    return CopyText(ProfileOf(*machine::Current(), window).title, text, size);
}

Window FindWindowExW(Window parent, Window after, const char16_t* className) {
    const auto machine = machine::Current();
    const WindowStack& windows = machine->windows;
    const auto& siblings = windows.Within(parent);
    std::size_t place = 0;
    if (after != Window::None) {
        const StackedWindow* const previous = windows.Find(after);
        if (previous == nullptr || previous->parent != parent) {
            return Window::None;
        }
        place = previous->place + 1;
    }
    const std::u16string folded = machine::Folded(className);
    for (; place < siblings.size(); ++place) {
        const StackedWindow* const candidate = windows.Find(siblings[place]);
        if (candidate != nullptr && machine::Folded(candidate->profile->className) == folded) {
            return candidate->handle;
        }
    }
    return Window::None;
}

std::uint32_t GetWindowThreadProcessId(Window window) {
    return ProfileOf(*machine::Current(), window).process;
}

} // namespace VESK_BACK_END
