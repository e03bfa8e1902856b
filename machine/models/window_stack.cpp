#include "machine/models/window_stack.h"

namespace machine {

using platform::Window;

WindowStack::WindowStack(const std::vector<WindowProfile>& profile) {
    Add(profile, Window::None);
}

void WindowStack::Add(const std::vector<WindowProfile>& windows, Window parent) {
    constexpr std::uintptr_t FirstHandle = 0x10010;
    constexpr std::uintptr_t HandleStep = 2;
    for (const WindowProfile& profile : windows) {
        const Window handle{FirstHandle + HandleStep * m_windows.size()};
        m_windows[handle] = {&profile, handle, parent, m_within[parent].size()};
        m_within[parent].push_back(handle);
        m_names[profile.name] = handle;
        Add(profile.children, handle);
    }
}

const StackedWindow* WindowStack::Find(Window window) const {
    const auto found = m_windows.find(window);
    return found == m_windows.end() ? nullptr : &found->second;
}

const StackedWindow* WindowStack::Find(const std::string& name) const {
    const auto found = m_names.find(name);
    return found == m_names.end() ? nullptr : Find(found->second);
}

const std::vector<Window>& WindowStack::Within(Window parent) const {
    static const std::vector<Window> None;
    const auto found = m_within.find(parent);
    return found == m_within.end() ? None : found->second;
}

void WindowStack::Close(const std::string& name) {
    const StackedWindow* window = Find(name);
    if (window == nullptr) {
        return;
    }
    const Window handle = window->handle;
    for (const WindowProfile& child : window->profile->children) {
        Close(child.name);
    }
    m_windows.erase(handle);
}

} // namespace machine
