// Readings that move: which they are, and how each kind of unit is drawn.
#pragma once

#include "exports/classify.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tool {

enum class Drawing : std::uint8_t {
    Curve, // over time
    Bars   // side by side, with the range that each went through
};

/// How numbers of one unit are shown and drawn.
struct UnitKind {
    std::string_view unit;
    /// From what the library gives to what is shown, and the unit of that.
    double factor = 1;
    std::string_view shown;
    int digits = 0;
    /// What a drawing shows at least, so that a wavering of the last digit does not look like a storm.
    double leastSpan = 0;
    /// The unit has a natural range, which is drawn whole.
    double lowest = 0;
    double highest = 0;
    Drawing drawing = Drawing::Curve;
};

/// The row for the export's unit, or the last one for a unit of its own.
const UnitKind& KindOf(const Export& row);

/// How many values the export gives at once, side by side.
std::size_t PlacesIn(const Export& row);

/// "2913" or "10.0": as it is shown, without its unit.
std::string NumberText(const UnitKind& kind, double number);

struct Range {
    double low = 0;
    double high = 0;
};

/// The range that a drawing of these numbers shows.
Range RangeFor(const UnitKind& kind, std::span<const double> numbers);

} // namespace tool
