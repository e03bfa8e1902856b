// The machine's own processor time.
#pragma once

#include <cstdint>

namespace platform {

/// GetSystemTimes, over all processors, in units of 100 ns. The kernel time holds the idle time. On failure the
/// times stay as they were.
bool GetSystemTimes(std::uint64_t& idle, std::uint64_t& kernel, std::uint64_t& user);

} // namespace platform
