#include "answers.h"

#include "exports/calls.h"
#include "readings/reading.h"
#include "readings/reading_json.h"

#include <nlohmann/json.hpp>

#include <iostream>

namespace comparison {
namespace {

struct Setting {
    std::string_view name;
    const char* argument;
};

/// All exports that a report leaves out, since they change something. The app path comes first: what the firmware's
/// features are set to is stored below it.
constexpr Setting Settings[] = {
    {"WMISetAppPath", "C:\\ProgramData\\Vesk\\VeskTessaly"},
    {"WMISetBatteryHealth", "60"},
    {"WMISetQuietFan", "1"},
    {"GPNV_Set_RandomUUID", "00112233445566778899aabbccddeeff"},
    {"GPNV_Set_ActivatedTime", "323032362f30372f30382030393a31303a3131"},
    {"GPNV_Set_ManufacturedTime", "323032362d30372d30385430393a31303a31312e303030"},
    {"ShutdownSondrel", ""},
};

/// Every answer as it came: lists and documents are strings.
void PrintReport(const tool::Host& host, const tool::ReadOptions& options) {
    nlohmann::ordered_json exports = nlohmann::ordered_json::array();
    tool::Reader(host, options).ReadAll([&](const tool::Reading& reading) {
        nlohmann::ordered_json& object = exports.emplace_back();
        object["name"] = reading.row.name;
        tool::AddMembers(reading, tool::ValueOf(reading), object);
    });
    std::cout << nlohmann::ordered_json{{"exports", exports}}.dump(
                     2, ' ', false, nlohmann::ordered_json::error_handler_t::replace)
              << '\n';
}

void PrintSettings(const tool::Host& host) {
    nlohmann::ordered_json exports = nlohmann::ordered_json::array();
    for (const auto& [name, argument] : Settings) {
        const tool::Export& row = tool::ExportNamed(name);
        const tool::Answer answer = tool::Call(host.library.Find(name), row, {.argument = argument});
        exports.push_back({{"name", name},
                           {"status", tool::TextOf(tool::Classify(row, answer).status)},
                           {"value", answer.text}});
    }
    std::cout << nlohmann::ordered_json{{"exports", exports}}.dump(2) << '\n';
}

} // namespace

void PrintAnswers(const tool::Host& host) {
    tool::ReadOptions options{.causes = false}; // only one of the two libraries is observed
    std::cout << "[\n";
    PrintReport(host, options);
    std::cout << ",\n";
    PrintSettings(host);
    std::cout << ",\n";
    PrintReport(host, options);
    std::cout << ",\n";
    options.session = false;
    PrintReport(host, options);
    std::cout << "]\n";
}

} // namespace comparison
