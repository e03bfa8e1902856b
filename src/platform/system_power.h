// How busy the processors have been, and what the machine runs on.
#pragma once

#include <cstdint>

namespace platform {

/// Time since the system's start, summed over all processors, in units of 100 ns. Kernel time includes idle
/// time.
struct SystemTimes {
    std::uint64_t idle = 0;
    std::uint64_t kernel = 0;
    std::uint64_t user = 0;
};

/// GetSystemTimes, the three FILETIMEs as whole numbers.
bool GetSystemTimes(SystemTimes& times);

/// SYSTEM_POWER_STATUS without the power saver's flag.
struct SystemPowerStatus {
    std::uint8_t acLineStatus; // 0 battery, 1 AC, 255 unknown
    std::uint8_t batteryFlag;
    std::uint8_t batteryLifePercent;
    std::uint32_t batteryLifeTime;
    std::uint32_t batteryFullLifeTime;
};

bool GetSystemPowerStatus(SystemPowerStatus& status);

} // namespace platform
