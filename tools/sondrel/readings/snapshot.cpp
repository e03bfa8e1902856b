#include "readings/snapshot.h"

#include "base/error.h"
#include "base/input_file.h"
#include "base/text.h"
#include "machines/json_depth.h"
#include "readings/reading_json.h"

#include <charconv>

namespace tool {
namespace {

/// Written files keep the order of members. Files that are read need not, and may be large.
using Written = nlohmann::ordered_json;
using Loaded = nlohmann::json;

Written NumberOr(std::string_view text) {
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [last, problem] = std::from_chars(text.data(), end, number);
    return problem == std::errc{} && last == end ? Written(number) : Written(text);
}

/// Quantities are numbers, everything else is a string.
Written ListOf(const Export& row, std::string_view text) {
    Written list = Written::array();
    if (text.empty()) {
        return list;
    }
    for (const std::string_view element : ElementsOf(text)) {
        const bool failed = StatusOfElement(row, element) == Status::Failed;
        list.push_back(failed ? Written() : row.unit.empty() ? Written(element) : NumberOr(element));
    }
    return list;
}

[[noreturn]] void ThrowNotASnapshot(const std::string& file, const std::string& reason) {
    throw Error(OnOneLine(file) + ": " + reason);
}

std::string TextIn(const Loaded& object, const char* name) {
    const auto found = object.find(name);
    return found != object.end() && found->is_string() ? found->get<std::string>() : std::string();
}

void CheckKind(const Loaded& document, const std::string& file) {
    if (!document.is_object() || TextIn(document, "format") != SnapshotFormat) {
        ThrowNotASnapshot(file, "not a snapshot of this tool");
    }
    const auto version = document.find("version");
    if (version == document.end() || !version->is_number_integer() || version->get<std::int64_t>() < 1) {
        ThrowNotASnapshot(file, "a damaged snapshot: it has no version");
    }
    if (version->get<std::int64_t>() > SnapshotVersion) {
        ThrowNotASnapshot(file, "a snapshot of version " + version->dump() +
                                    "; this tool reads up to version " + std::to_string(SnapshotVersion));
    }
}

} // namespace

Written SnapshotValue(const Reading& reading) {
    Written value = ValueOf(reading);
    if (!value.is_string()) {
        return value;
    }
    const std::string text = WellFormed(reading.answer.text);
    if (reading.row.display == Display::List) {
        return ListOf(reading.row, text);
    }
    if (reading.row.display == Display::Document) {
        auto document = ParsedJson<Written>(reading.answer.text);
        return document.is_structured() ? document : Written(text);
    }
    return text;
}

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
