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

/// A source that is registered.
struct OpenEventSource {
    std::u16string name;
};

} // namespace machine
