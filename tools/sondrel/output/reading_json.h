// A reading as the JSON object that a report and a snapshot have of it.
#pragma once

#include "commands/commands.h"

#include <nlohmann/json_fwd.hpp>

namespace tool {

/// A number where the result is one, a text otherwise, null where there is none. A document stays a text: it may be
/// anything.
nlohmann::ordered_json ValueOf(const Reading& reading);

/// Appends what there is to tell of a reading beside its name, with its value as it is to be kept.
void Describe(const Reading& reading, nlohmann::ordered_json value, nlohmann::ordered_json& object);

} // namespace tool
