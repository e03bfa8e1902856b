#include "output/reading_json.h"

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
    const bool none = answer.untouched || reading.judgement.status == Status::NotExported ||
                      reading.judgement.status == Status::NotRun;
    return none ? OrderedJson() : OrderedJson(answer.bare);
}

void Describe(const Reading& reading, OrderedJson value, OrderedJson& object) {
    object["family"] = TitleOf(reading.row.family);
    object["status"] = TextOf(reading.judgement.status);
    object["value"] = std::move(value);
    object["unit"] = reading.row.traits.unit;
    if (!reading.judgement.meaning.empty()) {
        object["meaning"] = reading.judgement.meaning;
    }
}

} // namespace tool
