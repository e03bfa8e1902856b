#include "machine/models/storage/firmware_store.h"

#include "machine/text/folding.h"

namespace machine {

FirmwareStore::FirmwareStore(const Store& store, const FirmwareVariablesProfile& profile)
    : m_privilegeHeld(profile.privilegeHeld),
      m_get(store.Prepare("SELECT data FROM firmware_variable WHERE guid = ? AND name = ?")),
      m_set(store.Prepare("INSERT INTO firmware_variable VALUES (?, ?, ?) ON CONFLICT DO UPDATE "
                          "SET data = excluded.data")) {
    for (const FirmwareVariable& variable : profile.variables) {
        if (variable.readOnly) {
            m_readOnly.emplace(Folded(variable.guid), variable.name);
        }
        if (store.IsNew()) {
            Set(variable.guid, variable.name, variable.data);
        }
    }
}

std::optional<std::vector<std::byte>> FirmwareStore::Get(std::u16string_view guid, std::u16string_view name) {
    m_get.Bind(1, Folded(guid)).Bind(2, name);
    if (!m_get.Step()) {
        return std::nullopt;
    }
    auto data = m_get.Bytes(0);
    m_get.Reset();
    return data;
}

void FirmwareStore::Set(std::u16string_view guid, std::u16string_view name, std::span<const std::byte> data) {
    m_set.Bind(1, Folded(guid)).Bind(2, name).Bind(3, data);
    m_set.Run();
}

bool FirmwareStore::IsReadOnly(std::u16string_view guid, std::u16string_view name) const {
    return m_readOnly.contains({Folded(guid), std::u16string(name)});
}

} // namespace machine
