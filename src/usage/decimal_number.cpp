#include "usage/decimal_number.h"

#include "frame/text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <compare>
#include <cstdint>
#include <cstdlib>
#include <limits>

// The standard library's conversions of floating-point numbers give the same strings and numbers; their tables are a
// quarter of the DLL.
namespace sondrel {
namespace {

constexpr bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

/// A natural number of the size that a double and the decimal digits that decide its rounding need.
class BigNumber {
public:
    void MultiplyAndAdd(std::uint32_t factor, std::uint32_t summand) {
        std::uint64_t carry = summand;
        for (std::size_t index = 0; index < m_size; ++index) {
            carry += std::uint64_t{m_limbs[index]} * factor;
            m_limbs[index] = static_cast<std::uint32_t>(carry);
            carry >>= LimbBits;
        }
        if (carry != 0) {
            m_limbs[m_size++] = static_cast<std::uint32_t>(carry);
        }
    }

    void MultiplyByPowerOf10(std::int64_t exponent) {
        for (; exponent > 0; --exponent) {
            MultiplyAndAdd(10, 0);
        }
    }

    void ShiftLeft(std::size_t bits) {
        if (const std::size_t limbs = bits / LimbBits; limbs != 0) {
            const auto top = m_limbs.begin() + static_cast<std::ptrdiff_t>(m_size);
            std::copy_backward(m_limbs.begin(), top, top + static_cast<std::ptrdiff_t>(limbs));
            std::fill_n(m_limbs.begin(), limbs, 0);
            m_size += limbs;
        }
        MultiplyAndAdd(std::uint32_t{1} << bits % LimbBits, 0);
    }

    /// At most as large as this number.
    void Subtract(const BigNumber& other) {
        std::uint64_t borrow = 0;
        for (std::size_t index = 0; index < m_size; ++index) {
            const std::uint64_t difference = std::uint64_t{m_limbs[index]} - other.m_limbs[index] - borrow;
            m_limbs[index] = static_cast<std::uint32_t>(difference);
            borrow = difference >> 63;
        }
        while (m_size > 0 && m_limbs[m_size - 1] == 0) {
            --m_size;
        }
    }

    [[nodiscard]] bool IsZero() const { return m_size == 0; }

    [[nodiscard]] std::int64_t BitLength() const {
        return m_size == 0
                   ? 0
                   : static_cast<std::int64_t>(m_size * LimbBits) - std::countl_zero(m_limbs[m_size - 1]);
    }

    std::strong_ordering operator<=>(const BigNumber& other) const {
        // Limbs above the size are 0.
        const std::size_t size = std::max(m_size, other.m_size);
        for (std::size_t index = size; index-- > 0;) {
            if (const auto order = m_limbs[index] <=> other.m_limbs[index]; std::is_neq(order)) {
                return order;
            }
        }
        return std::strong_ordering::equal;
    }

    bool operator==(const BigNumber& other) const { return std::is_eq(*this <=> other); }

private:
    static constexpr std::size_t LimbBits = 32;

    // 10 to the power of 330 + 770, shifted by 53 bits, has 3708.
    static constexpr std::size_t MaxLimbs = 120;

    std::array<std::uint32_t, MaxLimbs> m_limbs{};
    std::size_t m_size = 0;
};

/// What a string says before it is rounded: `digits` times 10 to the power of `exponent`.
struct Decimal {
    BigNumber digits;
    std::size_t digitCount = 0; // from the first digit that is not 0
    std::int64_t exponent = 0;
};

constexpr std::size_t DecidingDigits = 770; // more of them only matter by being there

/// Whether there was a digit at all.
bool TakeDigits(std::u16string_view& text, Decimal& decimal, bool afterPoint) {
    const std::size_t before = text.size();
    for (; !text.empty() && IsDigit(text.front()); text.remove_prefix(1)) {
        const auto digit = static_cast<std::uint32_t>(text.front() - u'0');
        decimal.exponent -= afterPoint ? 1 : 0;
        if (decimal.digitCount < DecidingDigits) {
            decimal.digits.MultiplyAndAdd(10, digit);
            decimal.digitCount += decimal.digits.IsZero() ? 0 : 1;
            continue;
        }
        decimal.exponent += 1;
        if (digit != 0 && decimal.digitCount == DecidingDigits) {
            decimal.digits.MultiplyAndAdd(10, 1);
            decimal.exponent -= 1;
            decimal.digitCount += 1;
        }
    }
    return text.size() != before;
}

/// An exponent without digits is none.
std::int64_t ExponentOf(std::u16string_view text) {
    if (!text.starts_with(u'e') && !text.starts_with(u'E')) {
        return 0;
    }
    text.remove_prefix(1);
    const bool negative = text.starts_with(u'-');
    if (negative || text.starts_with(u'+')) {
        text.remove_prefix(1);
    }
    constexpr std::int64_t Limit = std::numeric_limits<std::int32_t>::max();
    std::int64_t magnitude = 0;
    for (; !text.empty() && IsDigit(text.front()); text.remove_prefix(1)) {
        magnitude = std::min(magnitude * 10 + (text.front() - u'0'), Limit);
    }
    return negative ? -magnitude : magnitude;
}

/// The nearest double; of two equally near ones the even one.
double Rounded(const Decimal& decimal) {
    constexpr int Precision = std::numeric_limits<double>::digits;
    constexpr std::int64_t SmallestExponent = -1074;
    // Of the first digit that is not 0.
    const auto magnitude = static_cast<std::int64_t>(decimal.digitCount) + decimal.exponent;
    if (decimal.digits.IsZero() || magnitude < -330) {
        return 0.0;
    }
    if (magnitude > 310) {
        return std::numeric_limits<double>::infinity();
    }
    BigNumber numerator = decimal.digits;
    BigNumber denominator;
    denominator.MultiplyAndAdd(0, 1);
    numerator.MultiplyByPowerOf10(decimal.exponent);
    denominator.MultiplyByPowerOf10(-decimal.exponent);
    // The quotient has 53 or 54 bits, fewer if the number is too small for that.
    std::int64_t exponent =
        std::max(numerator.BitLength() - denominator.BitLength() - Precision, SmallestExponent);
    (exponent < 0 ? numerator : denominator).ShiftLeft(static_cast<std::size_t>(std::abs(exponent)));
    denominator.ShiftLeft(Precision);
    std::uint64_t quotient = 0;
    for (int bit = 0; bit <= Precision; ++bit) {
        quotient <<= 1;
        if (numerator >= denominator) {
            numerator.Subtract(denominator);
            quotient |= 1;
        }
        numerator.ShiftLeft(1);
    }
    bool above = numerator > denominator; // than half of the last bit
    bool half = numerator == denominator;
    if (quotient >> Precision != 0) {
        half = (quotient & 1) != 0 && numerator.IsZero();
        above = (quotient & 1) != 0 && !half;
        quotient >>= 1;
        ++exponent;
    }
    quotient += above || (half && (quotient & 1) != 0) ? 1 : 0;
    return std::ldexp(static_cast<double>(quotient), static_cast<int>(exponent));
}

} // namespace

double WideToDouble(std::u16string_view text) {
    text.remove_prefix(static_cast<std::size_t>(
        std::ranges::find_if_not(text, [](char16_t unit) { return IsSpace(unit); }) - text.begin()));
    const bool negative = text.starts_with(u'-');
    if (negative || text.starts_with(u'+')) {
        text.remove_prefix(1);
    }
    Decimal decimal;
    bool hasDigits = TakeDigits(text, decimal, false);
    if (text.starts_with(u'.')) {
        text.remove_prefix(1);
        hasDigits = TakeDigits(text, decimal, true) || hasDigits;
    }
    if (!hasDigits) {
        return 0.0;
    }
    decimal.exponent += ExponentOf(text);
    const double value = Rounded(decimal);
    return negative ? -value : value;
}

} // namespace sondrel
