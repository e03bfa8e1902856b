// sondrel report --json
#include "commands.h"
#include "text.h"

#include <nlohmann/json.hpp>

#include <iostream>

namespace tool {
namespace {

using OrderedJson = nlohmann::ordered_json;

/// A number where the result is one, a text otherwise, null where there is none. A document stays a text:
/// it may be anything.
OrderedJson ValueOf(const Reading& reading) {
    const Answer& answer = reading.answer;
    if (const auto* const whole = std::get_if<std::int64_t>(&answer.number); whole != nullptr) {
        return *whole;
    }
    if (const auto* const floating = std::get_if<double>(&answer.number); floating != nullptr) {
        return *floating;
    }
    const bool none = answer.untouched || reading.judgement.status == Status::NotExported ||
                      reading.judgement.status == Status::NotRun;
    return none ? OrderedJson() : OrderedJson(answer.bare);
}

OrderedJson ObjectOf(const Reading& reading) {
    OrderedJson object;
    object["name"] = reading.row.name;
    object["family"] = TitleOf(reading.row.family);
    object["status"] = TextOf(reading.judgement.status);
    object["value"] = ValueOf(reading);
    object["unit"] = reading.row.traits.unit;
    if (!reading.judgement.meaning.empty()) {
        object["meaning"] = reading.judgement.meaning;
    }
    return object;
}

} // namespace

void ReportAsJson(const Host& host, const Options& options) {
    OrderedJson exports = OrderedJson::array();
    OrderedJson missing = OrderedJson::array();
    ReadAll(host, options, [&](const Reading& reading) {
        exports.push_back(ObjectOf(reading));
        if (reading.judgement.status == Status::NotExported) {
            missing.push_back(reading.row.name);
        }
    });
    OrderedJson report;
    report["library"] = Utf8Of(host.library.File());
    report["machine"] = host.machineName;
    report["simulated"] = host.machine.has_value();
    report["exports"] = std::move(exports);
    report["not_exported"] = std::move(missing);
    std::cout << report.dump(2, ' ', false, OrderedJson::error_handler_t::replace) << '\n';
}

} // namespace tool
