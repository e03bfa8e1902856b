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

TEST(Utf8ToWide, CutsAtTheFirstZeroAndReplacesWhatIsIllFormed) {
    EXPECT_EQ(Utf8ToWide("plain"), u"plain");
    EXPECT_EQ(Utf8ToWide(std::string("ab\0cd", 5)), u"ab");
    EXPECT_EQ(Utf8ToWide("\xC3\xA9\xE2\x82\xAC\xF0\x9F\x94\x8B"), u"\u00E9\u20AC\U0001F50B");
    EXPECT_EQ(Utf8ToWide("a\x80z"), u"a\xFFFDz");                 // a tail without a lead
    EXPECT_EQ(Utf8ToWide("\xE2\x82"), u"\xFFFD");                 // cut short
    EXPECT_EQ(Utf8ToWide("\xE2\x82z"), u"\xFFFDz");               // one for the run, and on
    EXPECT_EQ(Utf8ToWide("\xC0\xAF"), u"\xFFFD\xFFFD");           // overlong
    EXPECT_EQ(Utf8ToWide("\xED\xA0\x80"), u"\xFFFD\xFFFD\xFFFD"); // a surrogate
    EXPECT_EQ(Utf8ToWide("\xF4\x90\x80\x80").size(), 4u);         // beyond the last character
    EXPECT_EQ(Utf8ToWide("\xFF"), u"\xFFFD");
}

TEST(WideToUtf8, PairsSurrogatesAndReplacesLoneOnes) {
    EXPECT_EQ(WideToUtf8(u"\u00E9\u20AC\U0001F50B"), "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x94\x8B");
    EXPECT_EQ(WideToUtf8(u"a\xD83Dz"), "a\xEF\xBF\xBDz");
    EXPECT_EQ(WideToUtf8(u"\xDD0B"), "\xEF\xBF\xBD");
    EXPECT_EQ(WideToUtf8(std::u16string(u"a\0b", 3)), std::string("a\0b", 3));
}

TEST(WideToUtf8, BoundedCutsBehindTheLastWholeCharacter) {
    EXPECT_EQ(WideToUtf8Bounded(std::u16string(1023, u'x')), std::string(1023, 'x'));
    EXPECT_EQ(WideToUtf8Bounded(std::u16string(2000, u'x')), std::string(1023, 'x'));
    EXPECT_EQ(WideToUtf8Bounded(std::u16string(1022, u'x') + u"\u00E9z"), std::string(1022, 'x'));
    EXPECT_EQ(WideToUtf8Bounded(std::u16string(1021, u'x') + u"\u00E9"), std::string(1021, 'x') + "\xC3\xA9");
    EXPECT_EQ(WideToUtf8Bounded(std::u16string(1020, u'x') + u"\U0001F50B"), std::string(1020, 'x'));
}

TEST(AnsiToWideBuffer, WidensByteForByteUpToTheFirstZero) {
    EXPECT_EQ(AnsiToWideBuffer("Error code = 0x80041010"), u"Error code = 0x80041010");
    EXPECT_EQ(AnsiToWideBuffer("\xE9"), u"\u00E9");
    EXPECT_EQ(AnsiToWideBuffer(std::string("ab\0cd", 5)), u"ab");
}

TEST(WideToInt32, ReadsAsFarAsDigitsGoAndSaturates) {
    EXPECT_EQ(WideToInt32(u" \t\r\n+42abc"), 42);
    EXPECT_EQ(WideToInt32(u"-17"), -17);
    EXPECT_EQ(WideToInt32(u"2147483647"), 2147483647);
    EXPECT_EQ(WideToInt32(u"2147483648"), 2147483647);
    EXPECT_EQ(WideToInt32(u"-2147483648"), -2147483647 - 1);
    EXPECT_EQ(WideToInt32(u"-99999999999999999999999"), -2147483647 - 1);
    EXPECT_EQ(WideToInt32(u"99999999999999999999999"), 2147483647);
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
