// The operating system's battery device: capacities, cycle count and the present voltage.
#pragma once

#include <cstdint>

namespace sondrel {

/// What the first battery device tells, in the device's own units. A field that no step has set is 0.
struct BatteryRecord {
    std::uint32_t designedCapacity = 0;
    std::uint32_t fullChargedCapacity = 0;
    std::uint32_t voltage = 0;
    std::uint32_t capacity = 0;
    std::uint32_t cycleCount = 0;
    float healthRatio = 0; // full-charged by designed capacity, a fraction
};

/// Asks the first battery device; others are not looked at. A step that fails ends the reading with the fields
/// set so far. `capacity` and `voltage` stay 0 for a device that is no system battery.
BatteryRecord ReadBatteryDevice();

/// The charge in percent, rounded to a multiple of ten: from 5 up, from below 5 down. 0 where the full-charged
/// capacity is 0. The quotient is taken in 32-bit floating point; one beyond 32 bits gives 4294967290, the
/// largest multiple of ten that fits.
std::uint32_t RoundedPercentage(std::uint32_t capacity, std::uint32_t fullChargedCapacity);

} // namespace sondrel
