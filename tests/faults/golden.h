// What each export costs on the default machine: its boundary calls and its allocations.
#pragma once

#include <iosfwd>

namespace sweep {

/// One line for each export: how many calls, how many allocations, then the calls by their operations.
void PrintCosts(std::ostream& out);

} // namespace sweep
