// sondrel diff A B: what is compared. How it is told is in diff_text.cpp.
#include "base/text.h"
#include "base/trouble.h"
#include "exports/description.h"
#include "readings/diff.h"

#include <iostream>
#include <set>

namespace tool {
namespace {

bool IsValue(const KeptReading* reading) {
    return reading != nullptr &&
           (reading->status == TextOf(Status::Ok) || reading->status == TextOf(Status::Partly));
}

const KeptReading* Find(const Snapshot& snapshot, std::string_view name) {
    const auto found = snapshot.readings.find(name);
    return found != snapshot.readings.end() ? &found->second : nullptr;
}

/// What an element of the export's list is called.
std::string_view ElementNameOf(const Export* row) {
    return row != nullptr && !row->element.name.empty() ? row->element.name : "place";
}

/// The names of both: those that this tool knows in its table's order, then what a newer tool has kept.
std::vector<std::string> NamesOf(const Snapshot& before, const Snapshot& after) {
    std::set<std::string> left;
    for (const Snapshot* const snapshot : {&before, &after}) {
        for (const auto& [name, reading] : snapshot->readings) {
            left.insert(name);
        }
    }
    std::vector<std::string> names;
    for (const Export& row : AllExports()) {
        if (left.erase(std::string(row.name)) != 0) {
            names.emplace_back(row.name);
        }
    }
    names.insert(names.end(), left.begin(), left.end());
    return names;
}

nlohmann::ordered_json ObjectOf(const Difference& difference) {
    nlohmann::ordered_json object;
    object["name"] = difference.name;
    object["family"] = difference.family;
    const auto put = [&](const char* side, const KeptReading* reading) {
        if (reading == nullptr) {
            object[side] = nullptr;
            return;
        }
        object[side] = {{"status", reading->status}, {"value", reading->value}, {"unit", reading->unit}};
    };
    put("before", difference.before);
    put("after", difference.after);
    object["changes"] = nlohmann::ordered_json::array();
    for (const Change& change : difference.changes) {
        nlohmann::ordered_json& entry = object["changes"].emplace_back();
        entry["place"] = change.place;
        if (change.before) {
            entry["before"] = *change.before;
        }
        if (change.after) {
            entry["after"] = *change.after;
        }
    }
    return object;
}

std::string DifferencesAsJson(const Differences& differences) {
    nlohmann::ordered_json result;
    result["compared"] = differences.compared;
    result["left_out"] = differences.leftOut;
    result["differences"] = nlohmann::ordered_json::array();
    for (const Difference& difference : differences.all) {
        result["differences"].push_back(ObjectOf(difference));
    }
    return result.dump(2) + '\n';
}

} // namespace

Differences Compare(const Snapshot& before, const Snapshot& after, bool steady) {
    Differences differences;
    for (const std::string& name : NamesOf(before, after)) {
        const Export* const row = FindExport(name);
        if (steady && row != nullptr && row->moves) {
            ++differences.leftOut;
            continue;
        }
        ++differences.compared;
        Difference difference{.name = name, .before = Find(before, name), .after = Find(after, name)};
        if (const auto* const known = difference.after != nullptr ? difference.after : difference.before) {
            difference.family = known->family;
        }
        const bool values = IsValue(difference.before) && IsValue(difference.after);
        if (values) {
            difference.changes =
                ChangesBetween(difference.before->value, difference.after->value, ElementNameOf(row));
        }
        // Values are the same where no element has changed: some have no order.
        const bool same =
            difference.before != nullptr && difference.after != nullptr &&
            difference.before->status == difference.after->status &&
            difference.before->unit == difference.after->unit &&
            (values ? difference.changes.empty() : difference.before->value == difference.after->value);
        if (!same) {
            differences.all.push_back(std::move(difference));
        }
    }
    return differences;
}

int CompareSnapshots(const Options& options) {
    const Snapshot before = LoadSnapshot(options.files.at(0));
    const Snapshot after = LoadSnapshot(options.files.at(1));
    const Differences differences = Compare(before, after, options.steady);
    std::cout << (options.json ? DifferencesAsJson(differences)
                               : DifferencesAsText(options, before, after, differences));
    return differences.all.empty() ? ExitDone : ExitDifference;
}

} // namespace tool
