#include "platform/registry.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

SystemError RegOpenKeyExW(Key root, const char16_t* subKey, std::uint32_t access, Key& opened) {
    return Observe<Operation::RegOpenKeyExW>(back_end::RegOpenKeyExW, In("root", root), In("path", subKey),
                                             Hex("access", access),
                                             Opens("key", opened, HandleKind::RegistryKey, subKey));
}

SystemError RegCreateKeyExW(Key root, const char16_t* subKey, std::uint32_t access, Key& opened) {
    return Observe<Operation::RegCreateKeyExW>(back_end::RegCreateKeyExW, In("root", root),
                                               In("path", subKey), Hex("access", access),
                                               Opens("key", opened, HandleKind::RegistryKey, subKey));
}

SystemError RegQueryValueExW(Key key, const char16_t* name, std::uint32_t& type, std::byte* data,
                             std::uint32_t& size) {
    return Observe<Operation::RegQueryValueExW>(back_end::RegQueryValueExW, In("key", key), In("name", name),
                                                OutAlways("type", type), OutBytesAt("data", data, size),
                                                InOut("size", size));
}

SystemError RegSetValueExW(Key key, const char16_t* name, std::uint32_t type,
                           std::span<const std::byte> data) {
    return Observe<Operation::RegSetValueExW>(back_end::RegSetValueExW, In("key", key), In("name", name),
                                              In("type", type), InBytes("data", data));
}

SystemError RegEnumKeyExW(Key key, std::uint32_t index, char16_t* name, std::uint32_t& length) {
    return Observe<Operation::RegEnumKeyExW>(back_end::RegEnumKeyExW, In("key", key), In("index", index),
                                             OutText("name", name, length), InOut("length", length));
}

SystemError RegQueryInfoKeyW(Key key, std::uint32_t& subKeys) {
    return Observe<Operation::RegQueryInfoKeyW>(back_end::RegQueryInfoKeyW, In("key", key),
                                                OutSize("subkeys", subKeys));
}

void RegCloseKey(Key key) {
    Observe<Operation::RegCloseKey>(back_end::RegCloseKey, Closes("key", key));
}

} // namespace platform
