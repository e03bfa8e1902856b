// What differs between two kept values.
#pragma once

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

struct Change {
    /// The way to it within the value: "machine / Fennel Editor / version", "fan 2"; empty for the value itself.
    std::string place;
    /// Nothing where it is new, or gone.
    std::optional<nlohmann::json> before;
    std::optional<nlohmann::json> after;
};

/// Members are matched by name. Elements of a list are matched by what tells them apart: a name or number in
/// them, or else the whole element; quantities by their places, which are called by `placeName`.
std::vector<Change> ChangesBetween(const nlohmann::json& before, const nlohmann::json& after,
                                   std::string_view placeName);

} // namespace tool
