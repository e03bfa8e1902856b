// A machine's network adapters, as the IP helper lists them.
#pragma once

#include <cstdint>
#include <vector>

namespace machine {

class ProfileReader;

struct AdapterProfile {
    std::uint32_t index = 0;
    std::uint32_t type = 0;
};

struct NetworkProfile {
    std::vector<AdapterProfile> adapters;
    std::vector<AdapterProfile> arriving; // one of them is plugged in after each look at the list
};

NetworkProfile ReadNetwork(ProfileReader reader);

} // namespace machine
