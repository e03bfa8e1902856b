// Names and strings of the registry, read into buffers of fixed size.
#pragma once

#include "platform/registry.h"

#include <cstdint>
#include <optional>
#include <string>

namespace sondrel {

/// A key opened for reading; no key on failure.
platform::OwnedKey OpenForReading(platform::Key root, const char16_t* path);

/// Buffer size of a subkey's name, in characters with the terminator. A valid registry has no longer names.
inline constexpr std::uint32_t SubkeyNameSize = 1024;

/// The name of subkey `index`, up to its first zero character: the kernel's calls can create names with one.
/// Nothing on failure, which includes the end of the list, and for a name that does not fit `size` characters
/// with its terminator; `size` is at most SubkeyNameSize.
std::optional<std::u16string> SubkeyName(platform::Key key, std::uint32_t index,
                                         std::uint32_t size = SubkeyNameSize);

/// Buffer size of a value's string, in characters with the terminator.
inline constexpr std::uint32_t ValueStringSize = 1024;

/// A value's bytes as a UTF-16 string up to the first zero character; the type is not checked. A value without a
/// terminator is read up to its last byte; a single byte at the end is a character. Nothing on failure and for a
/// string that does not fit `size` characters with a terminator; `size` is at most ValueStringSize.
std::optional<std::u16string> ValueString(platform::Key key, const char16_t* name,
                                          std::uint32_t size = ValueStringSize);

} // namespace sondrel
