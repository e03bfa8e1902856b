// Four registry operations with one failure convention.
#pragma once

#include "platform/registry.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace sondrel {

/// What both readers return for every failure, in place of a value. Callers compare without regard to case.
inline constexpr std::u16string_view RegistrySentinel = u"ERROR_READREG";

/// The key under HKEY_LOCAL_MACHINE that holds the EC identity and the app paths.
inline constexpr const char16_t* ProductKey = u"SOFTWARE\\Vesk\\Vesk Kelvane\\VeskTessaly";

/// Whether a reader's text stands for a failed read.
bool IsRegistrySentinel(std::u16string_view text);

/// A REG_DWORD as unsigned decimal digits, or the sentinel.
std::u16string ReadRegDword(platform::Key root, std::u16string subKey, std::u16string valueName);

/// A REG_SZ up to its first zero character, or the sentinel. The text and its terminator have to fit 256
/// characters: a longer value counts as a failed read, since half a path helps nobody.
std::u16string ReadRegString(platform::Key root, std::u16string subKey, std::u16string valueName);

/// Writes a REG_DWORD, creating the key's path where it is missing. False when it failed.
bool WriteRegDword(platform::Key root, std::u16string subKey, std::u16string valueName, std::uint32_t value);

/// Writes a REG_SZ with its terminator, creating the key's path where it is missing. False when it failed.
bool WriteRegString(platform::Key root, std::u16string subKey, std::u16string valueName, std::u16string text);

} // namespace sondrel
