#include "platform/desktop.h"

#include "machine/machine.h"
#include "machine/models/window_stack.h"
#include "machine/text/wide_text.h"
#include "observer/gate.h"
#include "platform/back_end.h"

#include <algorithm>

namespace VESK_BACK_END {

using machine::Call;
using machine::Current;
using machine::Operation;
using machine::StackedWindow;

namespace {

std::string NameOf(Window window) {
    const StackedWindow* found = Current().windows.Find(window);
    return found != nullptr ? found->profile->name : window == Window::None ? "none" : "gone";
}

/// One question about a window; one that is refused or about no window has the answer `nothing`.
template <class Answer, class Body>
Answer Ask(Operation operation, Window window, Answer nothing, Body body) {
    Call call(operation);
    call.Note([&] { return NameOf(window); });
    const StackedWindow* found = Current().windows.Find(window);
    return call.Answered(found == nullptr || call.Refused() ? nothing : body(*found));
}

Window HandleOf(const std::string& name) {
    const StackedWindow* found = Current().windows.Find(name);
    return found == nullptr ? Window::None : found->handle;
}

/// The window at the end of the chain of parents and owners. A profile may close that chain to a circle by
/// mistake, so it is followed for so many steps only.
Window RootOwnerOf(const StackedWindow& window) {
    Window root = window.handle;
    for (int steps = 0; steps < 100; ++steps) {
        const StackedWindow* at = Current().windows.Find(root);
        const Window above = at->parent != Window::None ? at->parent : HandleOf(at->profile->owner);
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

Window FindBehind(Window parent, Window after, const std::u16string& foldedClass) {
    const auto& windows = Current().windows;
    const auto& siblings = windows.Within(parent);
    std::size_t place = 0;
    if (after != Window::None) {
        const StackedWindow* behind = windows.Find(after);
        if (behind == nullptr || behind->parent != parent) {
            return Window::None;
        }
        place = behind->place + 1;
    }
    for (; place < siblings.size(); ++place) {
        const StackedWindow* candidate = windows.Find(siblings[place]);
        if (candidate != nullptr && machine::Folded(candidate->profile->className) == foldedClass) {
            return candidate->handle;
        }
    }
    return Window::None;
}

} // namespace

std::vector<Window> EnumWindows() {
    Call call(Operation::EnumWindows);
    std::vector<Window> windows;
    if (!call.Refused()) {
        std::ranges::copy_if(Current().windows.Within(Window::None), std::back_inserter(windows),
                             [](Window window) { return Current().windows.Find(window) != nullptr; });
    }
    call.Answered(windows.size());
    return windows;
}

std::uint32_t GetWindowTextLengthW(Window window) {
    return Ask(Operation::GetWindowTextLengthW, window, 0U, [](const StackedWindow& found) {
        return static_cast<std::uint32_t>(found.profile->title.size());
    });
}

bool IsWindowEnabled(Window window) {
    return Ask(Operation::IsWindowEnabled, window, false,
               [](const StackedWindow& found) { return found.profile->enabled; });
}

bool IsWindow(Window window) {
    return Ask(Operation::IsWindow, window, false, [](const StackedWindow&) { return true; });
}

bool IsWindowVisible(Window window) {
    return Ask(Operation::IsWindowVisible, window, false,
               [](const StackedWindow& found) { return found.profile->visible; });
}

bool IsIconic(Window window) {
    return Ask(Operation::IsIconic, window, false,
               [](const StackedWindow& found) { return found.profile->minimised; });
}

Window GetAncestor(Window window, std::uint32_t which) {
    return Ask(Operation::GetAncestor, window, Window::None, [which](const StackedWindow& found) {
        return which == RootOwner ? RootOwnerOf(found) : Window::None;
    });
}

Window GetLastActivePopup(Window window) {
    return Ask(Operation::GetLastActivePopup, window, Window::None, [](const StackedWindow& found) {
        const Window popup = HandleOf(found.profile->lastActivePopup);
        return popup == Window::None ? found.handle : popup;
    });
}

bool GetTitleBarInfo(Window window, TitleBarInfo& info) {
    return Ask(Operation::GetTitleBarInfo, window, false, [&info](const StackedWindow& found) {
        if (info.size != sizeof info) {
            return false;
        }
        info.states[0] = found.profile->titleBarState;
        return true;
    });
}

std::uint32_t GetWindowLongW(Window window, std::int32_t index) {
    return Ask(Operation::GetWindowLongW, window, 0U, [index](const StackedWindow& found) {
        return index == ExtendedStyle ? found.profile->extendedStyle : 0;
    });
}

std::uint32_t GetClassNameW(Window window, char16_t* name, std::uint32_t size) {
    return Ask(Operation::GetClassNameW, window, 0U,
               [=](const StackedWindow& found) { return CopyText(found.profile->className, name, size); });
}

std::uint32_t GetWindowTextW(Window window, char16_t* text, std::uint32_t size) {
    return Ask(Operation::GetWindowTextW, window, 0U,
               [=](const StackedWindow& found) { return CopyText(found.profile->title, text, size); });
}

Window FindWindowExW(Window parent, Window after, const char16_t* className) {
    Call call(Operation::FindWindowExW);
    call.Note([&] { return "in " + NameOf(parent) + " behind " + NameOf(after); });
    return call.Answered(call.Refused() ? Window::None
                                        : FindBehind(parent, after, machine::Folded(className)));
}

std::uint32_t GetWindowThreadProcessId(Window window) {
    return Ask(Operation::GetWindowThreadProcessId, window, 0U,
               [](const StackedWindow& found) { return found.profile->process; });
}

} // namespace VESK_BACK_END
