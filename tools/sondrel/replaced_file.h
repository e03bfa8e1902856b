// A file that is replaced in one step.
#pragma once

#include <filesystem>
#include <string_view>

namespace tool {

/// Writes the text to the file so that whoever reads it, at any time, finds either what was there or all of the
/// new text. A device or a pipe is written to directly. Throws Trouble; then the file is as it was, and nothing
/// else is left behind, not even by an interrupt.
void ReplaceFile(const std::filesystem::path& file, std::string_view text);

} // namespace tool
