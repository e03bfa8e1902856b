#include "memory_storage.h"

#include "machine/machine.h"
#include "machine/text/folding.h"

#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>

namespace machine {
namespace {

class MemoryVariables final : public FirmwareVariableStore {
public:
    explicit MemoryVariables(const FirmwareVariablesProfile& profile)
        : m_privilegeHeld(profile.privilegeHeld) {
        for (const FirmwareVariable& variable : profile.variables) {
            m_variables[KeyOf(variable.guid, variable.name)] = variable.data;
            if (variable.readOnly) {
                m_readOnly.insert(KeyOf(variable.guid, variable.name));
            }
        }
    }

    std::optional<std::vector<std::byte>> Get(std::u16string_view guid, std::u16string_view name) override {
        const auto found = m_variables.find(KeyOf(guid, name));
        return found == m_variables.end() ? std::nullopt : std::optional(found->second);
    }

    void Set(std::u16string_view guid, std::u16string_view name, std::span<const std::byte> data) override {
        m_variables[KeyOf(guid, name)].assign(data.begin(), data.end());
    }

    [[nodiscard]] bool IsReadOnly(std::u16string_view guid, std::u16string_view name) const override {
        return m_readOnly.contains(KeyOf(guid, name));
    }

    [[nodiscard]] bool PrivilegeHeld() const override { return m_privilegeHeld; }

private:
    using Key = std::pair<std::u16string, std::u16string>;

    static Key KeyOf(std::u16string_view guid, std::u16string_view name) {
        return {Folded(guid), std::u16string(name)};
    }

    bool m_privilegeHeld;
    std::map<Key, std::vector<std::byte>> m_variables;
    std::set<Key> m_readOnly;
};

} // namespace

Storage MemoryStorage(const Profile& profile) {
    return {.firmwareVariables = std::make_shared<MemoryVariables>(profile.firmwareVariables)};
}

/// Under Wine there is a machine only where a program starts one.
void StartDefault() {
    throw std::logic_error("no machine has been started");
}

} // namespace machine
