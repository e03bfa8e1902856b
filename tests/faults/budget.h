// What one call of each export costs, and what it may cost at most.
#pragma once

#include <iosfwd>
#include <string>

namespace sweep {

/// Boundary calls and allocations of each export, with the calls by operation.
void PrintCosts(std::ostream& out);

/// Compares the costs with a table: "CALLS ALLOCATIONS EXPORT..." on each line, comments after "#". False where an
/// export costs more or is in no line; what is wrong is printed.
bool CheckBudget(const std::string& file, std::ostream& out);

} // namespace sweep
