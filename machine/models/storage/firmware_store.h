// The firmware's variables of the simulated machine, in its store.
#pragma once

#include "machine/models/storage/store.h"
#include "machine/profile/firmware_variables_profile.h"

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
    /// Puts the profile's variables into a new store.
    FirmwareStore(const Store& store, const FirmwareVariablesProfile& profile);

    std::optional<std::vector<std::byte>> Get(std::u16string_view guid, std::u16string_view name);
    void Set(std::u16string_view guid, std::u16string_view name, std::span<const std::byte> data);
    [[nodiscard]] bool IsReadOnly(std::u16string_view guid, std::u16string_view name) const;

    [[nodiscard]] bool PrivilegeHeld() const { return m_privilegeHeld; }

    /// Whether this process has asked for the privilege that variables demand, and got it.
    [[nodiscard]] bool PrivilegeEnabled() const { return m_privilegeEnabled; }

    void EnablePrivilege() { m_privilegeEnabled = m_privilegeHeld; }

private:
    bool m_privilegeHeld;
    bool m_privilegeEnabled = false;
    std::set<std::pair<std::u16string, std::u16string>> m_readOnly;
    Statement m_get;
    Statement m_set;
};

} // namespace machine
