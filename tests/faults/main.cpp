// The fault sweep: whatever fails, no export crashes, leaks, writes beyond its buffer or takes a failure for an
// answer, and the next call is right again.
#include "budget.h"
#include "causes.h"
#include "machine_stage.h"
#include "sweep.h"

#include "machine/models/trace_sink.h"

#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <span>
#include <string_view>

namespace {

using namespace sweep;
using exports::Group;
using enum exports::Group;

constexpr int Interrupted = 128 + SIGINT;

volatile std::sig_atomic_t InterruptCame = 0;

/// One machine in one situation, with the groups of exports for which it differs from the others.
struct Scene {
    Situation situation;
    std::vector<Group> groups; // none: all
};

/// Another process has locked the settings files.
constexpr const char* LockedSettings = R"({"files": {
    "directories": ["C:\\ProgramData\\Vesk\\VeskTessaly"],
    "files": [{"path": "C:\\ProgramData\\Vesk\\VeskTessaly\\BatteryHealthSetting.txt", "text": "60\n"},
              {"path": "C:\\ProgramData\\Vesk\\VeskTessaly\\QuietFanSetting.txt", "text": "3\n"}],
    "locked": ["C:\\ProgramData\\Vesk\\VeskTessaly\\BatteryHealthSetting.txt",
               "C:\\ProgramData\\Vesk\\VeskTessaly\\QuietFanSetting.txt"]}})";

/// A packaged application is minimised: its core window is next to its frame.
constexpr const char* MinimisedFrame = R"({"windows": [
    {"name": "frame", "process": 6004, "class": "ApplicationFrameWindow", "title": "Calculator", "minimised": true},
    {"name": "core", "process": 6248, "class": "Windows.UI.Core.CoreWindow", "title": "Calculator",
     "visible": false}]})";

std::vector<Scene> Scenes() {
    const std::vector<Group> ec{Identity, Battery, BatteryEc, Thermal, Processor, System};
    const std::vector<Group> radios{Wifi, Bluetooth, Adapters};
    const std::vector<Group> firmware{FirmwareLog, FirmwareVariables, Features};
    std::vector<Scene> scenes{
        {{}, {}},
        {{.used = true}, {}},
        {{.session = false}, {}},
        {{.used = true, .initCom = 0}, {Features, Inventory, Adapters, System}},
        {{.machine = "awkward-wmi", .lacking = true}, {Inventory, Adapters, Usage}},
        {{.machine = "bare-firmware", .used = true, .lacking = true}, firmware},
        {{.used = true, .changes = LockedSettings}, {Features}},
        {{.changes = MinimisedFrame}, {Usage}},
        {{.machine = "ab"}, ec}, // the EC is identified on the way
    };
    for (const char* name : {"ab", "ab-chip-1", "ar", "cf", "gl", "kl-chip-1", "kl-chip-2", "pc", "wl",
                             "awkward-battery", "awkward-sensors", "no-identity", "unknown-code"}) {
        scenes.push_back({{.machine = name, .used = true}, ec});
    }
    for (const char* name : {"radios-none", "radios-two", "wifi-he", "wifi-ht", "wifi-open", "wifi-vht160"}) {
        scenes.push_back({{.machine = name}, radios});
    }
    return scenes;
}

/// On a terminal only; not in a pipe.
void ShowProgress(const Situation& where, std::string_view name) {
    static const bool Terminal = ::isatty(STDERR_FILENO) != 0;
    if (Terminal) {
        std::cerr << "\r\033[K" << where.machine << (where.used ? ", used" : "") << "  " << name
                  << std::flush;
    }
}

void Play(const Scene& scene, Tally& tally) {
    MachineStage stage(scene.situation);
    for (const exports::Export& row : exports::AllExports()) {
        const bool belongs = scene.groups.empty() || std::ranges::count(scene.groups, row.group) != 0;
        if (belongs && InterruptCame == 0) {
            ShowProgress(scene.situation, row.name);
            SweepReading(stage, {&row, CallOf(row, scene.situation.initCom, BufferSizeOf(row))}, tally);
        }
    }
}

/// The operations that the sweep has not reached. None has a reason to be missing.
std::vector<std::string_view> Missing(const Tally& tally) {
    std::vector<std::string_view> missing;
    for (std::size_t place = 0; place < tally.reached.size(); ++place) {
        if (tally.reached[place] == 0) {
            missing.push_back(observer::OperationTable[place].name);
        }
    }
    return missing;
}

/// Every failure, or a fixed sample: one in so many.
int SweepAll(std::uint64_t oneIn) {
    Tally tally{.oneIn = oneIn};
    for (const Scene& scene : Scenes()) {
        Play(scene, tally);
    }
    ShowProgress({}, "");
    for (const std::string& complaint : tally.complaints) {
        std::cout << complaint << '\n';
    }
    const auto missing =
        oneIn == 1 ? Missing(tally) : std::vector<std::string_view>{}; // of a sample, some are
    for (const std::string_view name : missing) {
        std::cout << "never reached: " << name << '\n';
    }
    std::cout << tally.callFaults << " failed calls and " << tally.heapFaults << " failed allocations in "
              << Scenes().size() << " situations, " << tally.reached.size() - missing.size() << " of "
              << tally.reached.size() << " operations reached: " << tally.complaints.size()
              << " complaints\n";
    return InterruptCame != 0 ? Interrupted : tally.complaints.empty() && missing.empty() ? 0 : 1;
}

/// That the tool names the failed call, of every failure or of a sample.
int SweepAllCauses(std::uint64_t oneIn) {
    Tally tally{.oneIn = oneIn};
    for (const Scene& scene : Scenes()) {
        MachineStage stage(scene.situation, true);
        for (const exports::Export& row : exports::AllExports()) {
            const bool belongs = scene.groups.empty() || std::ranges::count(scene.groups, row.group) != 0;
            if (belongs && row.report == exports::InReport::Called && InterruptCame == 0) {
                ShowProgress(scene.situation, row.name);
                SweepCauses(stage, {&row, CallOf(row, scene.situation.initCom, BufferSizeOf(row))}, tally);
            }
        }
    }
    ShowProgress({}, "");
    for (const std::string& complaint : tally.complaints) {
        std::cout << complaint << '\n';
    }
    std::cout << tally.callFaults << " failures that change a reading: " << tally.unseen
              << " look like an ordinary answer, " << tally.complaints.size() << " have another cause\n";
    return InterruptCame != 0 ? Interrupted : tally.complaints.empty() && tally.callFaults != 0 ? 0 : 1;
}

int SweepPlanted() {
    MachineStage stage({});
    return FindsPlanted(stage, true, std::cout) ? 0 : 1;
}

int Obey(std::span<const std::string_view> arguments) {
    if (arguments.empty()) {
        return SweepAll(1);
    }
    if (arguments.size() == 2 && arguments[0] == "--one-in") {
        const std::string count(arguments[1]);
        return SweepAll(std::max(1UL, std::strtoul(count.c_str(), nullptr, 10)));
    }
    if (arguments.size() == 2 && arguments[0] == "--causes") {
        const std::string count(arguments[1]);
        return SweepAllCauses(std::max(1UL, std::strtoul(count.c_str(), nullptr, 10)));
    }
    if (arguments.size() == 1 && arguments[0] == "--planted") {
        return SweepPlanted();
    }
    if (arguments.size() == 1 && arguments[0] == "--costs") {
        PrintCosts(std::cout);
        return std::cout.flush() ? 0 : 1;
    }
    if (arguments.size() == 2 && arguments[0] == "--budget") {
        return CheckBudget(std::string(arguments[1]), std::cout) ? 0 : 1;
    }
    std::cerr
        << "usage: fault_sweep [--one-in COUNT | --causes COUNT | --planted | --costs | --budget FILE]\n";
    return 2;
}

} // namespace

int main(int count, char** arguments) {
    // The machines' files are made and flushed many thousand times.
    if (std::filesystem::is_directory("/dev/shm")) {
        ::setenv("TMPDIR", "/dev/shm", 1);
    }
    std::signal(SIGINT, [](int) { InterruptCame = 1; });
    constexpr std::uint8_t EveryLevel = 0;
    machine::Traces().Attach(EveryLevel);
    try {
        return Obey(std::vector<std::string_view>(arguments + 1, arguments + count));
    } catch (const std::exception& problem) {
        std::cerr << "fault_sweep: " << problem.what() << '\n';
        return 2;
    }
}
