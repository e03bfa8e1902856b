#include "frame/text.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

using namespace sondrel;

namespace {

TEST(NumberText, HasTheDigitsItNeedsAndNoMore) {
    EXPECT_EQ(HexText(0), "0");
    EXPECT_EQ(HexText(0x5), "5");
    EXPECT_EQ(HexText(0x80041002), "80041002");
    EXPECT_EQ(HexByteText(0x5), u"05");
    EXPECT_EQ(HexByteText(0x1A2), u"1a2");
    EXPECT_EQ(HexByteText(0), u"00");
    EXPECT_EQ(HexByteText(0xFFFFFFFF), u"ffffffff");
    EXPECT_EQ(DecimalText(0), u"0");
    EXPECT_EQ(DecimalText(4294967295), u"4294967295");
    EXPECT_EQ(DecimalText(-2147483648), u"-2147483648");
}

// The tests of the DLL compare every kind of string with Windows' own conversions.
TEST(Conversions, ReplaceWhatIsIllFormedAndCutAtTheFirstZeroByte) {
    const std::string narrow = "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x94\x8B";
    EXPECT_EQ(Utf8ToWide(narrow), u"\u00E9\u20AC\U0001F50B");
    EXPECT_EQ(WideToUtf8(u"\u00E9\u20AC\U0001F50B"), narrow);
    EXPECT_EQ(Utf8ToWide("a\x80\xE2\x82z\xC0\xAF\xED\xA0\x80"),
              u"a\xFFFD\xFFFDz\xFFFD\xFFFD\xFFFD\xFFFD\xFFFD");
    EXPECT_EQ(Utf8ToWide("\xF4\x90\x80\x80").size(), 4u); // beyond the last character
    EXPECT_EQ(WideToUtf8(u"a\xD83Dz\xDD0B"), "a\xEF\xBF\xBDz\xEF\xBF\xBD");
    const std::string zero("ab\0cd", 5);
    EXPECT_EQ(Utf8ToWide(zero), u"ab");
    EXPECT_EQ(AnsiToWideBuffer(zero), u"ab");
    EXPECT_EQ(AnsiToWideBuffer("\xE9"), u"\u00E9");
    EXPECT_EQ(WideToUtf8(std::u16string(u"a\0b", 3)), std::string("a\0b", 3));
}

TEST(WideToUtf8, BoundedCutsAfterTheLastWholeCharacter) {
    EXPECT_EQ(WideToUtf8Bounded(std::u16string(1023, u'x')), std::string(1023, 'x'));
    EXPECT_EQ(WideToUtf8Bounded(std::u16string(2000, u'x')), std::string(1023, 'x'));
    EXPECT_EQ(WideToUtf8Bounded(std::u16string(1022, u'x') + u"\u00E9z"), std::string(1022, 'x'));
    EXPECT_EQ(WideToUtf8Bounded(std::u16string(1021, u'x') + u"\u00E9"), std::string(1021, 'x') + "\xC3\xA9");
    EXPECT_EQ(WideToUtf8Bounded(std::u16string(1020, u'x') + u"\U0001F50B"), std::string(1020, 'x'));
}

TEST(WideToInt32, ReadsAsFarAsDigitsGoAndSaturates) {
    EXPECT_EQ(WideToInt32(u" \t\r\n+42abc"), 42);
    EXPECT_EQ(WideToInt32(u"-17"), -17);
    EXPECT_EQ(WideToInt32(u"2147483648"), 2147483647);
    EXPECT_EQ(WideToInt32(u"-99999999999999999999999"), -2147483647 - 1);
    for (const std::u16string_view none : {u"", u"abc", u"- 5", u"+-5", u"0x10"}) {
        EXPECT_EQ(WideToInt32(none), 0);
    }
}

TEST(EqualIgnoringCase, ComparesLettersOfTheAlphabetOnly) {
    EXPECT_TRUE(EqualIgnoringCase(u"ERROR_READREG", u"error_ReadReg"));
    EXPECT_FALSE(EqualIgnoringCase(u"ERROR_READREG", u"ERROR_READREG "));
    EXPECT_FALSE(EqualIgnoringCase(u"\u00E9", u"\u00C9"));
    EXPECT_FALSE(EqualIgnoringCase(u"[", u"{"));
}

TEST(Format, MeasuresCutsAndRefusesAsItSays) {
    EXPECT_EQ(FormatCounted(nullptr, 0, "%u;%u", 1u, 4294967295u), 12);
    std::array<char, 8> text{};
    text.fill('#');
    EXPECT_EQ(FormatCounted(text.data(), 6, "%u;%u", 12345u, 6u), 7);
    EXPECT_EQ(std::string(text.data(), 7), std::string("12345\0#", 7));
    char fixed[128];
    EXPECT_EQ(FormatInto128(fixed, "%02X:%02X", 10, 255), 5);
    EXPECT_STREQ(fixed, "0A:FF");
    EXPECT_EQ(FormatInto128(fixed, "%s", std::string(127, 'x').c_str()), 127);
    EXPECT_EQ(FormatInto128(fixed, "%s", std::string(128, 'x').c_str()), -1);
    EXPECT_STREQ(fixed, "");
}

} // namespace
