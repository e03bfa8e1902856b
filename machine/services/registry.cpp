#include "platform/registry.h"

#include "machine/machine.h"
#include "machine/models/storage/registry_hive.h"
#include "machine/models/storage/store.h"
#include "machine/services/last_error.h"
#include "platform/back_end.h"

#include <algorithm>

namespace VESK_BACK_END {
namespace {

using machine::Machine;
using machine::OpenKey;
using machine::RegistryHive;

constexpr std::uint32_t WriteRights = 0x6; // KEY_SET_VALUE | KEY_CREATE_SUB_KEY

/// An operation on a key that is open, or on a hive, which always is, but not for writing its values.
template <class Operation>
SystemError OnKey(Key key, Operation operation) {
    const auto machine = machine::Current();
    const bool isUser = key == Key::CurrentUser;
    OpenKey hive{isUser ? RegistryHive::CurrentUser : RegistryHive::LocalMachine, 0};
    OpenKey* const open = isUser || key == Key::LocalMachine ? &hive : machine->handles.Find<OpenKey>(key);
    return open == nullptr ? error::InvalidHandle
                           : machine::OnDisk([&]() -> SystemError { return operation(*machine, *open); });
}

bool IsReadOnly(Machine& machine, std::int64_t root, const char16_t* subKey) {
    std::u16string path = machine.storage.registry->PathOf(root);
    if (*subKey != u'\0') {
        path += u'\\';
        path += subKey;
    }
    return machine.storage.registry->IsReadOnly(path);
}

/// The names of a key's subkeys as they are now.
const std::vector<std::u16string>& SubkeysOf(Machine& machine, OpenKey& key) {
    machine.storage.registry->Refresh(key.number, key.subkeys);
    return key.subkeys.names;
}

} // namespace

SystemError RegOpenKeyExW(Key root, const char16_t* subKey, std::uint32_t access, Key& opened) {
    return OnKey(root, [&](Machine& machine, const OpenKey& parent) {
        const auto number = machine.storage.registry->Find(parent.number, subKey);
        if (!number) {
            return error::FileNotFound;
        }
        if ((access & WriteRights) != 0 && IsReadOnly(machine, parent.number, subKey)) {
            return error::AccessDenied;
        }
        opened = machine.handles.Open<Key>(OpenKey{*number, access});
        return error::Success;
    });
}

SystemError RegCreateKeyExW(Key root, const char16_t* subKey, std::uint32_t access, Key& opened) {
    return OnKey(root, [&](Machine& machine, const OpenKey& parent) {
        if (IsReadOnly(machine, parent.number, subKey)) {
            return error::AccessDenied;
        }
        machine::Store::Transaction whole(*machine.storage.store);
        const std::int64_t number = machine.storage.registry->Create(parent.number, subKey);
        whole.Commit();
        opened = machine.handles.Open<Key>(OpenKey{number, access});
        return error::Success;
    });
}

SystemError RegQueryValueExW(Key key, const char16_t* name, std::uint32_t& type, std::byte* data,
                             std::uint32_t& size) {
    return OnKey(key, [&](Machine& machine, const OpenKey& open) {
        const auto value = machine.storage.registry->Get(open.number, name);
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
    return OnKey(key, [&](Machine& machine, const OpenKey& open) {
        if ((open.access & WriteRights) == 0) {
            return error::AccessDenied;
        }
        machine.storage.registry->Set(open.number, name, type, data);
        return error::Success;
    });
}

SystemError RegEnumKeyExW(Key key, std::uint32_t index, char16_t* name, std::uint32_t& length) {
    return OnKey(key, [&](Machine& machine, OpenKey& open) {
        const auto& names = SubkeysOf(machine, open);
        if (index >= names.size()) {
            return error::NoMoreItems;
        }
        if (names[index].size() >= length) {
            return error::MoreData;
        }
        *std::ranges::copy(names[index], name).out = u'\0';
        length = static_cast<std::uint32_t>(names[index].size());
        return error::Success;
    });
}

SystemError RegQueryInfoKeyW(Key key, std::uint32_t& subKeys) {
    return OnKey(key, [&](Machine& machine, OpenKey& open) {
        subKeys = static_cast<std::uint32_t>(SubkeysOf(machine, open).size());
        return error::Success;
    });
}

void RegCloseKey(Key key) {
    machine::Current()->handles.Close(key);
}

} // namespace VESK_BACK_END
