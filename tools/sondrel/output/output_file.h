// Where a command's output goes.
#pragma once

#include <string>
#include <string_view>

namespace tool {

/// Writes to the file, or to standard output if the name is empty or "-". A file is replaced in one step. Throws
/// Error.
void WriteOutput(const std::string& file, std::string_view text);

} // namespace tool
