// How busy a profile's processors are, and what the machine runs on.
#pragma once

#include <cstdint>
#include <vector>

namespace machine {

class ProfileReader;

/// The counters of the operating system at one moment, in units of 100 ns.
struct SystemTimesSample {
    std::uint64_t idle = 0;
    std::uint64_t kernel = 0;
    std::uint64_t user = 0;
};

struct SystemPowerProfile {
    std::uint32_t processors = 1;
    double load = 0;        // the busy share of all processors
    double kernelShare = 0; // of the busy time
    /// In place of a load: what one question after the other is answered with; the last one stays.
    std::vector<SystemTimesSample> samples;
    std::uint8_t acLine = 0; // as the platform says it: 0 battery, 1 AC, 255 unknown
};

SystemPowerProfile ReadSystemPower(ProfileReader reader);

} // namespace machine
