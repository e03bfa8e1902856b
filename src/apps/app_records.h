// Name lists of the machine's applications, each entry followed by ";".
#pragma once

#include "platform/registry.h"

#include <string>
#include <vector>

namespace sondrel {

/// Appends the names of an open key's subkeys. A subkey whose name cannot be read is skipped.
void EnumSubkeyNames(platform::Key key, std::vector<std::u16string>& names);

} // namespace sondrel
