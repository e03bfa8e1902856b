#include "base/text.h"
#include "profiles/sections.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstdio>

namespace tool {
namespace {

using observer::Bytes;
using observer::Operation;
using observer::RecordedCall;
using observer::RecordedExport;
using observer::Structure;

Structure StructureIn(const Structure& fields, std::string_view name) {
    const auto* const held = Held<Structure>(fields, name);
    return held == nullptr ? Structure{} : *held;
}

/// Seconds since 1970 of a calendar time.
std::int64_t SecondsOf(const Structure& time) {
    const auto part = [&](const char* name) {
        return static_cast<int>(NumberIn(time, name));
    };
    const std::chrono::year_month_day date{std::chrono::year{part("year")},
                                           std::chrono::month{static_cast<unsigned>(part("month"))},
                                           std::chrono::day{static_cast<unsigned>(part("day"))}};
    const auto days = std::chrono::sys_days(date).time_since_epoch();
    const std::chrono::seconds whole = days + std::chrono::hours(part("hour")) +
                                       std::chrono::minutes(part("minute")) +
                                       std::chrono::seconds(part("second"));
    return whole.count();
}

std::string DateOf(std::int64_t seconds) {
    using namespace std::chrono;
    const sys_seconds time{std::chrono::seconds(seconds)};
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss clock(time - day);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d", int(date.year()),
                  unsigned(date.month()), unsigned(date.day()), int(clock.hours().count()),
                  int(clock.minutes().count()), int(clock.seconds().count()));
    return text.data();
}

/// The shortest digits that mean this number.
double Shortest(float number) {
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    double shown = 0;
    std::from_chars(digits.data(), end, shown);
    return shown;
}

void AddSystemCall(const RecordedCall& call, ProfileJson& system) {
    constexpr std::int64_t TwoLetters = 4;
    constexpr std::int64_t Year10000 = 253402300800;
    const bool failed = HasFailed(call);
    switch (call.operation) {
    case Operation::RtlGetVersion:
        if (const Structure version = StructureIn(call.outputs, "version"); failed) {
            system["has_version"] = false;
        } else {
            system["version"] = {{"major", NumberIn(version, "major")},
                                 {"minor", NumberIn(version, "minor")},
                                 {"build", NumberIn(version, "build")}};
        }
        break;
    case Operation::LoadLibraryW:
        if (failed) {
            system["has_wldp"] = false;
        }
        break;
    case Operation::WldpQueryWindowsLockdownMode:
        if (failed) {
            system["has_lockdown_query"] = false;
        } else {
            system["lockdown_mode"] = NumberIn(call.outputs, "mode");
        }
        break;
    case Operation::GetGeoInfoW:
        if (const std::u16string text = StringIn(call.outputs, "text");
            !text.empty() && NumberIn(call.inputs, "type") == TwoLetters) {
            system["country"] = Utf8Of(text).value_or("");
        }
        break;
    case Operation::LocalTime64:
        if (const std::int64_t time = NumberIn(call.inputs, "time");
            !failed && time >= 0 && time < Year10000) {
            system["date"] = DateOf(time);
            system["utc_offset_minutes"] = (SecondsOf(StructureIn(call.outputs, "local")) - time) / 60;
        }
        break;
    default:
        break;
    }
}

void AddAudioCall(const RecordedExport& recorded, const RecordedCall& call, ProfileJson& profile,
                  LeftOut& leftOut) {
    if (const auto* const level = Held<float>(call.outputs, "level"); level != nullptr) {
        const double volume = Shortest(*level);
        ProfileJson& known = profile["audio"]["volume"];
        if (known.is_null() && volume >= 0 && volume <= 1) {
            known = volume;
        } else if (known != volume) {
            leftOut.Add(recorded.name, "another volume");
        }
    }
    if (const auto* const muted = Held<bool>(call.outputs, "muted"); muted != nullptr) {
        profile["audio"]["muted"] = *muted;
    }
}

void AddPowerCall(const RecordedExport& recorded, const RecordedCall& call, ProfileJson& power) {
    if (call.operation == Operation::GetSystemPowerStatus && !HasFailed(call)) {
        const std::int64_t line = NumberIn(StructureIn(call.outputs, "status"), "line");
        power["running_on"] = line == 0 ? "battery" : line == 1 ? "ac" : "unknown";
    }
    if (call.operation == Operation::GetSystemTimes && !HasFailed(call) &&
        recorded.name == "CPU_ReadCPUUsage") {
        const Structure times = StructureIn(call.outputs, "times");
        power["samples"].push_back({{"idle", NumberIn(times, "idle")},
                                    {"kernel", NumberIn(times, "kernel")},
                                    {"user", NumberIn(times, "user")}});
    }
}

void AddVariableCall(const RecordedCall& call, ProfileJson& section) {
    constexpr std::uint32_t NotAllAssigned = 1300;
    if (call.operation == Operation::AdjustTokenPrivileges && call.lastError == NotAllAssigned) {
        section["privilege_held"] = false;
    }
    const auto* const data = Held<Bytes>(call.outputs, "data");
    if (call.operation != Operation::GetFirmwareEnvironmentVariableW || HasFailed(call) || data == nullptr ||
        data->empty()) {
        return;
    }
    const ProfileJson variable{{"name", Utf8Of(StringIn(call.inputs, "name")).value_or("")},
                               {"guid", Utf8Of(Lower(StringIn(call.inputs, "guid"))).value_or("")},
                               {"size", data->size()},
                               {"fields", ProfileJson::array({{{"at", 0}, {"bytes", HexOf(*data)}}})}};
    ProfileJson& variables = section["variables"];
    if (std::ranges::none_of(variables,
                             [&](const ProfileJson& known) { return known["name"] == variable["name"]; })) {
        variables.push_back(variable);
    }
}

/// Files and directories as they were before the library wrote to them.
void AddFiles(const RecordedExport& recorded, ProfileJson& profile, LeftOut& leftOut) {
    constexpr std::int64_t Directory = 0x10;
    std::map<std::uint32_t, std::string> open;
    std::map<std::string, std::string> read;
    for (const RecordedCall& call : recorded.calls) {
        const std::string path = Utf8Of(StringIn(call.inputs, "path")).value_or("");
        const bool onDrive = path.size() > 2 && path[1] == ':';
        const std::uint32_t file = HandleIn(call.inputs, "file");
        if (HasFailed(call)) {
            continue;
        }
        if (call.operation == Operation::GetFileAttributesW && onDrive) {
            if ((NumberOf(call.result) & Directory) != 0) {
                profile["files"]["directories"].push_back(path);
            }
        } else if (call.operation == Operation::CreateFileW && onDrive) {
            open[HandleOf(call.result)] = path;
        } else if (call.operation == Operation::WriteFile) {
            open.erase(file);
        } else if (call.operation == Operation::ReadFile && open.contains(file)) {
            const Bytes data = BytesIn(call.outputs, "data");
            read[open[file]].append(reinterpret_cast<const char*>(data.data()), data.size());
        }
    }
    if (read.empty()) {
        return;
    }
    ProfileJson& files = profile["files"]["files"];
    files = files.is_null() ? ProfileJson::array() : files;
    for (const auto& each : read) {
        const auto same = std::ranges::find_if(
            files, [&](const ProfileJson& known) { return known["path"] == each.first; });
        if (!IsUtf8(each.second)) {
            leftOut.Add(recorded.name, "the content of a file is not UTF-8");
        } else if (same == files.end()) {
            files.push_back({{"path", each.first}, {"text", each.second}});
        } else if ((*same)["text"] != each.second) {
            leftOut.Add(recorded.name, "a file had another content before");
        }
    }
}

} // namespace

void AddSystem(const RecordedExports& exports, ProfileJson& profile, LeftOut& leftOut) {
    for (const RecordedExport& recorded : exports) {
        for (const RecordedCall& call : recorded.calls) {
            AddSystemCall(call, profile["system"]);
            AddAudioCall(recorded, call, profile, leftOut);
            AddPowerCall(recorded, call, profile["system_power"]);
            AddVariableCall(call, profile["firmware_variables"]);
            if (const auto* const windows = std::get_if<observer::List>(&call.result.held);
                call.operation == Operation::EnumWindows && windows != nullptr && !windows->empty()) {
                leftOut.Add(recorded.name, "windows and processes are not taken over");
            }
        }
        AddFiles(recorded, profile, leftOut);
    }
}

} // namespace tool
