// A simulated machine's profile, described in words.
#pragma once

#include <nlohmann/json.hpp>

#include <cstddef>
#include <string>

namespace tool {

/// For a profile without errors. Lines are at most `columns` wide, or as wide as their words need.
std::string MachineInWords(const nlohmann::json& profile, std::size_t columns);

} // namespace tool
