// The windows of the simulated machine in their stacking order.
#pragma once

#include "machine/profile/sections/desktop_profile.h"
#include "platform/desktop.h"

#include <map>
#include <string>
#include <vector>

namespace machine {

/// One window that exists.
struct StackedWindow {
    const WindowProfile* profile;
    platform::Window handle;
    platform::Window parent;
    std::size_t place; // among its siblings
};

class WindowStack {
public:
    explicit WindowStack(const std::vector<WindowProfile>& profile);

    /// Null for a window that does not exist or is closed.
    [[nodiscard]] const StackedWindow* Find(platform::Window window) const;
    [[nodiscard]] const StackedWindow* Find(const std::string& name) const;

    /// The windows within a parent, or the top-level ones for none, uppermost first. Some may be closed.
    [[nodiscard]] const std::vector<platform::Window>& Within(platform::Window parent) const;

    /// Closes a window with its children. Windows that it owns stay.
    void Close(const std::string& name);

private:
    void Add(const std::vector<WindowProfile>& windows, platform::Window parent);

    std::map<platform::Window, StackedWindow> m_windows;
    std::map<std::string, platform::Window> m_names;
    std::map<platform::Window, std::vector<platform::Window>> m_within;
};

} // namespace machine
