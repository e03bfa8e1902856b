// The fault sweep on the real DLLs under Wine: every allocation of each export of the shipped one fails once; on the
// observed one every boundary call in each of its ways, and every allocation of the core.
#include "sweep.h"
#include "wine_stage.h"

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <span>

namespace {

using namespace sweep;

struct Scene {
    const char* name;
    Tested tested;
    bool used;
};

constexpr Scene Scenes[] = {
    {"the shipped DLL", Tested::Shipped, true},
    {"the observed DLL", Tested::Observed, true},
    {"the shipped DLL at its first use", Tested::Shipped, false},
    {"the observed DLL at its first use", Tested::Observed, false},
};

const char* FileOf(Tested tested) {
    return tested == Tested::Shipped ? "VeskSondrel64.dll" : "observed\\VeskSondrel64.dll";
}

std::string Where; // for the one message that a terminated process can still write

void Terminated(int) {
    std::cout << Where << ": the process was terminated" << std::endl;
    std::_Exit(1);
}

LONG WINAPI Crashed(EXCEPTION_POINTERS*) {
    Terminated(0);
    return EXCEPTION_CONTINUE_SEARCH;
}

/// How much of the whole is swept.
struct Extent {
    std::uint64_t oneIn = 1;
    std::string_view only; // the export; empty: all
};

Tally Play(const Scene& scene, const Extent& extent) {
    const std::string file = FileOf(scene.tested);
    WineStage stage({.used = scene.used}, scene.tested, std::wstring(file.begin(), file.end()));
    stage.Restart();
    for (const exports::Export& row : exports::AllExports()) { // what Wine itself opens once
        stage.Play(CallOf(row, 1, BufferSizeOf(row)));
    }
    Tally tally{.oneIn = extent.oneIn};
    for (const exports::Export& row : exports::AllExports()) {
        if (!extent.only.empty() && row.name != extent.only) {
            continue;
        }
        Where = std::string(scene.name).append(", ").append(row.name);
        SweepReading(stage, {&row, CallOf(row, 1, BufferSizeOf(row))}, tally);
    }
    return tally;
}

int SweepAll(const Extent& extent, std::span<const Scene> scenes) {
    std::size_t complaints = 0;
    for (const Scene& scene : scenes) {
        const Tally tally = Play(scene, extent);
        for (const std::string& complaint : tally.complaints) {
            std::cout << complaint << '\n';
        }
        complaints += tally.complaints.size();
        std::cout << scene.name << ": " << tally.callFaults << " failed calls and " << tally.heapFaults
                  << " failed allocations, of " << tally.planned
                  << " that there are: " << tally.complaints.size() << " complaints" << std::endl;
    }
    return complaints == 0 ? 0 : 1;
}

int SweepPlanted() {
    bool all = true;
    for (const Tested tested : {Tested::Shipped, Tested::Observed}) {
        WineStage stage({}, tested, L"planted\\VeskSondrel64.dll");
        all = FindsPlanted(stage, tested == Tested::Observed, std::cout) && all;
    }
    return all ? 0 : 1;
}

int Obey(std::span<char* const> arguments) {
    if (arguments.empty()) {
        return SweepAll({}, Scenes);
    }
    const std::string_view first = arguments[0];
    if (arguments.size() == 1 && first == "--planted") {
        return SweepPlanted();
    }
    if (arguments.size() == 2 && first == "--one-in") {
        constexpr std::size_t Used = 2; // the situations with the most calls
        const std::uint64_t oneIn = std::max(1UL, std::strtoul(arguments[1], nullptr, 10));
        return SweepAll({.oneIn = oneIn}, std::span(Scenes).first(Used));
    }
    if (arguments.size() == 2 && first == "--export") {
        return SweepAll({.only = arguments[1]}, Scenes);
    }
    std::cerr << "usage: windows_fault_sweep [--planted | --one-in COUNT | --export NAME]\n";
    return 2;
}

} // namespace

int main(int count, char** arguments) {
    std::signal(SIGABRT, Terminated);
    ::SetUnhandledExceptionFilter(&Crashed);
    try {
        return Obey(std::span(arguments + 1, static_cast<std::size_t>(count - 1)));
    } catch (const std::exception& problem) {
        std::cerr << "windows_fault_sweep: " << Where << ": " << problem.what() << '\n';
        return 2;
    }
}
