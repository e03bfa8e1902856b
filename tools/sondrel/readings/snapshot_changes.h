// What differs between two values of snapshots.
#pragma once

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

struct Change {
    /// The path within the value: "machine / Fennel Editor / version", "fan 2"; empty for the value itself.
    std::string path;
    /// Nothing if it was added, or removed.
    std::optional<nlohmann::json> before;
    std::optional<nlohmann::json> after;
};

/// Members are matched by name. Elements of a list are matched by a name or number in them, or else by the whole
/// element; quantities by their index, after `elementName`.
std::vector<Change> ChangesBetween(const nlohmann::json& before, const nlohmann::json& after,
                                   std::string_view elementName);

} // namespace tool
