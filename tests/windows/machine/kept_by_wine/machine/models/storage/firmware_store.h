// The firmware's variables, for as long as the process lives.
#pragma once

#include "machine/models/storage/store.h"
#include "machine/profile/firmware_variables_profile.h"
#include "machine/text/wide_text.h"

#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace machine {

class FirmwareStore {
public:
    FirmwareStore(const Store&, const FirmwareVariablesProfile& profile)
        : m_privilegeHeld(profile.privilegeHeld) {
        for (const FirmwareVariable& variable : profile.variables) {
            Set(variable.guid, variable.name, variable.data);
            if (variable.readOnly) {
                m_readOnly.insert(KeyOf(variable.guid, variable.name));
            }
        }
    }

    [[nodiscard]] std::optional<std::vector<std::byte>> Get(std::u16string_view guid,
                                                            std::u16string_view name) const {
        const auto found = m_variables.find(KeyOf(guid, name));
        return found == m_variables.end() ? std::nullopt : std::optional(found->second);
    }

    void Set(std::u16string_view guid, std::u16string_view name, std::span<const std::byte> data) {
        m_variables[KeyOf(guid, name)].assign(data.begin(), data.end());
    }

    [[nodiscard]] bool IsReadOnly(std::u16string_view guid, std::u16string_view name) const {
        return m_readOnly.contains(KeyOf(guid, name));
    }

    [[nodiscard]] bool PrivilegeHeld() const { return m_privilegeHeld; }

    [[nodiscard]] bool PrivilegeEnabled() const { return m_privilegeEnabled; }

    void EnablePrivilege() { m_privilegeEnabled = m_privilegeHeld; }

private:
    using Key = std::pair<std::u16string, std::u16string>;

    static Key KeyOf(std::u16string_view guid, std::u16string_view name) {
        return {Folded(guid), std::u16string(name)};
    }

    bool m_privilegeHeld;
    bool m_privilegeEnabled = false;
    std::map<Key, std::vector<std::byte>> m_variables;
    std::set<Key> m_readOnly;
};

} // namespace machine
