#include "platform/desktop.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

std::vector<Window> EnumWindows() {
    return Observe<Operation::EnumWindows>(back_end::EnumWindows);
}

std::uint32_t GetWindowTextLengthW(Window window) {
    return Observe<Operation::GetWindowTextLengthW>(back_end::GetWindowTextLengthW, In("window", window));
}

bool IsWindowEnabled(Window window) {
    return Observe<Operation::IsWindowEnabled>(back_end::IsWindowEnabled, In("window", window));
}

bool IsWindow(Window window) {
    return Observe<Operation::IsWindow>(back_end::IsWindow, In("window", window));
}

bool IsWindowVisible(Window window) {
    return Observe<Operation::IsWindowVisible>(back_end::IsWindowVisible, In("window", window));
}

bool IsIconic(Window window) {
    return Observe<Operation::IsIconic>(back_end::IsIconic, In("window", window));
}

Window GetAncestor(Window window, std::uint32_t which) {
    return Observe<Operation::GetAncestor>(back_end::GetAncestor, In("window", window), In("which", which));
}

Window GetLastActivePopup(Window window) {
    return Observe<Operation::GetLastActivePopup>(back_end::GetLastActivePopup, In("window", window));
}

bool GetTitleBarInfo(Window window, TitleBarInfo& info) {
    return Observe<Operation::GetTitleBarInfo>(back_end::GetTitleBarInfo, In("window", window),
                                               InOut("info", info));
}

std::uint32_t GetWindowLongW(Window window, std::int32_t index) {
    return Observe<Operation::GetWindowLongW>(back_end::GetWindowLongW, In("window", window),
                                              In("index", index));
}

std::uint32_t GetClassNameW(Window window, char16_t* name, std::uint32_t size) {
    return Observe<Operation::GetClassNameW>(back_end::GetClassNameW, In("window", window),
                                             OutText("name", name, size), In("size", size));
}

std::uint32_t GetWindowTextW(Window window, char16_t* text, std::uint32_t size) {
    return Observe<Operation::GetWindowTextW>(back_end::GetWindowTextW, In("window", window),
                                              OutText("text", text, size), In("size", size));
}

Window FindWindowExW(Window parent, Window after, const char16_t* className) {
    return Observe<Operation::FindWindowExW>(back_end::FindWindowExW, In("parent", parent),
                                             In("after", after), In("class", className));
}

std::uint32_t GetWindowThreadProcessId(Window window) {
    return Observe<Operation::GetWindowThreadProcessId>(back_end::GetWindowThreadProcessId,
                                                        In("window", window));
}

} // namespace platform
