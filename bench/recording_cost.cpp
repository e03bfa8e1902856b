// What recording to a file costs for each boundary call: the median of many export calls with a recorder and without.
#include "machine/machine.h"
#include "machine/profile/profile.h"
#include "observer/observer.h"
#include "observer/recording/recorder.h"
#include "vesk_sondrel.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

/// Of one run in microseconds.
double Median(const std::function<void()>& work) {
    constexpr std::size_t Runs = 301;
    std::vector<double> times;
    for (std::size_t run = 0; run < Runs; ++run) {
        const auto start = Clock::now();
        work();
        times.push_back(std::chrono::duration<double, std::micro>(Clock::now() - start).count());
    }
    std::ranges::nth_element(times, times.begin() + Runs / 2);
    return times[Runs / 2];
}

std::uint64_t CallsOf(const std::function<void()>& work) {
    observer::Restart();
    work();
    return observer::CurrentCosts().calls;
}

} // namespace

int main() {
    machine::Start(machine::LoadProfile("default"), ":memory:");
    InitializeSondrel();
    static std::array<VeskChar16, 4096> wide;
    static std::array<char, 64> narrow;
    const std::pair<const char*, std::function<void()>> works[] = {
        {"WMI (WMIGetSN)",
         [] {
             WMIGetSN(wide.data(), 1);
         }},
        {"EC (Thermal_Read_Fan)",
         [] {
             Thermal_Read_Fan(narrow.data());
         }},
        {"registry (GetInfVersion)",
         [] {
             GetInfVersion(wide.data());
         }},
    };
    const std::string file = std::filesystem::temp_directory_path() / "sondrel-bench.rec";
    std::puts("recording                   calls   plain us   recorded us   us a call");
    for (const auto& [name, work] : works) {
        work(); // what is cached is read now
        const std::uint64_t calls = CallsOf(work);
        const double plain = Median(work);
        std::filesystem::remove(file);
        observer::Recorder recorder;
        if (std::string problem; !recorder.Create(file, problem)) {
            std::fprintf(stderr, "%s: %s\n", file.c_str(), problem.c_str());
            return 2;
        }
        observer::AddSink(recorder);
        const double recorded = Median(work);
        observer::RemoveSink(recorder);
        std::printf("%-26s %6llu %10.1f %13.1f %11.2f\n", name, static_cast<unsigned long long>(calls), plain,
                    recorded, (recorded - plain) / static_cast<double>(calls));
    }
    std::filesystem::remove(file);
    ShutdownSondrel();
    return 0;
}
