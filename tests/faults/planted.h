// A reading with planted faults, each of which the sweep has to find.
#pragma once

#include <span>
#include <string_view>

namespace sweep {

struct Planted {
    std::string_view fault;
    /// What the sweep says of it; empty for the sound one.
    std::string_view complaint;
    void (*read)(char16_t* out);
    /// Nothing is wrong until a boundary call fails.
    bool needsFailedCall = false;
};

/// Copies of GetInfVersion for the default machine. The first one is sound.
std::span<const Planted> PlantedReadings();

} // namespace sweep
