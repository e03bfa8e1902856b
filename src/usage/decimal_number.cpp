#include "usage/decimal_number.h"

#include "frame/text.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>

namespace sondrel {
namespace {

constexpr bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

constexpr bool BelongsToNumber(char16_t unit) {
    return IsDigit(unit) || unit == u'.' || unit == u'e' || unit == u'E' || unit == u'+' || unit == u'-';
}

/// Infinity or 0 for a number outside the range of double. Its magnitude is its exponent and the position of its
/// first digit other than 0, counted from the point.
double OutOfRange(std::string_view number) {
    const std::size_t mantissaEnd = std::min(number.find_first_of("eE"), number.size());
    const std::string_view mantissa = number.substr(0, mantissaEnd);
    const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
    const auto first = static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
    std::int64_t exponent = 0;
    if (mantissaEnd < number.size()) {
        std::string_view digits = number.substr(mantissaEnd + 1);
        digits.remove_prefix(digits.starts_with('+') ? 1 : 0);
        const auto [last, problem] = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
        if (problem == std::errc::result_out_of_range) {
            exponent = digits.starts_with('-') ? std::numeric_limits<std::int32_t>::min()
                                               : std::numeric_limits<std::int32_t>::max();
        }
    }
    return point - first + exponent > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

} // namespace

double WideToDouble(std::u16string_view text) {
    text.remove_prefix(static_cast<std::size_t>(
        std::ranges::find_if_not(text, [](char16_t unit) { return IsSpace(unit); }) - text.begin()));
    const bool negative = text.starts_with(u'-');
    if (negative || text.starts_with(u'+')) {
        text.remove_prefix(1);
    }
    const auto end = std::ranges::find_if_not(text, BelongsToNumber);
    const std::string number(text.begin(), end);
    if (number.empty() || number.front() == '-' || number.front() == '+') {
        return 0.0;
    }
    double value = 0.0;
    const auto [last, problem] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (problem == std::errc::result_out_of_range) {
        value = OutOfRange(number.substr(0, static_cast<std::size_t>(last - number.data())));
    }
    return negative ? -value : value;
}

} // namespace sondrel
