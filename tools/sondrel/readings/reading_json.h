// A reading as a JSON object, for reports and snapshots.
#pragma once

#include "readings/reading.h"

#include <nlohmann/json_fwd.hpp>

namespace tool {

/// A number or a string; null if there is no result. A document is a string: it need not be well-formed.
nlohmann::ordered_json ValueOf(const Reading& reading);

/// The deciding call, or the rule, and the remedy.
nlohmann::ordered_json JsonOf(const Cause& cause);

/// Adds the members of a reading except its name. The value is as ValueOf or a snapshot has it. What was returned
/// instead of a value is another member.
void AddMembers(const Reading& reading, nlohmann::ordered_json value, nlohmann::ordered_json& object);

} // namespace tool
