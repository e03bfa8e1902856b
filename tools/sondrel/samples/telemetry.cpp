#include "samples/telemetry.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace tool {
namespace {

/// The last one is for every other unit.
constexpr UnitStyle Styles[] = {
    {.unit = "°C", .displayedUnit = "°C", .leastSpan = 10},
    {.unit = "rpm", .displayedUnit = "rpm", .leastSpan = 500},
    {.unit = "%", .displayedUnit = "%", .highest = 100},
    {.unit = "fraction", .factor = 100, .displayedUnit = "%", .digits = 1, .highest = 100},
    {.unit = "mV", .displayedUnit = "mV", .leastSpan = 100},
    {.unit = "mWh", .displayedUnit = "mWh", .leastSpan = 1000},
    {.unit = "dBm", .displayedUnit = "dBm", .lowest = -100, .highest = 0},
    {.unit = "raw", .displayedUnit = "raw", .leastSpan = 10},
    {.unit = "", .displayedUnit = "", .leastSpan = 1},
};

/// The cells of a battery are compared with each other.
constexpr UnitStyle CellStyle{
    .unit = "raw", .displayedUnit = "raw", .leastSpan = 50, .drawing = Drawing::Bars};

} // namespace

const UnitStyle& UnitStyleOf(const Export& row) {
    if (row.element.name == "cell") {
        return CellStyle;
    }
    const auto* const found = std::ranges::find(Styles, row.unit, &UnitStyle::unit);
    return found != std::end(Styles) ? *found : *std::prev(std::end(Styles));
}

std::string NumberText(const UnitStyle& style, double number) {
    char text[400]; // the largest double has 309 digits
    const double displayed = number * style.factor;
    const bool whole = style.digits == 0 && displayed == std::round(displayed);
    std::snprintf(text, sizeof text, "%.*f", whole ? 0 : std::max(style.digits, 1), displayed);
    return text;
}

Range RangeFor(const UnitStyle& style, std::span<const double> numbers) {
    if (numbers.empty()) {
        return {style.lowest / style.factor, style.highest / style.factor};
    }
    const auto [low, high] = std::ranges::minmax(numbers);
    Range range{low, high};
    if (style.lowest < style.highest) {
        range = {std::min(low, style.lowest / style.factor), std::max(high, style.highest / style.factor)};
    }
    const double missing = style.leastSpan / style.factor - (range.high - range.low);
    if (missing > 0) {
        const bool fromZero = low >= 0 && low < missing / 2;
        range = {fromZero ? 0 : low - missing / 2,
                 fromZero ? low + missing + (high - low) : high + missing / 2};
    }
    if (style.digits == 0) {
        range = {std::floor(range.low * style.factor) / style.factor,
                 std::ceil(range.high * style.factor) / style.factor};
    }
    return range;
}

} // namespace tool
