// The firmware's variables, wherever they are stored.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace machine {

class FirmwareVariableStore {
public:
    FirmwareVariableStore() = default;
    FirmwareVariableStore(const FirmwareVariableStore&) = delete;
    FirmwareVariableStore& operator=(const FirmwareVariableStore&) = delete;
    virtual ~FirmwareVariableStore() = default;

    virtual std::optional<std::vector<std::byte>> Get(std::u16string_view guid, std::u16string_view name) = 0;
    virtual void Set(std::u16string_view guid, std::u16string_view name, std::span<const std::byte> data) = 0;
    [[nodiscard]] virtual bool IsReadOnly(std::u16string_view guid, std::u16string_view name) const = 0;

    /// The privilege that variables demand: whether this process may have it, and whether it has asked for it.
    [[nodiscard]] virtual bool PrivilegeHeld() const = 0;

    [[nodiscard]] bool PrivilegeEnabled() const { return m_privilegeEnabled; }

    void EnablePrivilege() { m_privilegeEnabled = PrivilegeHeld(); }

private:
    bool m_privilegeEnabled = false;
};

} // namespace machine
