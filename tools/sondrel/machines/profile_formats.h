// What a profile's schema asks of a text beyond what every validator checks: its "format" keyword.
#pragma once

#include <nlohmann/json.hpp>

#include <set>
#include <string>
#include <vector>

namespace tool {

/// The ways to texts that do not have the format that the schema states.
std::set<std::vector<std::string>> WrongFormats(const nlohmann::json& profile, const nlohmann::json& schema);

/// The pointers of fields that do not fit into their firmware variable, which no schema can say.
std::vector<std::string> FieldsBeyondTheirVariables(const nlohmann::json& profile);

} // namespace tool
