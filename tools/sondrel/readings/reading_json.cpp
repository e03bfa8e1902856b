#include "readings/reading_json.h"

#include "base/text.h"
#include "machines/json_depth.h"
#include "readings/converted.h"

#include <nlohmann/json.hpp>

#include <charconv>
#include <ctime>

namespace tool {
namespace {

using OrderedJson = nlohmann::ordered_json;

OrderedJson NumberOr(std::string_view text) {
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [last, problem] = std::from_chars(text.data(), end, number);
    return problem == std::errc{} && last == end ? OrderedJson(number) : OrderedJson(text);
}

/// Quantities are numbers, everything else is a string.
OrderedJson ArrayOf(const Export& row, std::string_view text) {
    OrderedJson list = OrderedJson::array();
    if (text.empty()) {
        return list;
    }
    for (const std::string_view element : ElementsOf(text)) {
        const bool failed = StatusOfElement(row, element) == Status::Failed;
        list.push_back(failed ? OrderedJson() : row.unit.empty() ? OrderedJson(element) : NumberOr(element));
    }
    return list;
}

/// Without the noise of the last digits.
OrderedJson RoundedOf(std::optional<double> number) {
    return number ? OrderedJson::parse(PlainNumber(*number), nullptr, false) : OrderedJson();
}

OrderedJson ConvertedOf(const Reading& reading) {
    const std::vector<std::optional<double>> numbers = ConvertedNumbers(reading);
    if (numbers.empty()) {
        return {};
    }
    OrderedJson object;
    if (reading.row.display == Display::List) {
        object["value"] = OrderedJson::array();
        for (const std::optional<double>& number : numbers) {
            object["value"].push_back(RoundedOf(number));
        }
    } else {
        object["value"] = RoundedOf(numbers.front());
    }
    object["unit"] = reading.row.convertedUnit;
    if (!reading.row.assumedUnit.empty()) {
        object["assumed_unit"] = reading.row.assumedUnit;
    }
    return object;
}

std::string Now() {
    const std::time_t now = std::time(nullptr);
    const std::tm* const utc = std::gmtime(&now);
    char text[32];
    return utc != nullptr && std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", utc) != 0 ? text : "";
}

} // namespace

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

OrderedJson StructuredValueOf(const Reading& reading) {
    OrderedJson value = ValueOf(reading);
    if (!value.is_string()) {
        return value;
    }
    const std::string text = WellFormed(reading.answer.text);
    if (reading.row.display == Display::List) {
        return ArrayOf(reading.row, text);
    }
    if (reading.row.display == Display::Document) {
        auto document = ParsedJson<OrderedJson>(reading.answer.text);
        return document.is_structured() ? document : OrderedJson(text);
    }
    return text;
}

void AddMembers(const Reading& reading, OrderedJson value, OrderedJson& object) {
    object["family"] = exports::TitleOf(reading.row.group);
    object["status"] = TextOf(reading.classification.status);
    object["state"] =
        reading.classification.status != Status::NotRun ? OrderedJson(TextOf(reading.state)) : OrderedJson();
    object["value"] = HasValue(reading) ? value : OrderedJson();
    if (!HasValue(reading) && !value.is_null()) {
        object["returned"] = std::move(value);
    }
    object["unit"] = reading.row.unit;
    if (OrderedJson converted = ConvertedOf(reading); !converted.is_null()) {
        object["converted"] = std::move(converted);
    }
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

OrderedJson JsonOf(const Reading& reading) {
    OrderedJson object;
    AddMembers(reading, StructuredValueOf(reading), object);
    return object;
}

OrderedJson ReadingsDocument(const Host& host, bool isObserved) {
    OrderedJson document;
    document["format"] = ReadingsFormat;
    document["version"] = ReadingsVersion;
    document["tool"] = SONDREL_VERSION;
    document["library"] = WellFormed(Utf8Of(host.library.File()));
    document["observed"] = isObserved;
    document["taken"] = Now();
    document["machine"] = WellFormed(host.machineName);
    document["simulated"] = host.machine.has_value();
    document["readings"] = OrderedJson::object();
    return document;
}

std::string TextOf(const OrderedJson& document) {
    return document.dump(2, ' ', false, OrderedJson::error_handler_t::replace) + '\n';
}

} // namespace tool
