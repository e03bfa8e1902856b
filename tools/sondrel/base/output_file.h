// Files as commands read and write them.
#pragma once

#include <string>
#include <string_view>

namespace tool {

/// Writes a command's output to a file, or to standard output where none is named or it is "-". The file is
/// replaced in one step: whoever reads it sees all of the old content or all of the new one. Throws Trouble.
void WriteOutput(const std::string& file, std::string_view text);

/// The whole of a file. Throws Trouble.
std::string ReadFile(const std::string& file);

} // namespace tool
