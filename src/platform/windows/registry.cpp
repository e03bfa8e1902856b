#include "platform/registry.h"

#include "platform/back_end.h"
#include "platform/windows/support/native.h"

namespace VESK_BACK_END {
namespace {

HKEY Native(Key key) {
    return reinterpret_cast<HKEY>(key);
}

SystemError Opened(LSTATUS status, HKEY key, Key& opened) {
    if (status == ERROR_SUCCESS) {
        opened = Key{reinterpret_cast<std::uintptr_t>(key)};
    }
    return static_cast<SystemError>(status);
}

} // namespace

SystemError RegOpenKeyExW(Key root, const char16_t* subKey, std::uint32_t access, Key& opened) {
    HKEY key = nullptr;
    const LSTATUS status = ::RegOpenKeyExW(Native(root), Wide(subKey), 0, access, &key);
    return Opened(status, key, opened);
}

SystemError RegCreateKeyExW(Key root, const char16_t* subKey, std::uint32_t access, Key& opened) {
    HKEY key = nullptr;
    const LSTATUS status =
        ::RegCreateKeyExW(Native(root), Wide(subKey), 0, nullptr, 0, access, nullptr, &key, nullptr);
    return Opened(status, key, opened);
}

SystemError RegQueryValueExW(Key key, const char16_t* name, std::uint32_t& type, std::byte* data,
                             std::uint32_t& size) {
    DWORD foundType = 0;
    DWORD foundSize = size;
    const LSTATUS status = ::RegQueryValueExW(Native(key), Wide(name), nullptr, &foundType,
                                              reinterpret_cast<BYTE*>(data), &foundSize);
    type = foundType;
    size = foundSize;
    return static_cast<SystemError>(status);
}

SystemError RegSetValueExW(Key key, const char16_t* name, std::uint32_t type,
                           std::span<const std::byte> data) {
    return static_cast<SystemError>(::RegSetValueExW(Native(key), Wide(name), 0, type,
                                                     reinterpret_cast<const BYTE*>(data.data()),
                                                     static_cast<DWORD>(data.size())));
}

SystemError RegEnumKeyExW(Key key, std::uint32_t index, char16_t* name, std::uint32_t& length) {
    DWORD nameLength = length;
    const LSTATUS status =
        ::RegEnumKeyExW(Native(key), index, Wide(name), &nameLength, nullptr, nullptr, nullptr, nullptr);
    length = nameLength;
    return static_cast<SystemError>(status);
}

SystemError RegQueryInfoKeyW(Key key, std::uint32_t& subKeys) {
    DWORD count = subKeys;
    const LSTATUS status = ::RegQueryInfoKeyW(Native(key), nullptr, nullptr, nullptr, &count, nullptr,
                                              nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    subKeys = count;
    return static_cast<SystemError>(status);
}

void RegCloseKey(Key key) {
    ::RegCloseKey(Native(key));
}

} // namespace VESK_BACK_END
