// sondrel read READING...
#include "base/error.h"
#include "base/text.h"
#include "commands/commands.h"
#include "readings/readable.h"
#include "readings/reading_json.h"
#include "readings/selection.h"
#include "terminal/interrupt.h"
#include "terminal/progress.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <functional>
#include <iostream>

namespace tool {
namespace {

using OrderedJson = nlohmann::ordered_json;

/// Without quotes; empty for null.
std::string PlainText(const OrderedJson& value) {
    return value.is_string() ? OnOneLine(value.get_ref<const std::string&>())
           : value.is_null() ? std::string()
                             : OnOneLine(value.dump(-1, ' ', false, OrderedJson::error_handler_t::replace));
}

/// A member of the reading in JSON; "converted_unit" is the unit of "converted".
std::string FieldOf(const std::string& field, const Reading& reading, const OrderedJson& object) {
    if (field == "name") {
        return std::string(reading.row.name);
    }
    if (field == "cause") {
        return reading.cause ? OnOneLine(TextWithRemedy(*reading.cause)) : std::string();
    }
    if (field == "converted" || field == "converted_unit") {
        const OrderedJson converted = object.value("converted", OrderedJson::object());
        return PlainText(converted.value(field == "converted" ? "value" : "unit", OrderedJson()));
    }
    return PlainText(object.value(field, OrderedJson()));
}

void ReadAll(Reader& reader, const std::vector<const Export*>& rows,
             const std::function<void(const Reading&)>& sink) {
    Progress progress;
    for (const Export* const row : rows) {
        interrupt::Check();
        progress.Begin("reading " + std::string(row->name));
        const Reading reading = reader.Read(*row);
        progress.Clear();
        interrupt::Check();
        sink(reading);
    }
}

void PrintFields(const std::vector<std::string>& fields, const Reading& reading) {
    const OrderedJson object = JsonOf(reading);
    std::string line;
    for (const std::string& field : fields) {
        line.append(&field == fields.data() ? "" : "\t").append(FieldOf(field, reading, object));
    }
    std::cout << line << '\n';
}

} // namespace

const std::vector<std::string>& ReadingFields() {
    static const std::vector<std::string> Names{"name",   "value",     "unit",           "state",
                                                "status", "converted", "converted_unit", "meaning",
                                                "cause",  "family",    "returned"};
    return Names;
}

int ReadReadings(const Options& options) {
    const Host host(options.host);
    const std::vector<const Export*> rows = ChosenReadings(options.names, host.library);
    Reader reader(host, options.reading);
    if (options.json) {
        OrderedJson document = ReadingsDocument(host, reader.IsObserved());
        ReadAll(reader, rows, [&](const Reading& reading) {
            document["readings"][std::string(reading.row.name)] = JsonOf(reading);
        });
        std::cout << TextOf(document);
        return ExitOk;
    }
    std::size_t nameWidth = 0;
    for (const Export* const row : rows) {
        nameWidth = std::max(nameWidth, row->name.size());
    }
    ReadAll(reader, rows, [&](const Reading& reading) {
        constexpr std::size_t LongestValue = 2000;
        if (!options.fields.empty()) {
            PrintFields(options.fields, reading);
            return;
        }
        std::string name(reading.row.name);
        name.resize(nameWidth + 2, ' ');
        std::cout << name << OnOneLine(ReadableOf(reading, LongestValue)) << '\n';
    });
    return ExitOk;
}

} // namespace tool
