// The names of a path of the simulated machine.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace machine {

/// Whether a path begins with a drive, as "C:\..." does.
bool HasDrive(std::u16string_view path);

/// The names of a path; both separators count.
std::vector<std::string> NamesOf(std::string_view path);

/// The names of a path with a drive from the machine's root on, in upper case: first the drive's letter, which ".."
/// does not leave.
std::vector<std::string> NamesBelowRoot(std::u16string_view path);

/// Whether a path of the host is a directory or below it.
bool IsWithin(const std::vector<std::string>& path, const std::vector<std::string>& directory);

} // namespace machine
