// A snapshot: every answer of one machine at one time, in a file. docs/json.md describes it.
#pragma once

#include <nlohmann/json.hpp>

#include <map>
#include <string>
#include <string_view>

namespace tool {

/// One export's answer in a snapshot.
struct SnapshotReading {
    std::string group;
    std::string status; // as in TextOf
    std::string unit;
    std::string meaning;
    /// A number, a string, a list, a document, or null.
    nlohmann::json value;
};

struct Snapshot {
    std::string machine;
    std::string taken; // in UTC
    std::map<std::string, SnapshotReading, std::less<>> readings;
};

/// Reads a file. Throws Error if it is not a snapshot.
Snapshot LoadSnapshot(const std::string& file);

} // namespace tool
