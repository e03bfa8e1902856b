// One row of the window and usage lists, and how its numbers read.
#pragma once

#include <cstdint>
#include <string>

namespace sondrel {

/// A record whose process cannot be opened keeps the numbers as they stand here.
struct OpenWindowRecord {
    std::u16string processName;  // base name of the executable, or the counter's instance name
    std::u16string processTitle; // always empty
    float cpuUsage = 0.0F;       // per cent; -1.0 where the system's times did not move
    std::int32_t memUsage = 0;   // working set in kilobytes
    std::u16string zOrder;       // decimal position in the walk, from 1
    std::u16string isFocused;    // "1" or "0"
};

/// Fixed notation with one digit behind the point, whatever the locale: "0.0", "3.7", "-1.0". A value that
/// lies exactly between two texts takes the even one.
std::u16string CpuUsageText(float cpuUsage);

} // namespace sondrel
