// Reading one property, and what its value stands for.
#pragma once

#include "platform/wmi.h"

#include <cstdint>
#include <optional>
#include <string>

namespace sondrel {

/// A property of a row. One that cannot be read is nothing, whatever was read before.
platform::WmiValue ReadWmiProperty(platform::WbemObject row, const char16_t* name);

/// A number; nothing when the value is none.
std::optional<std::int32_t> NumberOf(const platform::WmiValue& value);

/// The first element of an array of numbers or bytes; nothing when there is none.
std::optional<std::int32_t> FirstNumberOf(const platform::WmiValue& value);

/// A number in signed decimal, or the empty text.
std::u16string NumberTextOf(const platform::WmiValue& value);

/// A text whole, zero characters inside included. Everything else is the empty text.
std::u16string TextOf(platform::WmiValue value);

/// A text up to its first zero character. An array of numbers is taken for the 16-bit codes of a text, which is
/// how a monitor gives its name. Everything else is the empty text.
std::u16string TextUpToZeroOf(platform::WmiValue value);

} // namespace sondrel
