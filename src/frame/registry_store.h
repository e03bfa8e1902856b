// Four registry operations with one failure convention.
#pragma once

#include "platform/registry.h"
#include "platform/support/product_key.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace sondrel {

/// Returned by both readers for every failure. Callers compare without regard to case.
inline constexpr std::u16string_view RegistrySentinel = u"ERROR_READREG";

using platform::ProductKey;

/// Whether a reader's result means a failed read.
bool IsRegistrySentinel(std::u16string_view text);

/// A REG_DWORD as unsigned decimal digits, or the sentinel.
std::u16string ReadRegDword(platform::Key root, std::u16string subKey, std::u16string valueName);

/// A REG_SZ up to its first zero character, or the sentinel. A value of more than 255 characters is a failed
/// read: half a path is of no use.
std::u16string ReadRegString(platform::Key root, std::u16string subKey, std::u16string valueName);

/// Writes a REG_DWORD and creates the key with its path if it is missing. False on failure.
bool WriteRegDword(platform::Key root, std::u16string subKey, std::u16string valueName, std::uint32_t value);

/// Writes a REG_SZ with its terminator and creates the key with its path if it is missing. False on failure.
bool WriteRegString(platform::Key root, std::u16string subKey, std::u16string valueName, std::u16string text);

} // namespace sondrel
