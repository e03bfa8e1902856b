// The event log of the simulated machine.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace machine {

/// One record.
struct LoggedEvent {
    std::uint16_t type = 0;
    std::u16string source;
    std::vector<std::u16string> strings;
};

} // namespace machine
