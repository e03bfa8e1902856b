// The library's own conversions, compared with those of Windows and of its C runtime.
#include "frame/text.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <random>
#include <string>
#include <vector>

namespace {

std::u16string ByWindows(const std::string& text) {
    const auto length = static_cast<int>(text.size());
    const int size = ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    std::u16string wide(static_cast<std::size_t>(size), u'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, reinterpret_cast<wchar_t*>(wide.data()), size);
    return wide;
}

std::string ByWindows(const std::u16string& text) {
    const auto* wide = reinterpret_cast<const wchar_t*>(text.data());
    const int length = static_cast<int>(text.size());
    const int size = ::WideCharToMultiByte(CP_UTF8, 0, wide, length, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, wide, length, narrow.data(), size, nullptr, nullptr);
    return narrow;
}

// Both sides of every border in UTF-8: between the kinds of bytes, and in the ranges after E0, ED, F0 and F4.
constexpr std::array<unsigned char, 26> BorderBytes{0x01, 0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF,
                                                    0xC0, 0xC1, 0xC2, 0xDF, 0xE0, 0xE1, 0xEC, 0xED, 0xEE,
                                                    0xEF, 0xF0, 0xF1, 0xF3, 0xF4, 0xF5, 0xF8, 0xFF};

/// A well-formed string has one conversion. For ill-formed bytes Windows documents replacement characters, but not how
/// many, and Wine replaces other bytes than Windows.
TEST(TextTest, ConvertsToUtf16AsWindowsDoes) {
    const auto isWhole = [](const std::u16string& text) {
        return text.find(u'\uFFFD') == std::u16string::npos;
    };
    std::string text;
    const auto compare = [&](const auto& next, std::size_t depth) -> void {
        for (const unsigned char byte : BorderBytes) {
            text.push_back(static_cast<char>(byte));
            const std::u16string own = sondrel::Utf8ToWide(text);
            const std::u16string theirs = ByWindows(text);
            if (isWhole(own) != isWhole(theirs) || (isWhole(own) && own != theirs)) {
                ADD_FAILURE() << ::testing::PrintToString(
                    std::vector<unsigned char>(text.begin(), text.end()));
            }
            if (depth > 1) {
                next(next, depth - 1);
            }
            text.pop_back();
        }
    };
    compare(compare, 4);
}

TEST(TextTest, ConvertsToUtf8AsWindowsDoes) {
    constexpr std::array<char16_t, 13> Border{0x0000, 0x0001, 0x007F, 0x0080, 0x07FF, 0x0800, 0xD7FF,
                                              0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xE000, 0xFFFF};
    for (const char16_t first : Border) {
        for (const char16_t second : Border) {
            for (const char16_t third : Border) {
                const std::u16string text{first, second, third};
                ASSERT_EQ(sondrel::WideToUtf8(text), ByWindows(text))
                    << std::hex << +first << ' ' << +second << ' ' << +third;
            }
        }
    }
}

TEST(TextTest, ParsesNumbersAsTheRuntimeDoes) {
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

TEST(TextTest, ConvertsBytesAsTheLocaleOfTheRuntimeDoes) {
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
