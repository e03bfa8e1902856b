#include "readings/snapshot.h"

#include "base/error.h"
#include "base/input_file.h"
#include "base/text.h"
#include "machines/json_depth.h"
#include "readings/reading_json.h"

namespace tool {
namespace {

using Loaded = nlohmann::json;

/// Of version 1 too; a snapshot had a separate name before.
constexpr std::string_view FormerFormat = "sondrel-snapshot";

[[noreturn]] void ThrowNotASnapshot(const std::string& file, const std::string& reason) {
    throw Error(OnOneLine(file) + ": " + reason);
}

std::string TextIn(const Loaded& object, const char* name) {
    const auto found = object.find(name);
    return found != object.end() && found->is_string() ? found->get<std::string>() : std::string();
}

void CheckKind(const Loaded& document, const std::string& file) {
    const std::string format = document.is_object() ? TextIn(document, "format") : std::string();
    if (format != ReadingsFormat && format != FormerFormat) {
        ThrowNotASnapshot(file, "not a snapshot of this tool");
    }
    const auto version = document.find("version");
    if (version == document.end() || !version->is_number_integer() || version->get<std::int64_t>() < 1) {
        ThrowNotASnapshot(file, "a damaged snapshot: it has no version");
    }
    if (version->get<std::int64_t>() > ReadingsVersion) {
        ThrowNotASnapshot(file, "a snapshot of version " + version->dump() +
                                    "; this tool reads up to version " + std::to_string(ReadingsVersion));
    }
}

} // namespace

Snapshot LoadSnapshot(const std::string& file) {
    const auto document = ParsedJson<Loaded>(ReadFile(file));
    if (document.is_discarded()) {
        ThrowNotASnapshot(file, "not a snapshot of this tool, or a damaged one: not well-formed JSON");
    }
    CheckKind(document, file);
    const auto readings = document.find("readings");
    if (readings == document.end() || !readings->is_object()) {
        ThrowNotASnapshot(file, "a damaged snapshot: it has no readings");
    }
    Snapshot snapshot{.machine = TextIn(document, "machine"), .taken = TextIn(document, "taken")};
    for (const auto& [name, reading] : readings->items()) {
        if (!reading.is_object() || TextIn(reading, "status").empty() || !reading.contains("value")) {
            ThrowNotASnapshot(file, "a damaged snapshot: " + OnOneLine(name) + " has no status or no value");
        }
        snapshot.readings.emplace(name, SnapshotReading{TextIn(reading, "family"), TextIn(reading, "status"),
                                                        TextIn(reading, "unit"), TextIn(reading, "meaning"),
                                                        reading.at("value")});
    }
    return snapshot;
}

} // namespace tool
