// Reading one property, and converting its value.
#pragma once

#include "platform/wmi.h"

#include <cstdint>
#include <optional>
#include <string>

namespace sondrel {

/// A property of a row; no value if it cannot be read.
platform::WmiValue ReadWmiProperty(platform::WbemObject row, const char16_t* name);

/// The number; nothing if the value is not a number.
std::optional<std::int32_t> NumberOf(const platform::WmiValue& value);

/// The first element of an array of numbers or bytes, if there is one.
std::optional<std::int32_t> FirstNumberOf(const platform::WmiValue& value);

/// The number in signed decimal, or the empty string.
std::u16string NumberStringOf(const platform::WmiValue& value);

/// The whole string, zero characters included. Any other value is the empty string.
std::u16string StringOf(platform::WmiValue value);

/// The string up to its first zero character. An array of numbers is read as 16-bit character codes, which is the
/// form of a monitor's name. Any other value is the empty string.
std::u16string StringUpToZeroOf(platform::WmiValue value);

} // namespace sondrel
