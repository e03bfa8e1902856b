// A simulated machine's profile, described in words.
#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace tool {

/// For a profile without errors.
std::string MachineInWords(const nlohmann::json& profile);

} // namespace tool
