// A report as JSON.
#include "output/report.h"
#include "readings/reading_json.h"

#include <nlohmann/json.hpp>

namespace tool {

std::string ReportAsJson(const Host& host, const ReadOptions& options) {
    Reader reader(host, options);
    nlohmann::ordered_json document = ReadingsDocument(host, reader.IsObserved());
    nlohmann::ordered_json& readings = document["readings"];
    reader.ReadAll(
        [&](const Reading& reading) { readings[std::string(reading.row.name)] = JsonOf(reading); });
    return TextOf(document);
}

} // namespace tool
