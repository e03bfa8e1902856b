// What each export costs on the default machine: its boundary calls and its allocations.
#pragma once

#include <string>

namespace sweep {

/// One line for each export: how many calls, how many allocations, then the calls by their operations.
std::string CostTable();

/// Tells each line in which the file differs from the table. False when one does.
bool CompareCosts(const std::string& file);

/// Writes the file anew.
bool RenewCosts(const std::string& file);

} // namespace sweep
