// The errors of a machine profile with their lines and columns.
#pragma once

#include "machines/json_places.h"

#include <string>
#include <string_view>
#include <vector>

namespace tool {

struct ProfileFinding {
    TextPlace place;
    /// "/ec/chip_id: expected a whole number from 0 to 255, or the same as "0x...""
    std::string text;
};

/// All errors in the order of their places; none for a profile that a machine can be made from.
std::vector<ProfileFinding> FindingsIn(std::string_view text);

} // namespace tool
