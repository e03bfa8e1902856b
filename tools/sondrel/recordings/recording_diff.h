// What differs between two recordings.
#pragma once

#include <string>

namespace tool {

/// One line for each export call that differs, by name and arguments, the k-th of one with the k-th of the other; empty
/// where none does. Times, threads and processes do not count. Throws Error.
std::string RecordingDifferences(const std::string& beforeFile, const std::string& afterFile);

} // namespace tool
