// The library's own conversions beside those of Windows and of its C runtime.
#include "frame/text.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>

namespace {

std::u16string ByWindows(const std::string& text) {
    const auto length = static_cast<int>(text.size());
    const int size = ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    std::u16string wide(static_cast<std::size_t>(size), u'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, reinterpret_cast<wchar_t*>(wide.data()), size);
    return wide;
}

/// Runs of replacement characters as one: Windows promises that ill-formed bytes become U+FFFD, and not how many.
std::u16string WithSingleReplacements(std::u16string text) {
    const auto end = std::unique(text.begin(), text.end(), [](char16_t left, char16_t right) {
        return left == u'\uFFFD' && right == u'\uFFFD';
    });
    text.erase(end, text.end());
    return text;
}

std::string ByWindows(const std::u16string& text) {
    const auto* wide = reinterpret_cast<const wchar_t*>(text.data());
    const int length = static_cast<int>(text.size());
    const int size = ::WideCharToMultiByte(CP_UTF8, 0, wide, length, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, wide, length, narrow.data(), size, nullptr, nullptr);
    return narrow;
}

constexpr bool Continues(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// Wine takes the byte behind a character of three or four bytes for a part of it, where the character breaks off
/// before its last but one byte. Windows, which keeps to the Unicode Standard there, must not.
bool WineSwallowsAByte(std::string_view text) {
    for (std::size_t place = 0; place < text.size(); ++place) {
        const auto lead = static_cast<unsigned char>(text[place]);
        if (lead < 0xE0 || lead > 0xF4) {
            continue;
        }
        const std::size_t lastButOne = place + (lead < 0xF0 ? 1 : 2);
        std::size_t next = place + 1;
        while (next < text.size() && next <= lastButOne && Continues(text[next])) {
            ++next;
        }
        if (next < text.size() && next <= lastButOne) {
            return true;
        }
    }
    return false;
}

// Both sides of every border in UTF-8: between the kinds of bytes, and in the ranges that follow E0, ED, F0, F4.
constexpr std::array<unsigned char, 26> TellingBytes{0x01, 0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF,
                                                     0xC0, 0xC1, 0xC2, 0xDF, 0xE0, 0xE1, 0xEC, 0xED, 0xEE,
                                                     0xEF, 0xF0, 0xF1, 0xF3, 0xF4, 0xF5, 0xF8, 0xFF};

std::string Hex(std::string_view text) {
    std::string hex;
    for (const char byte : text) {
        hex += sondrel::HexText(static_cast<unsigned char>(byte)) + ' ';
    }
    return hex;
}

TEST(TextTest, NarrowTextBecomesWideAsWindowsDoesIt) {
    std::size_t differences = 0;
    std::string text;
    const auto compare = [&](const auto& next, std::size_t depth) -> void {
        if (depth == 0) {
            return;
        }
        for (const unsigned char byte : TellingBytes) {
            text.push_back(static_cast<char>(byte));
            if (WineSwallowsAByte(text)) {
                text.pop_back();
                continue;
            }
            const std::u16string own = sondrel::Utf8ToWide(text);
            const std::u16string theirs = ByWindows(text);
            const bool wellFormed = theirs.find(u'\uFFFD') == std::u16string::npos;
            if ((wellFormed ? own != theirs
                            : WithSingleReplacements(own) != WithSingleReplacements(theirs)) &&
                ++differences < 10) {
                ADD_FAILURE() << Hex(text);
            }
            next(next, depth - 1);
            text.pop_back();
        }
    };
    compare(compare, 4);
    EXPECT_EQ(differences, 0u);
}

TEST(TextTest, WideTextBecomesNarrowAsWindowsDoesIt) {
    constexpr std::array<char16_t, 13> Telling{0x0000, 0x0001, 0x007F, 0x0080, 0x07FF, 0x0800, 0xD7FF,
                                               0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xE000, 0xFFFF};
    for (const char16_t first : Telling) {
        for (const char16_t second : Telling) {
            for (const char16_t third : Telling) {
                const std::u16string text{first, second, third};
                ASSERT_EQ(sondrel::WideToUtf8(text), ByWindows(text))
                    << std::hex << +first << ' ' << +second << ' ' << +third;
            }
        }
    }
}

TEST(TextTest, NumbersAreReadAsTheRuntimeReadsThem) {
    std::mt19937 random(1); // the same texts in every run
    constexpr std::u16string_view Characters = u"0123456789012345678901234567890  \t\v\n+-+-xA.,";
    std::uniform_int_distribution<std::size_t> which(0, Characters.size() - 1);
    std::uniform_int_distribution<std::size_t> length(0, 14);
    for (int round = 0; round < 200'000; ++round) {
        std::u16string text(length(random), u'\0');
        for (char16_t& character : text) {
            character = Characters[which(random)];
        }
        ASSERT_EQ(sondrel::WideToInt32(text), ::_wtoi(reinterpret_cast<const wchar_t*>(text.c_str())))
            << sondrel::WideToUtf8(text);
    }
}

TEST(TextTest, BytesBecomeCharactersAsInTheRuntimesLocale) {
    std::string text;
    for (int byte = 1; byte < 256; ++byte) {
        text.push_back(static_cast<char>(byte));
    }
    std::array<wchar_t, 256> wide{};
    std::size_t converted = 0;
    ASSERT_EQ(::mbstowcs_s(&converted, wide.data(), wide.size(), text.c_str(), wide.size() - 1), 0);
    EXPECT_EQ(std::wstring(wide.data()),
              std::wstring(reinterpret_cast<const wchar_t*>(sondrel::AnsiToWideBuffer(text).c_str())));
}

} // namespace
