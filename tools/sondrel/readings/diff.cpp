#include "readings/diff.h"

#include "exports/classify.h"

#include <set>

namespace tool {
namespace {

bool IsValue(const SnapshotReading* reading) {
    return reading != nullptr &&
           (reading->status == TextOf(Status::Ok) || reading->status == TextOf(Status::Partly));
}

const SnapshotReading* Find(const Snapshot& snapshot, std::string_view name) {
    const auto found = snapshot.readings.find(name);
    return found != snapshot.readings.end() ? &found->second : nullptr;
}

/// What an element of the export's list is called.
std::string_view ElementNameOf(const Export* row) {
    return row != nullptr && !row->element.name.empty() ? row->element.name : "element";
}

/// The names of both snapshots: first those that this tool knows, in the order of the header.
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
            difference.group = known->group;
        }
        const bool values = IsValue(difference.before) && IsValue(difference.after);
        if (values) {
            difference.changes =
                ChangesBetween(difference.before->value, difference.after->value, ElementNameOf(row));
        }
        // The order of some lists does not matter, so their values can differ without a change.
        const bool same = difference.before != nullptr && difference.after != nullptr &&
                          difference.before->status == difference.after->status &&
                          difference.before->unit == difference.after->unit &&
                          (!values || difference.changes.empty());
        if (!same) {
            differences.all.push_back(std::move(difference));
        }
    }
    return differences;
}

} // namespace tool
