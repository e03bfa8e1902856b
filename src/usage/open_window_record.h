// One row of the window and usage lists, and the format of its numbers.
#pragma once

#include <cstdint>
#include <string>

namespace sondrel {

/// The numbers of a process that cannot be opened have these initial values.
struct OpenWindowRecord {
    std::u16string processName;  // base name of the executable, or the counter's instance name
    std::u16string processTitle; // always empty
    float cpuUsage = 0.0F;       // per cent; -1.0 if the system's times did not change
    std::int32_t memUsage = 0;   // working set in kilobytes
    std::u16string zOrder;       // position in the walk, in decimal from 1
    std::u16string isFocused;    // "1" or "0"
};

/// Fixed notation with one digit after the point, in every locale: "0.0", "3.7", "-1.0". A tie is rounded to
/// even.
std::u16string CpuUsageText(float cpuUsage);

} // namespace sondrel
