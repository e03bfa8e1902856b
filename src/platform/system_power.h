// Processor times and the power supply.
#pragma once

#include <cstdint>

namespace platform {

/// Times since system start, summed over all processors, in units of 100 ns. Kernel time includes idle time.
struct SystemTimes {
    std::uint64_t idle = 0;
    std::uint64_t kernel = 0;
    std::uint64_t user = 0;
};

/// GetSystemTimes, the FILETIMEs as 64-bit numbers.
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
