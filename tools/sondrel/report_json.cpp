// sondrel report --json
#include "reading_json.h"
#include "text.h"

#include <nlohmann/json.hpp>

#include <iostream>

namespace tool {

using Json = nlohmann::ordered_json;

void ReportAsJson(const Host& host, const Options& options) {
    Json exports = Json::array();
    Json missing = Json::array();
    ReadAll(host, options, [&](const Reading& reading) {
        Json& object = exports.emplace_back();
        object["name"] = reading.row.name;
        Describe(reading, ValueOf(reading), object);
        if (reading.judgement.status == Status::NotExported) {
            missing.push_back(reading.row.name);
        }
    });
    Json report;
    report["library"] = Utf8Of(host.library.File());
    report["machine"] = host.machineName;
    report["simulated"] = host.machine.has_value();
    report["exports"] = std::move(exports);
    report["not_exported"] = std::move(missing);
    std::cout << report.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

} // namespace tool
