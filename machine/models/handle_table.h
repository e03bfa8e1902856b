// What is open on the machine, by the number that its holder was given.
#pragma once

#include <any>
#include <cstdint>
#include <map>
#include <utility>

namespace machine {

/// The handles and interface pointers of all services. Numbers are never given twice, so that a handle that was closed
/// stays invalid. A handle has the type that the boundary gives it, or is its number.
class HandleTable {
public:
    template <class Handle, class Object>
    Handle Open(Object object) {
        m_last += 4;
        m_open.emplace(m_last, std::move(object));
        return static_cast<Handle>(m_last);
    }

    /// Null for a handle that is not open, or is something else.
    template <class Object, class Handle>
    [[nodiscard]] Object* Find(Handle handle) {
        const auto found = m_open.find(static_cast<std::uintptr_t>(handle));
        return found == m_open.end() ? nullptr : std::any_cast<Object>(&found->second);
    }

    /// False for a handle that is not open.
    template <class Handle>
    bool Close(Handle handle) {
        return m_open.erase(static_cast<std::uintptr_t>(handle)) != 0;
    }

    [[nodiscard]] bool IsEmpty() const { return m_open.empty(); }

private:
    std::map<std::uintptr_t, std::any> m_open;
    std::uintptr_t m_last = 0x1000 - 4;
};

} // namespace machine
