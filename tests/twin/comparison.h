// What two libraries told of the same machines, export by export.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace twin {

/// Exports that may differ, by name, with the reason.
using Excuses = std::map<std::string, std::string>;

/// Throws std::runtime_error with the line that has no name or no reason.
Excuses ReadExcuses(std::istream& table);

struct Comparison {
    std::size_t machines = 0;
    std::size_t exports = 0;
    std::size_t answers = 0;
    /// One line each: a difference that nobody excuses, an excuse that nobody needs, an export that was never
    /// called, a report that is missing or cannot be read.
    std::vector<std::string> problems;
};

/// NAME.native.json beside NAME.windows.json, for every machine of the directory.
Comparison Compare(const std::filesystem::path& directory, const Excuses& excuses);

} // namespace twin
