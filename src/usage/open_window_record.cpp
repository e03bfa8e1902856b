#include "usage/open_window_record.h"

#include "frame/text.h"

#include <algorithm>
#include <array>
#include <bit>

// The standard library's conversion of floating-point numbers gives the same strings; its tables are a tenth of the DLL.
namespace sondrel {
namespace {

constexpr unsigned FractionBits = 23;
constexpr unsigned SpecialExponent = 0xFF; // infinities and what is no number

/// Fixed notation of `significand` divided by 2 to the power of `shift`. A tie is rounded to even.
std::u16string TenthsText(std::uint32_t significand, unsigned shift) {
    constexpr unsigned LargestShift = 31; // from here on less than half a tenth
    const std::uint64_t scaled = std::uint64_t{significand} * 10;
    std::uint64_t tenths = 0;
    if (shift < LargestShift) {
        tenths = scaled >> shift;
        const std::uint64_t twiceRest = (scaled - (tenths << shift)) << 1;
        const std::uint64_t one = std::uint64_t{1} << shift;
        tenths += twiceRest > one || (twiceRest == one && tenths % 2 != 0) ? 1 : 0;
    }
    return DecimalText(static_cast<std::int64_t>(tenths / 10)) + u'.' +
           static_cast<char16_t>(u'0' + tenths % 10);
}

/// Fixed notation of `significand` times 2 to the power of `doublings`.
std::u16string IntegerText(std::uint32_t significand, unsigned doublings) {
    std::array<char16_t, 39> reversed{}; // the digits of the largest float
    std::size_t count = 0;
    for (; significand != 0; significand /= 10) {
        reversed[count++] = static_cast<char16_t>(significand % 10);
    }
    for (; doublings != 0; --doublings) {
        unsigned carry = 0;
        for (std::size_t index = 0; index < count; ++index) {
            const unsigned doubled = 2u * reversed[index] + carry;
            reversed[index] = static_cast<char16_t>(doubled % 10);
            carry = doubled / 10;
        }
        if (carry != 0) {
            reversed[count++] = static_cast<char16_t>(carry);
        }
    }
    std::u16string text(count, u'0');
    std::transform(reversed.begin(), reversed.begin() + static_cast<std::ptrdiff_t>(count), text.rbegin(),
                   [](char16_t digit) { return static_cast<char16_t>(u'0' + digit); });
    return text + u".0";
}

std::u16string MagnitudeText(std::uint32_t bits) {
    const std::uint32_t fraction = bits & ((1u << FractionBits) - 1);
    const unsigned biased = bits >> FractionBits & SpecialExponent;
    if (biased == SpecialExponent) {
        return fraction == 0 ? u"inf" : u"nan";
    }
    // Numbers with the smallest exponent have no leading bit that is not stored.
    const std::uint32_t significand = biased == 0 ? fraction : fraction | 1u << FractionBits;
    constexpr unsigned Bias = 127 + FractionBits;
    const unsigned exponent = std::max(biased, 1u);
    return exponent >= Bias ? IntegerText(significand, exponent - Bias)
                            : TenthsText(significand, Bias - exponent);
}

} // namespace

std::u16string CpuUsageText(float cpuUsage) {
    const auto bits = std::bit_cast<std::uint32_t>(cpuUsage);
    const std::u16string magnitude = MagnitudeText(bits);
    return bits >> 31 != 0 ? u'-' + magnitude : magnitude;
}

} // namespace sondrel
