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
    return m_get.With(Folded(guid), name).First([](const Statement& row) { return row.Bytes(0); });
}

void FirmwareStore::Set(std::u16string_view guid, std::u16string_view name, std::span<const std::byte> data) {
    m_set.With(Folded(guid), name, data).Run();
}

bool FirmwareStore::IsReadOnly(std::u16string_view guid, std::u16string_view name) const {
    return m_readOnly.contains({Folded(guid), std::u16string(name)});
}

} // namespace machine
