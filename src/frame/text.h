// Text conversions and number texts.
//
// Narrow text is UTF-8, wide text is UTF-16. A function that takes a string by value consumes it.
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

/// The text up to its first zero character, from UTF-8. Ill-formed input becomes U+FFFD, one for each maximal
/// ill-formed run, as MultiByteToWideChar gives it with code page 65001 and flags 0.
std::u16string Utf8ToWide(std::string text);

/// The text up to its first zero character, each byte one character: the conversion of the "C" locale, which
/// is the form that messages for the event log take.
std::u16string AnsiToWideBuffer(std::string text);

/// To UTF-8, without a limit. An unpaired surrogate becomes U+FFFD, as WideCharToMultiByte gives it.
std::string WideToUtf8(std::u16string text);

/// To UTF-8, at most 1023 bytes: a longer text is cut behind the last whole character that fits.
std::string WideToUtf8Bounded(std::u16string text);

/// White space as the C library's iswspace knows it in the plain locale.
constexpr bool IsSpace(char16_t unit) {
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r');
}

/// A decimal text as a signed 32-bit number, as _wtoi reads it: leading white space, one sign, digits up to
/// the first other character; saturates at both ends; no digits give 0.
std::int32_t WideToInt32(std::u16string_view text);

/// Equality without regard to the case of the letters A to Z, as _wcsicmp compares in the "C" locale.
bool EqualIgnoringCase(std::u16string_view left, std::u16string_view right);

/// Where `word` first stands in `text`, compared the same way; npos where it does not.
std::size_t FindIgnoringCase(std::u16string_view text, std::u16string_view word);

/// Formats like standard snprintf: at most `size` - 1 characters and a terminator. The result is the length
/// of the whole text, or -1 on an error. `buffer` may be null when `size` is 0.
int FormatCounted(char* buffer, std::size_t size, const char* format, ...);

/// Formats into 128 bytes. The result is the length; a text that does not fit gives -1 and the empty text.
int FormatInto128(char (&buffer)[128], const char* format, ...);

} // namespace sondrel
