// The mistakes in a simulated machine's profile, found with its published schema
// (docs/machine-profile.schema.json).
#pragma once

#include "machines/json_places.h"

#include <string>
#include <string_view>
#include <vector>

namespace tool {

struct Mistake {
    TextPlace place;
    /// "/ec/chip_id: expected a whole number from 0 to 255, or the same as "0x...""
    std::string text;
};

/// All mistakes in the order of their places; none for a profile that a machine can be made from.
std::vector<Mistake> MistakesOf(std::string_view text);

} // namespace tool
