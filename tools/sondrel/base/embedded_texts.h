// Files of the source tree that the tool carries with it.
#pragma once

#include <string_view>

namespace tool {

/// docs/machine-profile.schema.json
std::string_view ProfileSchemaText();

} // namespace tool
