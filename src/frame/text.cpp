#include "frame/text.h"

#include "unicode/utf.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdarg>
#include <cstdio>
#include <limits>

namespace sondrel {
namespace {

constexpr char16_t LowerAscii(char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

} // namespace

std::string HexText(std::uint32_t value) {
    std::array<char, 8> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16).ptr;
    return {digits.data(), end};
}

std::u16string HexByteText(std::uint32_t value) {
    const std::string digits = HexText(value);
    std::u16string wide(digits.size() < 2 ? 1 : 0, u'0');
    wide.append(digits.begin(), digits.end());
    return wide;
}

std::u16string DecimalText(std::int64_t value) {
    std::array<char, 20> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return {digits.data(), end};
}

std::u16string Utf8ToWide(std::string text) {
    return unicode::WideFromUtf8(text.c_str());
}

std::u16string AnsiToWideBuffer(std::string text) {
    const std::string_view upToZero(text.c_str());
    std::u16string wide(upToZero.size(), u'\0');
    std::transform(upToZero.begin(), upToZero.end(), wide.begin(),
                   [](char byte) { return static_cast<char16_t>(static_cast<unsigned char>(byte)); });
    return wide;
}

std::string WideToUtf8(std::u16string text) {
    return unicode::Utf8FromWide(text);
}

std::string WideToUtf8Bounded(std::u16string text) {
    constexpr std::size_t BufferSize = 1024;
    return unicode::Utf8UpTo(text, BufferSize - 1);
}

std::int32_t WideToInt32(std::u16string_view text) {
    auto place = std::find_if_not(text.begin(), text.end(), IsSpace);
    const bool negative = place != text.end() && *place == u'-';
    if (place != text.end() && (*place == u'-' || *place == u'+')) {
        ++place;
    }
    constexpr std::int64_t Limit = std::numeric_limits<std::int32_t>::max();
    std::int64_t magnitude = 0;
    for (; place != text.end() && *place >= u'0' && *place <= u'9'; ++place) {
        magnitude = std::min(magnitude * 10 + (*place - u'0'), Limit + 1);
    }
    return static_cast<std::int32_t>(negative ? -magnitude : std::min(magnitude, Limit));
}

bool EqualIgnoringCase(std::u16string_view left, std::u16string_view right) {
    return std::ranges::equal(left, right, {}, LowerAscii, LowerAscii);
}

std::size_t FindIgnoringCase(std::u16string_view text, std::u16string_view word) {
    const auto found = std::search(text.begin(), text.end(), word.begin(), word.end(),
                                   [](char16_t a, char16_t b) { return LowerAscii(a) == LowerAscii(b); });
    return found == text.end() && !word.empty() ? std::u16string_view::npos
                                                : static_cast<std::size_t>(found - text.begin());
}

int FormatCounted(char* buffer, std::size_t size, const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(buffer, size, format, arguments);
    va_end(arguments);
    return length;
}

int FormatInto128(char (&buffer)[128], const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(buffer, sizeof buffer, format, arguments);
    va_end(arguments);
    if (length < 0 || static_cast<std::size_t>(length) >= sizeof buffer) {
        buffer[0] = '\0';
        return -1;
    }
    return length;
}

} // namespace sondrel
