#include "exports/classify.h"
#include "profiles/sections.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace tool {
namespace {

using observer::RecordedCall;
using observer::RecordedExport;

/// A reading that is one number of the profile: the JSON pointer, and the reading's units in one of the profile's.
struct Measurement {
    std::string_view exportName;
    const char* pointer;
    double units = 1;
};

constexpr Measurement Measurements[] = {
    {"EC_ReadEcChipId", "/chip_id"},
    {"System_Read_TabletMode", "/tablet_mode"},
    {"Battery_Get_LidStatus", "/lid"},
    {"Thermal_Read_Cpu_Temperature", "/temperatures/cpu"},
    {"Thermal_Read_BoardTS0L_Temperature", "/temperatures/board_left"},
    {"Thermal_Read_BoardTS0R_Temperature", "/temperatures/board_right"},
    {"Thermal_Read_GpuTS1L_Temperature", "/temperatures/gpu_left"},
    {"Thermal_Read_GpuTS1R_Temperature", "/temperatures/gpu_right"},
    {"Thermal_Read_BatteryConnector_Temperature", "/sensors/battery_connector/degrees"},
    {"Thermal_Read_ACFET_Temperature", "/sensors/ac_fet/degrees"},
    {"Thermal_Read_ChargerChoke_Temperature", "/sensors/charger_choke/degrees"},
    {"Thermal_Read_GpuVrm_Temperature", "/sensors/gpu_vrm/degrees"},
    {"Thermal_Read_UpCpu_Temperature", "/sensors/upper_cpu/degrees"},
    {"Thermal_Read_GpuVram_Temperature", "/sensors/gpu_vram/degrees"},
    {"Battery_Read_ChargingVoltage", "/battery/charging_voltage", 1000},
    {"Battery_Read_PackageVoltage", "/battery/package_voltage", 1000},
    {"Battery_Read_Current", "/battery/current", 1000},
    {"Battery_Read_CycleCount", "/battery/cycle_count"},
};

/// The first call of an export that returned.
const RecordedExport* Find(const RecordedExports& exports, std::string_view name) {
    const auto found = std::ranges::find_if(
        exports, [=](const RecordedExport& each) { return each.name == name && each.returnLine != 0; });
    return found == exports.end() ? nullptr : &*found;
}

Answer AnswerOf(const RecordedExport& recorded) {
    if (const auto* const number = std::get_if<observer::Number>(&recorded.result.held); number != nullptr) {
        return {.text = std::to_string(number->value), .number = number->value};
    }
    const std::optional<std::string> text = Utf8Of(StringIn(recorded.buffers, "out"));
    return {.text = text.value_or(""), .number = {}, .untouched = !text};
}

Status StatusOf(const RecordedExport& recorded, const Answer& answer) {
    const Export* const row = FindExport(recorded.name);
    return row == nullptr ? Status::NotExported : Classify(*row, answer).status;
}

/// The answer of a reading that has succeeded.
std::optional<Answer> AnswerTo(const RecordedExports& exports, std::string_view name) {
    const RecordedExport* const recorded = Find(exports, name);
    if (recorded == nullptr) {
        return std::nullopt;
    }
    Answer answer = AnswerOf(*recorded);
    const Status status = StatusOf(*recorded, answer);
    return status == Status::Ok || status == Status::Partly ? std::optional(std::move(answer)) : std::nullopt;
}

/// Its number.
std::optional<std::int64_t> NumberFrom(const RecordedExports& exports, std::string_view name) {
    const std::optional<Answer> answer = AnswerTo(exports, name);
    const auto* const number = answer ? std::get_if<std::int64_t>(&answer->number) : nullptr;
    return number == nullptr ? std::nullopt : std::optional(*number);
}

bool IsPrintable(std::string_view text) {
    return std::ranges::all_of(text, [](char each) { return each >= ' ' && each <= '~'; });
}

/// The characters of an identity, the first one in the highest byte of the reading.
void AddCharacters(const RecordedExports& exports, std::string_view name, std::size_t count,
                   const char* member, ProfileJson& ec, LeftOut& leftOut) {
    std::string text(count, '?');
    if (const std::optional<std::int64_t> number = NumberFrom(exports, name)) {
        for (std::size_t place = 0; place < count; ++place) {
            text[place] = static_cast<char>(*number >> (8 * (count - 1 - place)));
        }
        if (!IsPrintable(text)) {
            leftOut.Add(name, "its characters cannot be printed");
            text.assign(count, '?');
        }
    }
    ec[member] = text;
}

std::vector<std::int64_t> NumbersOf(std::string_view list) {
    std::vector<std::int64_t> numbers;
    for (const std::string_view element : ElementsOf(list)) {
        std::from_chars(element.data(), element.data() + element.size(), numbers.emplace_back());
    }
    return numbers;
}

/// Whether the speeds were read with the command of the tachometer that counts a clock: they are quotients.
bool CountsAClock(const RecordedExport& recorded) {
    return std::ranges::any_of(recorded.calls, [](const RecordedCall& call) {
        return BytesIn(call.inputs, "in").size() == 16 && WordAt(BytesIn(call.inputs, "in"), 0) % 256 == 0xA0;
    });
}

/// The library rounds the quotient down and the tachometer rounds its count: the speed that is measured as `rpm`.
std::int64_t SpeedMeasuredAs(std::int64_t rpm) {
    constexpr std::int64_t TicksPerMinute = 71875 * 60 / 2;
    for (const std::int64_t speed : {rpm, rpm + 1}) {
        const std::int64_t ticks = speed == 0 ? 0 : (2 * TicksPerMinute + speed) / (2 * speed);
        if (ticks != 0 && TicksPerMinute / ticks == rpm) {
            return speed;
        }
    }
    return rpm;
}

void AddFans(const RecordedExports& exports, ProfileJson& ec) {
    const RecordedExport* const recorded = Find(exports, "Thermal_Read_Fan");
    if (recorded == nullptr) {
        return;
    }
    const bool quotients = CountsAClock(*recorded);
    for (const std::int64_t rpm : NumbersOf(AnswerOf(*recorded).text)) {
        const std::int64_t least = std::clamp<std::int64_t>(rpm, 0, 65535);
        ec["fans"].push_back({{"rpm", quotients ? SpeedMeasuredAs(least) : least}});
    }
}

void AddPack(const RecordedExports& exports, ProfileJson& battery) {
    if (const std::optional<std::int64_t> decikelvins = NumberFrom(exports, "Battery_Read_Temperature")) {
        const double degrees = static_cast<double>(*decikelvins) / 10 - 273.15;
        battery["temperature"] = std::round(degrees * 100) / 100;
    }
    if (const std::optional<Answer> answer = AnswerTo(exports, "Battery_Read_CellVoltage")) {
        for (const std::int64_t millivolts : NumbersOf(answer->text)) {
            battery["cell_voltages"].push_back(static_cast<double>(millivolts) / 1000);
        }
    } else if (Find(exports, "Battery_Read_CellVoltage") != nullptr) {
        battery["bus_busy_for_ever"] = true; // where there is a bus, this is how it does not answer
    }
    if (const std::optional<Answer> answer = AnswerTo(exports, "Battery_Read_ManufactureDate")) {
        battery["manufacture_date"] = answer->text;
    }
    if (const std::optional<Answer> answer = AnswerTo(exports, "Battery_Read_ManufactureName")) {
        battery["manufacturer"] = answer->text;
    }
}

/// How often each EC command was carried out, and how often it failed with which status.
struct CommandUse {
    std::size_t uses = 0;
    std::map<std::uint32_t, std::size_t> failures;
    std::uint32_t byte = 0;
    std::set<std::string> exports; // in which it failed
};

void AddFaults(const RecordedExports& exports, ProfileJson& ec, LeftOut& leftOut) {
    constexpr std::uint32_t EcCommand = 0x80102070;
    constexpr std::size_t AnswerSize = 16;
    std::map<std::uint32_t, CommandUse> commands;
    for (const RecordedExport& recorded : exports) {
        for (const RecordedCall& call : recorded.calls) {
            const observer::Bytes answer = BytesIn(call.outputs, "out");
            if (call.operation != observer::Operation::DeviceIoControl || answer.size() < AnswerSize ||
                static_cast<std::uint32_t>(NumberIn(call.inputs, "code")) != EcCommand) {
                continue;
            }
            CommandUse& use = commands[WordAt(BytesIn(call.inputs, "in"), 0) % 256];
            ++use.uses;
            if (const std::uint32_t status = WordAt(answer, 12); status != 0) {
                ++use.failures[status];
                use.byte = WordAt(answer, 11) % 256;
                use.exports.insert(recorded.name);
            }
        }
    }
    for (const auto& [command, use] : commands) {
        if (use.failures.size() == 1 && use.failures.begin()->second == use.uses) {
            ProfileJson fault{{"command", command}, {"status", use.failures.begin()->first}};
            if (use.byte != 0) {
                fault["byte"] = use.byte;
            }
            ec["faults"].push_back(std::move(fault));
            continue;
        }
        for (const std::string& name : use.exports) {
            leftOut.Add(name, "the EC refused a command that it carried out at other times");
        }
    }
}

} // namespace

void AddEc(const RecordedExports& exports, ProfileJson& profile, LeftOut& leftOut) {
    ProfileJson& ec = profile["ec"];
    AddCharacters(exports, "EC_ReadEcFwRev", 2, "revision", ec, leftOut);
    AddCharacters(exports, "EC_ReadEcChipName", 4, "chip_name", ec, leftOut);
    for (const auto& [name, pointer, units] : Measurements) {
        const std::optional<std::int64_t> number = NumberFrom(exports, name);
        ProfileJson& value = ec[ProfileJson::json_pointer(pointer)];
        if (number && units == 1) {
            value = *number;
        } else if (number) {
            value = static_cast<double>(*number) / units;
        } else {
            value = 0;
            if (ProfileJson& parent = ec[ProfileJson::json_pointer(pointer).parent_pointer()];
                parent.contains("degrees")) {
                parent = {{"valid", false}};
            }
        }
    }
    AddFans(exports, ec);
    AddPack(exports, ec["battery"]);
    AddFaults(exports, ec, leftOut);
}

} // namespace tool
