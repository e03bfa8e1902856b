#include "frame/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdarg>
#include <cstdio>
#include <limits>

namespace sondrel {
namespace {

constexpr char32_t ReplacementCharacter = 0xFFFD;

struct DecodedCharacter {
    char32_t character;
    std::size_t length;
};

/// What a lead byte promises: how many bytes follow, and the range of the first of them, which is what rules
/// out overlong forms, surrogates and characters beyond U+10FFFF.
struct LeadByte {
    unsigned following;
    unsigned char firstLow;
    unsigned char firstHigh;
    unsigned char payload;
};

constexpr LeadByte ClassifyLead(unsigned char lead) {
    if (lead >= 0xC2 && lead <= 0xDF) {
        return {1, 0x80, 0xBF, static_cast<unsigned char>(lead & 0x1F)};
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        const unsigned char low = lead == 0xE0 ? 0xA0 : 0x80;
        const unsigned char high = lead == 0xED ? 0x9F : 0xBF;
        return {2, low, high, static_cast<unsigned char>(lead & 0x0F)};
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        const unsigned char low = lead == 0xF0 ? 0x90 : 0x80;
        const unsigned char high = lead == 0xF4 ? 0x8F : 0xBF;
        return {3, low, high, static_cast<unsigned char>(lead & 0x07)};
    }
    return {0, 0, 0, 0};
}

DecodedCharacter DecodeUtf8(std::string_view text) {
    const auto byteAt = [text](std::size_t index) {
        return static_cast<unsigned char>(text[index]);
    };
    const LeadByte lead = ClassifyLead(byteAt(0));
    if (lead.following == 0) {
        return {ReplacementCharacter, 1};
    }
    char32_t character = lead.payload;
    unsigned char low = lead.firstLow;
    unsigned char high = lead.firstHigh;
    for (std::size_t index = 1; index <= lead.following; ++index) {
        if (index >= text.size() || byteAt(index) < low || byteAt(index) > high) {
            return {ReplacementCharacter, index};
        }
        character = (character << 6) | (byteAt(index) & 0x3Fu);
        low = 0x80;
        high = 0xBF;
    }
    return {character, lead.following + std::size_t{1}};
}

void AppendUtf16(std::u16string& wide, char32_t character) {
    if (character < 0x10000) {
        wide.push_back(static_cast<char16_t>(character));
        return;
    }
    character -= 0x10000;
    wide.push_back(static_cast<char16_t>(0xD800 + (character >> 10)));
    wide.push_back(static_cast<char16_t>(0xDC00 + (character & 0x3FF)));
}

constexpr bool IsHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool IsLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

DecodedCharacter DecodeUtf16(std::u16string_view text) {
    const char16_t unit = text[0];
    if (IsHighSurrogate(unit) && text.size() > 1 && IsLowSurrogate(text[1])) {
        const auto high = static_cast<char32_t>(unit - 0xD800);
        const auto low = static_cast<char32_t>(text[1] - 0xDC00);
        return {0x10000 + (high << 10) + low, 2};
    }
    if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
        return {ReplacementCharacter, 1};
    }
    return {unit, 1};
}

struct EncodedCharacter {
    std::array<char, 4> bytes;
    std::size_t length;
};

EncodedCharacter EncodeUtf8(char32_t character) {
    const auto tail = [character](unsigned shift) {
        return static_cast<char>(0x80 | ((character >> shift) & 0x3F));
    };
    if (character < 0x80) {
        return {{static_cast<char>(character)}, 1};
    }
    if (character < 0x800) {
        return {{static_cast<char>(0xC0 | (character >> 6)), tail(0)}, 2};
    }
    if (character < 0x10000) {
        return {{static_cast<char>(0xE0 | (character >> 12)), tail(6), tail(0)}, 3};
    }
    return {{static_cast<char>(0xF0 | (character >> 18)), tail(12), tail(6), tail(0)}, 4};
}

std::string EncodeUpTo(std::u16string_view text, std::size_t limit) {
    std::string narrow;
    narrow.reserve(std::min(limit, text.size()));
    while (!text.empty()) {
        const DecodedCharacter decoded = DecodeUtf16(text);
        const EncodedCharacter encoded = EncodeUtf8(decoded.character);
        if (encoded.length > limit - narrow.size()) {
            break;
        }
        narrow.append(encoded.bytes.data(), encoded.length);
        text.remove_prefix(decoded.length);
    }
    return narrow;
}

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
    std::string_view rest(text.c_str());
    std::u16string wide;
    wide.reserve(rest.size());
    while (!rest.empty()) {
        if (const auto first = static_cast<unsigned char>(rest.front()); first < 0x80) {
            wide.push_back(first);
            rest.remove_prefix(1);
            continue;
        }
        const DecodedCharacter decoded = DecodeUtf8(rest);
        AppendUtf16(wide, decoded.character);
        rest.remove_prefix(decoded.length);
    }
    return wide;
}

std::u16string AnsiToWideBuffer(std::string text) {
    const std::string_view upToZero(text.c_str());
    std::u16string wide(upToZero.size(), u'\0');
    std::transform(upToZero.begin(), upToZero.end(), wide.begin(),
                   [](char byte) { return static_cast<char16_t>(static_cast<unsigned char>(byte)); });
    return wide;
}

std::string WideToUtf8(std::u16string text) {
    return EncodeUpTo(text, std::numeric_limits<std::size_t>::max());
}

std::string WideToUtf8Bounded(std::u16string text) {
    constexpr std::size_t BufferSize = 1024;
    return EncodeUpTo(text, BufferSize - 1);
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
