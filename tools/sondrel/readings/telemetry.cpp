#include "readings/telemetry.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace tool {
namespace {

constexpr UnitKind Kinds[] = {
    {.unit = "°C", .shown = "°C", .leastSpan = 10},
    {.unit = "rpm", .shown = "rpm", .leastSpan = 500},
    {.unit = "%", .shown = "%", .highest = 100},
    {.unit = "fraction", .factor = 100, .shown = "%", .digits = 1, .highest = 100},
    {.unit = "mV", .shown = "mV", .leastSpan = 100},
    {.unit = "mWh", .shown = "mWh", .leastSpan = 1000},
    {.unit = "dBm", .shown = "dBm", .lowest = -100, .highest = 0},
    {.unit = "raw", .shown = "raw", .leastSpan = 10},
    {.unit = "", .shown = "", .leastSpan = 1},
};

/// The cells of a battery are there to be compared with each other.
constexpr UnitKind Cells{.unit = "raw", .shown = "raw", .leastSpan = 50, .drawing = Drawing::Bars};
} // namespace

const UnitKind& KindOf(const Export& row) {
    if (row.element.name == "cell") {
        return Cells;
    }
    const auto found = std::ranges::find(Kinds, row.unit, &UnitKind::unit);
    return found != std::end(Kinds) ? *found : *std::prev(std::end(Kinds));
}

std::size_t PlacesIn(const Export& row) {
    return std::max<std::size_t>(row.element.count, 1);
}

std::string NumberText(const UnitKind& kind, double number) {
    char text[400]; // the largest double in full has 309 digits
    const double shown = number * kind.factor;
    const bool whole = kind.digits == 0 && shown == std::round(shown);
    std::snprintf(text, sizeof text, "%.*f", whole ? 0 : std::max(kind.digits, 1), shown);
    return text;
}

Range RangeFor(const UnitKind& kind, std::span<const double> numbers) {
    if (numbers.empty()) {
        return {kind.lowest / kind.factor, kind.highest / kind.factor};
    }
    const auto [low, high] = std::ranges::minmax(numbers);
    Range range{low, high};
    if (kind.lowest < kind.highest) {
        range = {std::min(low, kind.lowest / kind.factor), std::max(high, kind.highest / kind.factor)};
    }
    const double missing = kind.leastSpan / kind.factor - (range.high - range.low);
    if (missing > 0) {
        const bool fromZero = low >= 0 && low < missing / 2;
        range = {fromZero ? 0 : low - missing / 2,
                 fromZero ? low + missing + (high - low) : high + missing / 2};
    }
    if (kind.digits == 0) {
        range = {std::floor(range.low * kind.factor) / kind.factor,
                 std::ceil(range.high * kind.factor) / kind.factor};
    }
    return range;
}

} // namespace tool
