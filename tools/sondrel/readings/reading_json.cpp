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
    object["value"] = std::move(value);
    object["unit"] = reading.row.unit;
    if (!reading.classification.meaning.empty()) {
        object["meaning"] = reading.classification.meaning;
    }
}

} // namespace tool
