// UTF-8 and UTF-16: the only conversions of the tree, for the library, the machine, the tool and the tests.
//
// What is ill-formed becomes U+FFFD, as Windows converts it with code page 65001 and flags 0: in UTF-16 each
// unpaired surrogate, in UTF-8 each maximal subpart of an ill-formed sequence.
#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

namespace unicode {

inline constexpr char32_t Replacement = 0xFFFD;

constexpr bool IsHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool IsLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// Takes the first character off a string that is not empty.
inline char32_t TakeUtf16(std::u16string_view& rest) {
    const char16_t first = rest.front();
    rest.remove_prefix(1);
    if (IsHighSurrogate(first) && !rest.empty() && IsLowSurrogate(rest.front())) {
        const char16_t second = rest.front();
        rest.remove_prefix(1);
        return 0x10000 + (static_cast<char32_t>(first - 0xD800) << 10) + (second - 0xDC00);
    }
    return IsHighSurrogate(first) || IsLowSurrogate(first) ? Replacement : first;
}

/// What the first byte of a character of several bytes says: how many follow, its own bits, and the range of the
/// second byte. The range excludes overlong forms, surrogates and characters above U+10FFFF.
struct Utf8Lead {
    unsigned following = 0;
    unsigned char bits = 0;
    unsigned char low = 0;
    unsigned char high = 0;
};

constexpr Utf8Lead Utf8LeadOf(unsigned char lead) {
    const auto bits = [lead](unsigned mask) {
        return static_cast<unsigned char>(lead & mask);
    };
    if (lead >= 0xC2 && lead <= 0xDF) {
        return {1, bits(0x1F), 0x80, 0xBF};
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        const unsigned char low = lead == 0xE0 ? 0xA0 : 0x80;
        const unsigned char high = lead == 0xED ? 0x9F : 0xBF;
        return {2, bits(0x0F), low, high};
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        const unsigned char low = lead == 0xF0 ? 0x90 : 0x80;
        const unsigned char high = lead == 0xF4 ? 0x8F : 0xBF;
        return {3, bits(0x07), low, high};
    }
    return {};
}

/// Takes the first character off a string that is not empty.
inline char32_t TakeUtf8(std::string_view& rest) {
    const auto first = static_cast<unsigned char>(rest.front());
    rest.remove_prefix(1);
    if (first < 0x80) {
        return first;
    }
    const Utf8Lead lead = Utf8LeadOf(first);
    char32_t character = lead.following != 0 ? lead.bits : Replacement;
    unsigned char low = lead.low;
    unsigned char high = lead.high;
    for (unsigned left = lead.following; left != 0; --left) {
        const auto next = static_cast<unsigned char>(rest.empty() ? '\0' : rest.front());
        if (next < low || next > high) {
            return Replacement;
        }
        character = character << 6 | (next & 0x3Fu);
        rest.remove_prefix(1);
        low = 0x80;
        high = 0xBF;
    }
    return character;
}

inline void AppendUtf16(std::u16string& wide, char32_t character) {
    if (character < 0x10000) {
        wide.push_back(static_cast<char16_t>(character));
        return;
    }
    character -= 0x10000;
    wide.push_back(static_cast<char16_t>(0xD800 + (character >> 10)));
    wide.push_back(static_cast<char16_t>(0xDC00 + (character & 0x3FF)));
}

/// The number of bytes of a character.
constexpr std::size_t Utf8Length(char32_t character) {
    return character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
}

inline void AppendUtf8(std::string& narrow, char32_t character) {
    const std::size_t length = Utf8Length(character);
    if (length == 1) {
        narrow.push_back(static_cast<char>(character));
        return;
    }
    constexpr unsigned Leads[] = {0, 0, 0xC0, 0xE0, 0xF0};
    std::size_t shift = 6 * (length - 1);
    narrow.push_back(static_cast<char>(Leads[length] | character >> shift));
    while (shift != 0) {
        shift -= 6;
        narrow.push_back(static_cast<char>(0x80 | (character >> shift & 0x3F)));
    }
}

inline std::u16string WideFromUtf8(std::string_view text) {
    std::u16string wide;
    wide.reserve(text.size());
    while (!text.empty()) {
        AppendUtf16(wide, TakeUtf8(text));
    }
    return wide;
}

/// At most `limit` bytes: cut after the last whole character that fits.
inline std::string Utf8UpTo(std::u16string_view text, std::size_t limit) {
    std::string narrow;
    narrow.reserve(std::min(limit, text.size()));
    while (!text.empty()) {
        const char32_t character = TakeUtf16(text);
        if (Utf8Length(character) > limit - narrow.size()) {
            break;
        }
        AppendUtf8(narrow, character);
    }
    return narrow;
}

inline std::string Utf8FromWide(std::u16string_view text) {
    return Utf8UpTo(text, std::numeric_limits<std::size_t>::max());
}

} // namespace unicode
