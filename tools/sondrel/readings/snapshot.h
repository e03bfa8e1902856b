// A snapshot: every answer of one machine at one time, in a file. docs/snapshot.md describes the format.
#pragma once

#include "readings/reading.h"

#include <nlohmann/json.hpp>

#include <map>
#include <string>
#include <string_view>

namespace tool {

inline constexpr std::string_view SnapshotFormat = "sondrel-snapshot";
/// Increases when an older tool would misread a file. Members can be added without that.
inline constexpr int SnapshotVersion = 1;

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

/// The value in a snapshot: numbers as numbers, lists as arrays with null for a failed element, documents as JSON.
nlohmann::ordered_json SnapshotValue(const Reading& reading);

/// Reads a file. Throws Error if it is not a snapshot.
Snapshot LoadSnapshot(const std::string& file);

} // namespace tool
