// The processor time of the simulated machine.
#pragma once

#include <cstdint>

namespace machine {

/// Over all processors, in units of 100 ns, as they stand at the machine's present time.
struct SystemTimes {
    std::uint64_t idle;
    std::uint64_t kernel; // holds the idle time
    std::uint64_t user;
};

SystemTimes SystemTimesNow();

} // namespace machine
