#include "platform/registry.h"

#include "machine/machine.h"
#include "machine/models/storage/registry_hive.h"
#include "machine/models/storage/store.h"
#include "machine/text/wide_text.h"
#include "observer/gate.h"
#include "platform/back_end.h"

#include <algorithm>

namespace VESK_BACK_END {

using machine::Call;
using machine::Current;
using machine::Operation;
using machine::RegistryHive;
using machine::Utf8FromWide;

namespace {

constexpr std::uint32_t WriteRights = 0x6; // KEY_SET_VALUE | KEY_CREATE_SUB_KEY

/// One registry operation: a planned failure first, then `body`, whose trouble with the store is a failure of
/// the operation.
template <class Note, class Body>
SystemError Perform(Operation operation, Note note, Body body) {
    Call call(operation);
    call.Note(note);
    if (call.Refused()) {
        return call.Answered(call.RefusalCode());
    }
    try {
        return call.Answered(body());
    } catch (const machine::StoreError&) {
        return call.Answered(error::GenFailure);
    }
}

/// The store's number behind a key: a hive, or a key that is open. Nothing when it is neither.
std::optional<std::int64_t> NumberOf(Key key) {
    if (key == Key::LocalMachine) {
        return RegistryHive::LocalMachine;
    }
    if (key == Key::CurrentUser) {
        return RegistryHive::CurrentUser;
    }
    const auto& open = Current().openKeys;
    const auto found = open.find(static_cast<std::uintptr_t>(key));
    return found == open.end() ? std::nullopt : std::optional(found->second.number);
}

std::u16string PathBelow(std::int64_t root, const char16_t* subKey) {
    std::u16string path = Current().registry.PathOf(root);
    if (*subKey != u'\0') {
        path += u'\\';
        path += subKey;
    }
    return path;
}

Key Opened(std::int64_t number, std::uint32_t access, const char16_t* subKey) {
    const std::uintptr_t handle = Current().gate.Opened("registry key " + Utf8FromWide(subKey));
    Current().openKeys[handle] = {number, access};
    return Key{handle};
}

SystemError Open(Key root, const char16_t* subKey, std::uint32_t access, Key& opened) {
    const auto parent = NumberOf(root);
    if (!parent) {
        return error::InvalidHandle;
    }
    const auto number = Current().registry.Find(*parent, subKey);
    if (!number) {
        return error::FileNotFound;
    }
    if ((access & WriteRights) != 0 && Current().registry.IsReadOnly(PathBelow(*parent, subKey))) {
        return error::AccessDenied;
    }
    opened = Opened(*number, access, subKey);
    return error::Success;
}

SystemError Create(Key root, const char16_t* subKey, std::uint32_t access, Key& opened) {
    const auto parent = NumberOf(root);
    if (!parent) {
        return error::InvalidHandle;
    }
    if (Current().registry.IsReadOnly(PathBelow(*parent, subKey))) {
        return error::AccessDenied;
    }
    machine::Store::Transaction whole(Current().store);
    const std::int64_t number = Current().registry.Create(*parent, subKey);
    whole.Commit();
    opened = Opened(number, access, subKey);
    return error::Success;
}

SystemError Query(Key key, const char16_t* name, std::uint32_t& type, std::byte* data, std::uint32_t& size) {
    const auto number = NumberOf(key);
    if (!number) {
        return error::InvalidHandle;
    }
    const auto value = Current().registry.Get(*number, name);
    if (!value) {
        return error::FileNotFound;
    }
    const std::uint32_t room = size;
    type = value->type;
    size = static_cast<std::uint32_t>(value->data.size());
    if (data == nullptr) {
        return error::Success;
    }
    if (room < size) {
        return error::MoreData;
    }
    std::copy(value->data.begin(), value->data.end(), data);
    return error::Success;
}

SystemError Set(Key key, const char16_t* name, std::uint32_t type, std::span<const std::byte> data) {
    const auto& open = Current().openKeys;
    const auto found = open.find(static_cast<std::uintptr_t>(key));
    if (found == open.end()) {
        return error::InvalidHandle;
    }
    if ((found->second.access & WriteRights) == 0) {
        return error::AccessDenied;
    }
    Current().registry.Set(found->second.number, name, type, data);
    return error::Success;
}

/// The subkeys of an open key as they stand now; null when the key is none that is open. The hives themselves
/// are always open and are not enumerated.
const std::vector<std::u16string>* SubkeysOf(Key key) {
    auto& open = Current().openKeys;
    const auto found = open.find(static_cast<std::uintptr_t>(key));
    if (found == open.end()) {
        return nullptr;
    }
    Current().registry.Refresh(found->second.number, found->second.subkeys);
    return &found->second.subkeys.names;
}

SystemError Enumerate(Key key, std::uint32_t index, char16_t* name, std::uint32_t& length) {
    const auto* names = SubkeysOf(key);
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
}

SystemError Describe(Key key, std::uint32_t& subKeys) {
    const auto* names = SubkeysOf(key);
    if (names == nullptr) {
        return error::InvalidHandle;
    }
    subKeys = static_cast<std::uint32_t>(names->size());
    return error::Success;
}

std::string AccessNote(const char16_t* subKey, std::uint32_t access) {
    return Utf8FromWide(subKey) + " access " + std::to_string(access);
}

} // namespace

SystemError RegOpenKeyExW(Key root, const char16_t* subKey, std::uint32_t access, Key& opened) {
    return Perform(
        Operation::RegOpenKeyExW, [&] { return AccessNote(subKey, access); },
        [&] { return Open(root, subKey, access, opened); });
}

SystemError RegCreateKeyExW(Key root, const char16_t* subKey, std::uint32_t access, Key& opened) {
    return Perform(
        Operation::RegCreateKeyExW, [&] { return AccessNote(subKey, access); },
        [&] { return Create(root, subKey, access, opened); });
}

SystemError RegQueryValueExW(Key key, const char16_t* name, std::uint32_t& type, std::byte* data,
                             std::uint32_t& size) {
    return Perform(
        Operation::RegQueryValueExW,
        [&] { return Utf8FromWide(name) + (data == nullptr ? " size" : " data"); },
        [&] { return Query(key, name, type, data, size); });
}

SystemError RegSetValueExW(Key key, const char16_t* name, std::uint32_t type,
                           std::span<const std::byte> data) {
    return Perform(
        Operation::RegSetValueExW,
        [&] { return Utf8FromWide(name) + ' ' + std::to_string(data.size()) + " bytes"; },
        [&] { return Set(key, name, type, data); });
}

SystemError RegEnumKeyExW(Key key, std::uint32_t index, char16_t* name, std::uint32_t& length) {
    return Perform(
        Operation::RegEnumKeyExW, [&] { return std::to_string(index); },
        [&] { return Enumerate(key, index, name, length); });
}

SystemError RegQueryInfoKeyW(Key key, std::uint32_t& subKeys) {
    return Perform(
        Operation::RegQueryInfoKeyW, [] { return "subkeys"; }, [&] { return Describe(key, subKeys); });
}

void RegCloseKey(Key key) {
    const Call call(Operation::RegCloseKey);
    const auto number = static_cast<std::uintptr_t>(key);
    Current().gate.Closed(number);
    Current().openKeys.erase(number);
}

} // namespace VESK_BACK_END
