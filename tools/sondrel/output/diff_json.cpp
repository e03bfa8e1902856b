// Differences between snapshots as JSON.
#include "output/diff_text.h"

namespace tool {
namespace {

nlohmann::ordered_json ObjectOf(const Difference& difference) {
    nlohmann::ordered_json object;
    object["name"] = difference.name;
    object["family"] = difference.group;
    const auto put = [&](const char* side, const SnapshotReading* reading) {
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
        entry["place"] = change.path;
        if (change.before) {
            entry["before"] = *change.before;
        }
        if (change.after) {
            entry["after"] = *change.after;
        }
    }
    return object;
}

} // namespace

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

} // namespace tool
