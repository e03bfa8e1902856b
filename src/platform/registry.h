// The registry.
#pragma once

#include "platform/support/owned.h"
#include "platform/types.h"

#include <span>

namespace platform {

enum class Key : std::uintptr_t {
    None = 0,
    // The predefined keys have the platform's numbers, sign-extended as in its headers.
    CurrentUser = static_cast<std::uintptr_t>(std::intptr_t{-0x7FFFFFFF}),  // HKEY_CURRENT_USER, 0x80000001
    LocalMachine = static_cast<std::uintptr_t>(std::intptr_t{-0x7FFFFFFE}), // HKEY_LOCAL_MACHINE, 0x80000002
};

namespace value_type {
inline constexpr std::uint32_t String = 1;       // REG_SZ
inline constexpr std::uint32_t ExpandString = 2; // REG_EXPAND_SZ
inline constexpr std::uint32_t Binary = 3;       // REG_BINARY
inline constexpr std::uint32_t Dword = 4;        // REG_DWORD
inline constexpr std::uint32_t MultiString = 7;  // REG_MULTI_SZ
} // namespace value_type

/// RegOpenKeyExW with options 0.
SystemError RegOpenKeyExW(Key root, const char16_t* subKey, std::uint32_t access, Key& opened);

/// RegCreateKeyExW with no class, option 0, no security attributes and no disposition. Creates the whole path.
SystemError RegCreateKeyExW(Key root, const char16_t* subKey, std::uint32_t access, Key& opened);

/// RegQueryValueExW. `size` is in bytes: the size of the buffer going in, the size of the value coming back. With
/// `data` null only type and size are returned.
SystemError RegQueryValueExW(Key key, const char16_t* name, std::uint32_t& type, std::byte* data,
                             std::uint32_t& size);

SystemError RegSetValueExW(Key key, const char16_t* name, std::uint32_t type,
                           std::span<const std::byte> data);

/// RegEnumKeyExW with no class and no time. `length` is in characters: the size of `name` with the terminator
/// going in, the length of the name without it coming back. `error::MoreData` if the name does not fit,
/// `error::NoMoreItems` for an index after the last subkey.
SystemError RegEnumKeyExW(Key key, std::uint32_t index, char16_t* name, std::uint32_t& length);

/// The number of subkeys by RegQueryInfoKeyW. On failure `subKeys` is unchanged.
SystemError RegQueryInfoKeyW(Key key, std::uint32_t& subKeys);

void RegCloseKey(Key key);

using OwnedKey = Owned<Key, RegCloseKey, Key::None>;

} // namespace platform
