#include "readings/reading_json.h"

#include <nlohmann/json.hpp>

namespace tool {

using OrderedJson = nlohmann::ordered_json;

OrderedJson ValueOf(const Reading& reading) {
    const Answer& answer = reading.answer;
    if (const auto* const whole = std::get_if<std::int64_t>(&answer.number); whole != nullptr) {
        return *whole;
    }
    if (const auto* const floating = std::get_if<double>(&answer.number); floating != nullptr) {
        return *floating;
    }
    const bool none = answer.untouched || reading.classification.status == Status::NotExported ||
                      reading.classification.status == Status::NotRun;
    return none ? OrderedJson() : OrderedJson(answer.text);
}

void AddMembers(const Reading& reading, OrderedJson value, OrderedJson& object) {
    object["family"] = exports::TitleOf(reading.row.group);
    object["status"] = TextOf(reading.classification.status);
    if (reading.classification.status != Status::NotRun) {
        object["state"] = TextOf(reading.state);
    }
    object["value"] = HasValue(reading) ? value : OrderedJson();
    if (!HasValue(reading) && !value.is_null()) {
        object["returned"] = std::move(value);
    }
    object["unit"] = reading.row.unit;
    if (!reading.classification.meaning.empty()) {
        object["meaning"] = reading.classification.meaning;
    }
    if (reading.cause) {
        object["cause"] = JsonOf(*reading.cause);
    }
}

OrderedJson JsonOf(const Cause& cause) {
    OrderedJson object;
    if (cause.call) {
        const DecidingCall& call = *cause.call;
        object["operation"] = call.operation;
        object["subject"] = call.subject;
        object["outcome"] = call.outcome;
        object["code"] = call.code ? OrderedJson(*call.code) : OrderedJson();
        object["words"] = call.words;
    } else {
        object["rule"] = cause.rule;
    }
    object["remedy"] = cause.remedy;
    return object;
}

} // namespace tool
