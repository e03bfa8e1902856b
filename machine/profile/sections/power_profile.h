// The power side of a profile, as the operating system reports it: batteries, line power, processor load.
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

/// The counters of the operating system at one moment, in units of 100 ns.
struct SystemTimesSample {
    std::uint64_t idle = 0;
    std::uint64_t kernel = 0;
    std::uint64_t user = 0;
};

struct SystemPowerProfile {
    std::uint32_t processors = 1;
    double load = 0;           // the busy share of all processors
    double kernelShare = 0.25; // of the busy time
    /// Instead of a load: the answers to one query after the other; the last one stays.
    std::vector<SystemTimesSample> samples;
    std::uint8_t acLine = 255; // as the platform reports it: 0 battery, 1 AC, 255 unknown
};

void ReadBattery(ProfileReader& reader, BatteryProfile& battery);
void ReadSystemPower(ProfileReader& reader, SystemPowerProfile& power);

} // namespace machine
