// The two thermistor curves, from a sensor's count to degrees Celsius.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <iterator>
#include <span>

namespace sondrel {

/// The count at each degree from `firstDegrees` on. It never rises with the temperature.
struct ThermistorCurve {
    std::uint32_t firstDegrees;
    std::span<const std::uint8_t> counts;
};

inline constexpr std::uint8_t ThermistorCounts1[] = {
    /*  51 */ 255, 255, 255, 250, 246, 242, 238, 234, 229, 225,
    /*  61 */ 221, 216, 212, 207, 203, 198, 194, 190, 185, 181,
    /*  71 */ 176, 172, 167, 163, 159, 154, 150, 146, 141, 137,
    /*  81 */ 133, 129, 124, 120, 116, 112, 108, 104, 100, 96,
    /*  91 */ 93,  89,  85,  81,  78,  74,  71,  67,  63,  60,
    /* 101 */ 57,  54,  50,  47,  44,  41,  38,  35,  32,  26,
};

inline constexpr std::uint8_t ThermistorCounts2[] = {
    /* 35 */ 255, 253, 249, 244, 240, 235, 231, 226, 222, 217,
    /* 45 */ 212, 207, 203, 198, 193, 188, 184, 179, 174, 170,
    /* 55 */ 165, 160, 155, 151, 146, 142, 137, 132, 128, 124,
    /* 65 */ 119, 115, 110, 106, 102, 98,  94,  90,  86,  82,
    /* 75 */ 78,  74,  70,  66,  63,  59,  56,  52,  49,  45,
    /* 85 */ 42,  39,  36,  33,  30,  27,  24,  21,  18,  15,
    /* 95 */ 13,  10,  7,   5,   3,   0,
};

/// 51 to 110 degrees.
inline constexpr ThermistorCurve ThermistorCurve1{51, ThermistorCounts1};
/// 35 to 100 degrees.
inline constexpr ThermistorCurve ThermistorCurve2{35, ThermistorCounts2};

static_assert(std::size(ThermistorCounts1) == 60 && std::size(ThermistorCounts2) == 66);
static_assert(std::ranges::is_sorted(ThermistorCounts1, std::greater<>{}));
static_assert(std::ranges::is_sorted(ThermistorCounts2, std::greater<>{}));

/// The temperature of the last entry before the first one with a count below `raw`, limited to the ends of the
/// curve. Of entries with the same count the hottest one wins.
constexpr std::uint32_t DegreesOf(const ThermistorCurve& curve, std::uint32_t raw) {
    std::uint32_t entry = 0;
    while (entry + 1 < curve.counts.size() && curve.counts[entry + 1] >= raw) {
        ++entry;
    }
    return curve.firstDegrees + entry;
}

} // namespace sondrel
