// The exports that return a string object of C++ by value.
#pragma once

#include "base/system.h"

#include <string>

namespace tool {

/// Calls such an export. On Windows the version resource of its library says whose string object it returns; one
/// without that field is taken for a library of the tool's own compiler.
std::string CallStringExport(Address address);

} // namespace tool
