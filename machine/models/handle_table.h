// What is open on the machine, by the number that its holder was given.
#pragma once

#include <any>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

namespace machine {

/// Numbers are never given twice, so that a handle that was closed stays invalid.
class HandleTable {
public:
    /// `kind` is a literal, for lists of what is open.
    template <class Object>
    std::uintptr_t Open(std::string_view kind, Object object) {
        m_last += 4;
        m_open.emplace(m_last, Entry{kind, std::move(object)});
        return m_last;
    }

    /// Null for a number that is not open, or is something else.
    template <class Object>
    [[nodiscard]] Object* Find(std::uintptr_t number) {
        const auto found = m_open.find(number);
        return found == m_open.end() ? nullptr : std::any_cast<Object>(&found->second.object);
    }

    /// False for a number that is not open.
    bool Close(std::uintptr_t number) { return m_open.erase(number) != 0; }

    [[nodiscard]] std::vector<std::string_view> Kinds() const {
        std::vector<std::string_view> kinds;
        for (const auto& [number, entry] : m_open) {
            kinds.push_back(entry.kind);
        }
        return kinds;
    }

private:
    struct Entry {
        std::string_view kind;
        std::any object;
    };

    std::map<std::uintptr_t, Entry> m_open;
    std::uintptr_t m_last = 0x1000 - 4;
};

} // namespace machine
