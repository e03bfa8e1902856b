// How numbers of each unit are shown and drawn.
#pragma once

#include "exports/answer.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tool {

enum class Drawing : std::uint8_t {
    Curve, // over time
    Bars   // side by side, with the range of the samples
};

struct UnitStyle {
    std::string_view unit;
    /// From the library's number to the displayed one, and its unit.
    double factor = 1;
    std::string_view displayedUnit;
    int digits = 0;
    /// The smallest range of a drawing, so that noise in the last digit does not fill it.
    double leastSpan = 0;
    /// The natural range of the unit, which is drawn whole; none if both are 0.
    double lowest = 0;
    double highest = 0;
    Drawing drawing = Drawing::Curve;
};

const UnitStyle& UnitStyleOf(const Export& row);

/// "2913" or "10.0": as displayed, without the unit.
std::string NumberText(const UnitStyle& style, double number);

struct Range {
    double low = 0;
    double high = 0;
};

/// The range of a drawing of these numbers.
Range RangeFor(const UnitStyle& style, std::span<const double> numbers);

} // namespace tool
