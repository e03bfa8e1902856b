// A simulated machine's profile, told in words.
#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace tool {

/// The profile has to be a good one.
std::string MachineInWords(const nlohmann::json& profile);

} // namespace tool
