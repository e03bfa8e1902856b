// Names and values as the walkers of the registry take them: into a room of fixed size, up to what came.
#pragma once

#include "platform/registry.h"

#include <cstdint>
#include <optional>
#include <string>

namespace sondrel {

/// A key opened for reading; nothing held when it cannot be opened.
platform::OwnedKey OpenForReading(platform::Key root, const char16_t* path);

/// Room for a subkey's name, in characters with the terminator. Longer names do not exist in a sound registry.
inline constexpr std::uint32_t SubkeyNameRoom = 1024;

/// The name of subkey number `index`, up to a zero character, which the kernel's own calls can put into one.
/// Nothing for every failure, the end of the list among them, and for a name that does not fit `room` with its
/// terminator; `room` is at most SubkeyNameRoom.
std::optional<std::u16string> SubkeyName(platform::Key key, std::uint32_t index,
                                         std::uint32_t room = SubkeyNameRoom);

/// Room for a value's text, in characters with the terminator.
inline constexpr std::uint32_t ValueTextRoom = 1024;

/// A value's bytes as wide text up to the first zero character, whatever type the value has. A value without
/// a terminator is read up to its last byte; a lone byte at the end counts as a character. Nothing when the
/// read fails, and for a text that does not fit `room` with a terminator; `room` is at most ValueTextRoom.
std::optional<std::u16string> ValueText(platform::Key key, const char16_t* name,
                                        std::uint32_t room = ValueTextRoom);

} // namespace sondrel
