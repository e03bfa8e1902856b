#include "platform/registry.h"

#include "machine/machine.h"
#include "machine/models/storage/registry_hive.h"
#include "machine/models/storage/store.h"
#include "machine/services/last_error.h"
#include "platform/back_end.h"

#include <algorithm>

namespace VESK_BACK_END {
namespace {

using machine::HeldMachine;
using machine::Machine;
using machine::OnDisk;
using machine::OpenKey;
using machine::RegistryHive;

constexpr std::uint32_t WriteRights = 0x6; // KEY_SET_VALUE | KEY_CREATE_SUB_KEY

OpenKey* Find(Machine& machine, Key key) {
    return machine.handles.Find<OpenKey>(key);
}

/// The store's number of a key: a hive, or a key that is open. Nothing when it is neither.
std::optional<std::int64_t> NumberOf(Machine& machine, Key key) {
    if (key == Key::LocalMachine) {
        return RegistryHive::LocalMachine;
    }
    if (key == Key::CurrentUser) {
        return RegistryHive::CurrentUser;
    }
    const OpenKey* const open = Find(machine, key);
    return open == nullptr ? std::nullopt : std::optional(open->number);
}

bool IsReadOnly(Machine& machine, std::int64_t root, const char16_t* subKey) {
    std::u16string path = machine.storage.registry->PathOf(root);
    if (*subKey != u'\0') {
        path += u'\\';
        path += subKey;
    }
    return machine.storage.registry->IsReadOnly(path);
}

Key Opened(Machine& machine, std::int64_t number, std::uint32_t access) {
    return machine.handles.Open<Key>(OpenKey{number, access});
}

/// The subkeys of an open key as they are now; null when the key is none that is open. The hives themselves are
/// always open and are not enumerated.
const std::vector<std::u16string>* SubkeysOf(Machine& machine, Key key) {
    OpenKey* const open = Find(machine, key);
    if (open == nullptr) {
        return nullptr;
    }
    machine.storage.registry->Refresh(open->number, open->subkeys);
    return &open->subkeys.names;
}

} // namespace

SystemError RegOpenKeyExW(Key root, const char16_t* subKey, std::uint32_t access, Key& opened) {
    const auto machine = machine::Current();
    return OnDisk([&] {
        const auto parent = NumberOf(*machine, root);
        if (!parent) {
            return error::InvalidHandle;
        }
        const auto number = machine->storage.registry->Find(*parent, subKey);
        if (!number) {
            return error::FileNotFound;
        }
        if ((access & WriteRights) != 0 && IsReadOnly(*machine, *parent, subKey)) {
            return error::AccessDenied;
        }
        opened = Opened(*machine, *number, access);
        return error::Success;
    });
}

SystemError RegCreateKeyExW(Key root, const char16_t* subKey, std::uint32_t access, Key& opened) {
    const auto machine = machine::Current();
    return OnDisk([&] {
        const auto parent = NumberOf(*machine, root);
        if (!parent) {
            return error::InvalidHandle;
        }
        if (IsReadOnly(*machine, *parent, subKey)) {
            return error::AccessDenied;
        }
        machine::Store::Transaction whole(*machine->storage.store);
        const std::int64_t number = machine->storage.registry->Create(*parent, subKey);
        whole.Commit();
        opened = Opened(*machine, number, access);
        return error::Success;
    });
}

SystemError RegQueryValueExW(Key key, const char16_t* name, std::uint32_t& type, std::byte* data,
                             std::uint32_t& size) {
    const auto machine = machine::Current();
    return OnDisk([&] {
        const auto number = NumberOf(*machine, key);
        if (!number) {
            return error::InvalidHandle;
        }
        const auto value = machine->storage.registry->Get(*number, name);
        if (!value) {
            return error::FileNotFound;
        }
        const std::uint32_t bufferSize = size;
        type = value->type;
        size = static_cast<std::uint32_t>(value->data.size());
        if (data == nullptr) {
            return error::Success;
        }
        if (bufferSize < size) {
            return error::MoreData;
        }
        std::ranges::copy(value->data, data);
        return error::Success;
    });
}

SystemError RegSetValueExW(Key key, const char16_t* name, std::uint32_t type,
                           std::span<const std::byte> data) {
    const auto machine = machine::Current();
    return OnDisk([&] {
        const OpenKey* const open = Find(*machine, key);
        if (open == nullptr) {
            return error::InvalidHandle;
        }
        if ((open->access & WriteRights) == 0) {
            return error::AccessDenied;
        }
        machine->storage.registry->Set(open->number, name, type, data);
        return error::Success;
    });
}

SystemError RegEnumKeyExW(Key key, std::uint32_t index, char16_t* name, std::uint32_t& length) {
    const auto machine = machine::Current();
    return OnDisk([&] {
        const auto* const names = SubkeysOf(*machine, key);
        if (names == nullptr) {
            return error::InvalidHandle;
        }
        if (index >= names->size()) {
            return error::NoMoreItems;
        }
        const std::u16string& found = (*names)[index];
        if (found.size() >= length) {
            return error::MoreData;
        }
        *std::ranges::copy(found, name).out = u'\0';
        length = static_cast<std::uint32_t>(found.size());
        return error::Success;
    });
}

SystemError RegQueryInfoKeyW(Key key, std::uint32_t& subKeys) {
    const auto machine = machine::Current();
    return OnDisk([&] {
        const auto* const names = SubkeysOf(*machine, key);
        if (names == nullptr) {
            return error::InvalidHandle;
        }
        subKeys = static_cast<std::uint32_t>(names->size());
        return error::Success;
    });
}

void RegCloseKey(Key key) {
    machine::Current()->handles.Close(key);
}

} // namespace VESK_BACK_END
