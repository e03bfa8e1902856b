// The firmware's variables of the simulated machine, in its store.
#pragma once

#include "machine/models/storage/firmware_variable_store.h"
#include "machine/models/storage/store.h"
#include "machine/profile/sections/firmware_profile.h"

#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace machine {

class FirmwareStore final : public FirmwareVariableStore {
public:
    /// Puts the profile's variables into a new store.
    FirmwareStore(const Store& store, const FirmwareVariablesProfile& profile);

    std::optional<std::vector<std::byte>> Get(std::u16string_view guid, std::u16string_view name) override;
    void Set(std::u16string_view guid, std::u16string_view name, std::span<const std::byte> data) override;
    [[nodiscard]] bool IsReadOnly(std::u16string_view guid, std::u16string_view name) const override;

    [[nodiscard]] bool PrivilegeHeld() const override { return m_privilegeHeld; }

private:
    bool m_privilegeHeld;
    std::set<std::pair<std::u16string, std::u16string>> m_readOnly;
    Statement m_get;
    Statement m_set;
};

} // namespace machine
