#include "platform/desktop.h"

#include "machine/machine.h"
#include "machine/text/folding.h"
#include "platform/back_end.h"

#include <algorithm>
#include <iterator>

namespace VESK_BACK_END {
namespace {

using machine::StackedWindow;
using machine::WindowStack;

/// What is asked of a window; `nothing` for one that does not exist.
template <class Answer, class Question>
Answer AboutWindow(Window window, Answer nothing, Question question) {
    const auto machine = machine::Current();
    const StackedWindow* const found = machine->windows.Find(window);
    return found == nullptr ? nothing : question(machine->windows, *found);
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
    return AboutWindow(window, 0U, [](const WindowStack&, const StackedWindow& found) {
        return static_cast<std::uint32_t>(found.profile->title.size());
    });
}

bool IsWindowEnabled(Window window) {
    return AboutWindow(window, false,
                       [](const WindowStack&, const StackedWindow& found) { return found.profile->enabled; });
}

bool IsWindow(Window window) {
    return AboutWindow(window, false, [](const WindowStack&, const StackedWindow&) { return true; });
}

bool IsWindowVisible(Window window) {
    return AboutWindow(window, false,
                       [](const WindowStack&, const StackedWindow& found) { return found.profile->visible; });
}

bool IsIconic(Window window) {
    return AboutWindow(window, false, [](const WindowStack&, const StackedWindow& found) {
        return found.profile->minimised;
    });
}

Window GetAncestor(Window window, std::uint32_t which) {
    return AboutWindow(window, Window::None, [which](const WindowStack& windows, const StackedWindow& found) {
        return which == RootOwner ? RootOwnerOf(windows, found) : Window::None;
    });
}

Window GetLastActivePopup(Window window) {
    return AboutWindow(window, Window::None, [](const WindowStack& windows, const StackedWindow& found) {
        const Window popup = HandleOf(windows, found.profile->lastActivePopup);
        return popup == Window::None ? found.handle : popup;
    });
}

bool GetTitleBarInfo(Window window, TitleBarInfo& info) {
    return AboutWindow(window, false, [&info](const WindowStack&, const StackedWindow& found) {
        if (info.size != sizeof info) {
            return false;
        }
        info.states[0] = found.profile->titleBarState;
        return true;
    });
}

std::uint32_t GetWindowLongW(Window window, std::int32_t index) {
    return AboutWindow(window, 0U, [index](const WindowStack&, const StackedWindow& found) {
        return index == ExtendedStyle ? found.profile->extendedStyle : 0;
    });
}

std::uint32_t GetClassNameW(Window window, char16_t* name, std::uint32_t size) {
    return AboutWindow(window, 0U, [=](const WindowStack&, const StackedWindow& found) {
        return CopyText(found.profile->className, name, size);
    });
}

std::uint32_t GetWindowTextW(Window window, char16_t* text, std::uint32_t size) {
    return AboutWindow(window, 0U, [=](const WindowStack&, const StackedWindow& found) {
        return CopyText(found.profile->title, text, size);
    });
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
    return AboutWindow(window, 0U,
                       [](const WindowStack&, const StackedWindow& found) { return found.profile->process; });
}

} // namespace VESK_BACK_END
