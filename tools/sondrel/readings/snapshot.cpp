#include "readings/snapshot.h"

#include "base/output_file.h"
#include "base/text.h"
#include "base/trouble.h"
#include "machines/json_depth.h"
#include "output/reading_json.h"

#include <charconv>

namespace tool {
namespace {

/// What is written keeps its order. What is read need not, and a file of somebody else's may be large.
using Written = nlohmann::ordered_json;
using Loaded = nlohmann::json;

Written NumberOr(std::string_view text) {
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [last, problem] = std::from_chars(text.data(), end, number);
    return problem == std::errc{} && last == end ? Written(number) : Written(text);
}

/// Quantities are numbers, everything else is text.
Written KeptList(const Export& row, std::string_view bare) {
    Written list = Written::array();
    if (bare.empty()) {
        return list;
    }
    for (const std::string_view place : ElementsOf(bare)) {
        const bool failed = StatusOfElement(row, place) == Status::Failed;
        list.push_back(failed ? Written() : row.unit.empty() ? Written(place) : NumberOr(place));
    }
    return list;
}

[[noreturn]] void Refuse(const std::string& file, const std::string& reason) {
    throw Trouble(OnOneLine(file) + ": " + reason);
}

std::string TextIn(const Loaded& object, const char* name) {
    const auto found = object.find(name);
    return found != object.end() && found->is_string() ? found->get<std::string>() : std::string();
}

void CheckKind(const Loaded& document, const std::string& file) {
    if (!document.is_object() || TextIn(document, "format") != SnapshotFormat) {
        Refuse(file, "not a snapshot of this tool's");
    }
    const auto version = document.find("version");
    if (version == document.end() || !version->is_number_integer() || version->get<std::int64_t>() < 1) {
        Refuse(file, "a damaged snapshot: it has no version");
    }
    if (version->get<std::int64_t>() > SnapshotVersion) {
        Refuse(file, "a snapshot of version " + version->dump() + "; this tool reads up to version " +
                         std::to_string(SnapshotVersion));
    }
}

} // namespace

Written KeptValue(const Reading& reading) {
    Written value = ValueOf(reading);
    if (!value.is_string()) {
        return value;
    }
    const std::string text = WellFormed(reading.answer.bare);
    if (reading.row.display == Display::List) {
        return KeptList(reading.row, text);
    }
    if (reading.row.display == Display::Document) {
        auto document = ParsedJson<Written>(reading.answer.bare);
        return document.is_structured() ? document : Written(text);
    }
    return text;
}

Snapshot LoadSnapshot(const std::string& file) {
    const auto document = ParsedJson<Loaded>(ReadFile(file));
    if (document.is_discarded()) {
        Refuse(file, "not a snapshot of this tool's, or a damaged one: no well-formed JSON");
    }
    CheckKind(document, file);
    const auto readings = document.find("readings");
    if (readings == document.end() || !readings->is_object()) {
        Refuse(file, "a damaged snapshot: it has no readings");
    }
    Snapshot snapshot{.machine = TextIn(document, "machine"), .taken = TextIn(document, "taken")};
    for (const auto& [name, kept] : readings->items()) {
        if (!kept.is_object() || TextIn(kept, "status").empty() || !kept.contains("value")) {
            Refuse(file, "a damaged snapshot: " + OnOneLine(name) + " has no status or no value");
        }
        snapshot.readings.emplace(name, KeptReading{TextIn(kept, "family"), TextIn(kept, "status"),
                                                    TextIn(kept, "unit"), TextIn(kept, "meaning"),
                                                    kept.at("value")});
    }
    return snapshot;
}

} // namespace tool
