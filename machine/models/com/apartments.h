// COM apartments of the simulated machine: one kind per thread, entered as often as it is left.
#pragma once

#include <cstdint>

namespace machine {

/// The calling thread's apartment.
struct ThreadApartment {
    std::uint32_t kind = 0;
    unsigned entered = 0;
};

ThreadApartment& CurrentApartment();

} // namespace machine
