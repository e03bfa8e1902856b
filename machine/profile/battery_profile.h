// The battery devices of a profile, as the operating system knows them.
#pragma once

#include <cstdint>
#include <vector>

namespace machine {

class ProfileReader;

struct BatteryProfile {
    std::uint32_t tag = 1;     // 0: the bay is empty
    bool systemBattery = true; // no: something like a UPS
    std::uint32_t designedCapacity = 0;
    std::uint32_t fullChargedCapacity = 0;
    std::uint32_t cycleCount = 0;
    std::uint32_t capacity = 0;
    std::uint32_t voltage = 0;
};

/// The list "batteries".
std::vector<BatteryProfile> ReadBatteries(ProfileReader& reader);

} // namespace machine
