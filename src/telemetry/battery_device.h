// The operating system's battery device: capacities, cycle count and the present voltage.
#pragma once

#include <cstdint>

namespace sondrel {

/// What the first battery device reports, in the units of the device. A field that could not be read is 0.
struct BatteryRecord {
    std::uint32_t designedCapacity = 0;
    std::uint32_t fullChargedCapacity = 0;
    std::uint32_t voltage = 0;
    std::uint32_t capacity = 0;
    std::uint32_t cycleCount = 0;
    float healthRatio = 0; // full-charged divided by designed capacity
};

/// Reads the first battery device; further batteries are ignored. A step that fails ends the reading with the
/// fields set so far. `capacity` and `voltage` stay 0 for a device that is not a system battery.
BatteryRecord ReadBatteryDevice();

/// The charge in per cent, rounded to a multiple of ten, 5 up. 0 if the full-charged capacity is 0. Computed in
/// 32-bit floating point; a quotient above 32 bits becomes 4294967290, the largest multiple of ten that fits.
std::uint32_t RoundedPercentage(std::uint32_t capacity, std::uint32_t fullChargedCapacity);

} // namespace sondrel
