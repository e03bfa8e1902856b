// A report as JSON.
#include "base/text.h"
#include "output/report.h"
#include "readings/reading_json.h"

#include <nlohmann/json.hpp>

#include <iostream>

namespace tool {

using OrderedJson = nlohmann::ordered_json;

void ReportAsJson(const Host& host, const ReadOptions& options) {
    OrderedJson exports = OrderedJson::array();
    OrderedJson missing = OrderedJson::array();
    Reader reader(host, options);
    reader.ReadAll([&](const Reading& reading) {
        OrderedJson& object = exports.emplace_back();
        object["name"] = reading.row.name;
        AddMembers(reading, ValueOf(reading), object);
        if (reading.classification.status == Status::NotExported) {
            missing.push_back(reading.row.name);
        }
    });
    OrderedJson report;
    report["library"] = Utf8Of(host.library.File());
    report["machine"] = host.machineName;
    report["simulated"] = host.machine.has_value();
    report["observed"] = reader.IsObserved();
    report["exports"] = std::move(exports);
    report["not_exported"] = std::move(missing);
    std::cout << report.dump(2, ' ', false, OrderedJson::error_handler_t::replace) << '\n';
}

} // namespace tool
