#include "platform/processes.h"
#include "usage/open_windows.h"

#include <array>
#include <string_view>

namespace sondrel {
namespace {

using platform::Window;

constexpr std::u16string_view FrameClass = u"ApplicationFrameWindow";

/// Maximum size of class names, titles and module paths, terminator included.
constexpr std::size_t TextSize = 260;

template <class Query>
std::u16string StringOf(Query query) {
    std::array<char16_t, TextSize> text{};
    query(text.data(), TextSize);
    text.back() = u'\0';
    return text.data();
}

std::u16string ClassOf(Window window) {
    return StringOf(
        [window](char16_t* name, std::uint32_t size) { platform::GetClassNameW(window, name, size); });
}

std::u16string TitleOf(Window window) {
    return StringOf(
        [window](char16_t* text, std::uint32_t size) { platform::GetWindowTextW(window, text, size); });
}

/// The path of a window's executable; empty on failure.
std::u16string ExecutableOf(Window window) {
    const std::uint32_t processId = platform::GetWindowThreadProcessId(window);
    const platform::OwnedProcess process(
        platform::OpenProcess(platform::access::ProcessQueryInformation, processId));
    if (!process) {
        return {};
    }
    return StringOf([&process](char16_t* path, std::uint32_t size) {
        platform::K32GetModuleFileNameExW(process.Get(), path, size);
    });
}

/// The executable of a minimised frame. Its core window is a top-level window meanwhile, found by its title,
/// which is part of the frame's title. The core window of another frame can match too, so a frame that is not
/// minimised has none.
std::u16string ExecutableOfMinimisedFrame(Window frame) {
    const std::u16string frameTitle = TitleOf(frame);
    for (Window core = platform::FindWindowExW(Window::None, Window::None, CoreWindowClass);
         core != Window::None; core = platform::FindWindowExW(Window::None, core, CoreWindowClass)) {
        if (frameTitle.find(TitleOf(core)) == std::u16string::npos) {
            continue;
        }
        if (!platform::IsIconic(frame)) {
            return {};
        }
        if (std::u16string path = ExecutableOf(core); !path.empty()) {
            return path;
        }
    }
    return {};
}

std::u16string ExecutableOfFrame(Window frame) {
    const Window core = platform::FindWindowExW(frame, Window::None, CoreWindowClass);
    return core != Window::None ? ExecutableOf(core) : ExecutableOfMinimisedFrame(frame);
}

} // namespace

bool GetWindowProcessName(Window window, std::u16string& name) {
    const std::u16string className = ClassOf(window);
    if (className.empty()) {
        return false;
    }
    const std::u16string path = className == FrameClass ? ExecutableOfFrame(window) : ExecutableOf(window);
    // npos + 1 is 0: a path without a backslash is its own base name.
    name.append(path, path.rfind(u'\\') + 1);
    return !path.empty();
}

} // namespace sondrel
