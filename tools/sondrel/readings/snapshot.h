// A snapshot: every answer of one machine at one time, in a file. docs/snapshot.md describes the format.
#pragma once

#include "commands/commands.h"

#include <nlohmann/json.hpp>

#include <map>
#include <string>
#include <string_view>

namespace tool {

inline constexpr std::string_view SnapshotFormat = "sondrel-snapshot";
/// Goes up when an older tool would misread a file. Members may be added without that.
inline constexpr int SnapshotVersion = 1;

/// One export's answer as a snapshot keeps it.
struct KeptReading {
    std::string family;
    std::string status; // as TextOf words it
    std::string unit;
    std::string meaning;
    /// A number, a text, a list, a document, or null.
    nlohmann::json value;
};

struct Snapshot {
    std::string machine;
    std::string taken; // in UTC
    std::map<std::string, KeptReading, std::less<>> readings;
};

/// What a snapshot keeps of an answer: numbers as numbers, lists as lists with null for a place that failed,
/// documents as what they say.
nlohmann::ordered_json KeptValue(const Reading& reading);

/// Reads a snapshot's file. Throws Trouble with one line that says why it is none.
Snapshot LoadSnapshot(const std::string& file);

} // namespace tool
