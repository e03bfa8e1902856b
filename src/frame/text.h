// String conversions, and numbers as strings.
//
// Narrow strings are UTF-8, wide strings UTF-16. A function that takes a string by value consumes it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace sondrel {

/// Lower-case hexadecimal, no prefix, no leading zeros: 0 gives "0".
std::string HexText(std::uint32_t value);

/// Lower-case hexadecimal, no prefix, at least two digits: 5 gives "05", 0x1A2 gives "1a2".
std::u16string HexByteText(std::uint32_t value);

/// Decimal digits, a minus before a negative number, no leading zeros.
std::u16string DecimalText(std::int64_t value);

/// From UTF-8, up to the first zero character. What is ill-formed becomes U+FFFD (unicode/utf.h).
std::u16string Utf8ToWide(std::string text);

/// Each byte becomes one character, up to the first zero character: the conversion of the "C" locale, used for
/// messages of the event log.
std::u16string AnsiToWideBuffer(std::string text);

/// To UTF-8, zero characters included. An unpaired surrogate becomes U+FFFD.
std::string WideToUtf8(std::u16string text);

/// The same, but at most 1023 bytes: a longer string is cut after the last whole character that fits.
std::string WideToUtf8Bounded(std::u16string text);

/// White space as iswspace defines it in the "C" locale.
constexpr bool IsSpace(char16_t unit) {
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r');
}

/// Parses a signed 32-bit number as _wtoi does: leading white space, one sign, digits up to the first other
/// character. Saturates at both ends; 0 without digits.
std::int32_t WideToInt32(std::u16string_view text);

/// Equality without regard to the case of the letters A to Z, as _wcsicmp compares in the "C" locale.
bool EqualIgnoringCase(std::u16string_view left, std::u16string_view right);

/// The position of the first `word` in `text`, compared the same way; npos if there is none.
std::size_t FindIgnoringCase(std::u16string_view text, std::u16string_view word);

/// Formats like snprintf: at most `size` - 1 characters and a terminator. Returns the length of the whole string,
/// or -1 on error. `buffer` may be null when `size` is 0.
int FormatCounted(char* buffer, std::size_t size, const char* format, ...);

/// Formats into 128 bytes. Returns the length, or -1 with the empty string when it does not fit.
int FormatInto128(char (&buffer)[128], const char* format, ...);

} // namespace sondrel
