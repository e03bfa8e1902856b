// The library's own conversions of floating-point numbers, against the standard library's.
#include "usage/decimal_number.h"
#include "usage/open_window_record.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <string_view>

namespace {

using Floats = std::numeric_limits<float>;
using Doubles = std::numeric_limits<double>;

std::string Fixed(float number) {
    std::array<char, 64> text{};
    return {text.data(),
            std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, 1).ptr};
}

/// Both signs. False after a difference, which is reported.
bool IsShownAlike(float number) {
    for (const float each : {number, -number}) {
        const std::u16string wide = sondrel::CpuUsageText(each);
        const std::string own(wide.begin(), wide.end());
        if (own != Fixed(each)) {
            ADD_FAILURE() << own << " instead of " << Fixed(each);
            return false;
        }
    }
    return true;
}

TEST(CpuUsageText, IsTheStandardLibrarysFixedNotation) {
    for (int tenths = 0; tenths <= 100'000; ++tenths) {
        ASSERT_TRUE(IsShownAlike(static_cast<float>(tenths) / 10.0F));
    }
    // The numbers halfway between two tenths are the odd quarters.
    for (std::uint32_t quarters = 1; quarters < 1u << 24; quarters += 2) {
        ASSERT_TRUE(IsShownAlike(static_cast<float>(quarters) / 4.0F));
    }
    for (const float edge : {Floats::infinity(), Floats::quiet_NaN(), Floats::max(), Floats::min(),
                             Floats::denorm_min(), 0.05F, std::nextafter(0.05F, 0.0F), 8388608.0F}) {
        ASSERT_TRUE(IsShownAlike(edge));
    }
    std::mt19937 random(1);
    for (int count = 0; count < 1'000'000; ++count) {
        ASSERT_TRUE(IsShownAlike(std::bit_cast<float>(static_cast<std::uint32_t>(random()))));
    }
}

/// What std::from_chars makes of the whole string, and 0 or infinity where it says that the number is out of range.
double Read(const std::string& text, double outOfRange) {
    double number = 0.0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    EXPECT_EQ(end, text.data() + text.size()) << text;
    return problem == std::errc() ? number : outOfRange;
}

bool IsReadAlike(const std::string& text, double outOfRange = 0.0) {
    const double own = sondrel::WideToDouble(std::u16string(text.begin(), text.end()));
    if (std::bit_cast<std::uint64_t>(own) != std::bit_cast<std::uint64_t>(Read(text, outOfRange))) {
        ADD_FAILURE() << text << " is read as " << own << " instead of " << Read(text, outOfRange);
        return false;
    }
    return true;
}

template <class Number, class... Format>
std::string Written(Number number, Format... format) {
    std::array<char, 1200> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), number, format...).ptr};
}

/// All digits of the number halfway to the next one.
std::string Middle(double number) {
    static_assert(std::numeric_limits<long double>::digits > Doubles::digits, "the sum is exact");
    const double next = std::nextafter(number, Doubles::infinity());
    const long double middle = (static_cast<long double>(number) + static_cast<long double>(next)) / 2;
    return Written(middle, std::chars_format::scientific, 800);
}

TEST(WideToDouble, IsTheStandardLibrarysNumber) {
    for (int tenths = 0; tenths <= 100'000; ++tenths) {
        const std::string text = std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10);
        ASSERT_TRUE(IsReadAlike(text) && IsReadAlike('-' + text));
    }
    std::mt19937_64 random(2);
    for (int count = 0; count < 1'000'000; ++count) {
        const auto number = std::bit_cast<double>(random());
        if (!std::isfinite(number)) {
            continue;
        }
        ASSERT_TRUE(IsReadAlike(Written(number)));
        if (count % 8 != 0) {
            continue;
        }
        // Cut and rounded at any place, so that ties and numbers close to one come up.
        const int places = static_cast<int>(random() % 25);
        ASSERT_TRUE(IsReadAlike(Written(number, std::chars_format::scientific, places),
                                number < 0 ? -Doubles::infinity() : Doubles::infinity()));
    }
    for (const double edge : {Doubles::max(), Doubles::lowest(), Doubles::min(), Doubles::denorm_min(),
                              std::nextafter(Doubles::min(), 0.0), 9007199254740993.0}) {
        ASSERT_TRUE(IsReadAlike(Written(edge)) && IsReadAlike(Written(edge, std::chars_format::fixed)));
    }
}

TEST(WideToDouble, RoundsATieToEvenAndSeesDigitsFarAfterIt) {
    std::mt19937_64 random(3);
    for (int count = 0; count < 5'000; ++count) {
        const auto number = std::abs(std::bit_cast<double>(random()));
        if (!(number < Doubles::max())) {
            continue;
        }
        const std::string tie = Middle(number);
        const std::size_t exponentAt = tie.find('e');
        ASSERT_TRUE(IsReadAlike(tie));
        ASSERT_TRUE(IsReadAlike(std::string(tie).insert(exponentAt, "0000000001")));
    }
    const double infinity = Doubles::infinity();
    EXPECT_TRUE(IsReadAlike("1.7976931348623158e308")) << "closer to the largest number";
    EXPECT_TRUE(IsReadAlike("1.7976931348623159e308", infinity));
    EXPECT_TRUE(IsReadAlike("2.4703282292062328e-324"));
    EXPECT_TRUE(IsReadAlike("2.4703282292062327e-324"));
    EXPECT_TRUE(IsReadAlike("-1e400", -infinity));
    EXPECT_TRUE(IsReadAlike("0e400"));
    EXPECT_TRUE(IsReadAlike('0' + std::string(999, '0') + "1e5"));
    EXPECT_TRUE(IsReadAlike("0." + std::string(999, '0') + "1e1000"));
    EXPECT_TRUE(IsReadAlike('1' + std::string(999, '0') + "e-1000"));
}

} // namespace
