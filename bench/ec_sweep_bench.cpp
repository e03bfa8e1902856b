// All EC readings of a machine against the platform calls that they come down to.
#include "bench_machine.h"

#include "vesk_sondrel.h"

#include <benchmark/benchmark.h>

namespace {

constexpr double DispatchedReadings = 26; // those below, the lists counted by their four places

void Sweep() {
    char text[44];
    benchmark::DoNotOptimize(Thermal_Read_Cpu_Temperature());
    benchmark::DoNotOptimize(Thermal_Read_BoardTS0L_Temperature());
    benchmark::DoNotOptimize(Thermal_Read_BoardTS0R_Temperature());
    benchmark::DoNotOptimize(Thermal_Read_GpuTS1L_Temperature());
    benchmark::DoNotOptimize(Thermal_Read_GpuTS1R_Temperature());
    benchmark::DoNotOptimize(Thermal_Read_BatteryConnector_Temperature());
    benchmark::DoNotOptimize(Thermal_Read_ACFET_Temperature());
    benchmark::DoNotOptimize(Thermal_Read_ChargerChoke_Temperature());
    benchmark::DoNotOptimize(Thermal_Read_GpuVrm_Temperature());
    benchmark::DoNotOptimize(Thermal_Read_UpCpu_Temperature());
    benchmark::DoNotOptimize(Thermal_Read_GpuVram_Temperature());
    benchmark::DoNotOptimize(Battery_Get_LidStatus());
    benchmark::DoNotOptimize(Battery_Read_ChargingVoltage());
    benchmark::DoNotOptimize(Battery_Read_PackageVoltage());
    benchmark::DoNotOptimize(Battery_Read_Temperature());
    benchmark::DoNotOptimize(Battery_Read_Current());
    Battery_Read_ManufactureDate(text);
    benchmark::DoNotOptimize(text);
    Battery_Read_ManufactureName(text);
    benchmark::DoNotOptimize(text);
    Thermal_Read_Fan(text);
    benchmark::DoNotOptimize(text);
    Battery_Read_CellVoltage(text);
    benchmark::DoNotOptimize(text);
}

void RunAll(const std::vector<bench::PlatformCall>& calls) {
    for (const bench::PlatformCall& call : calls) {
        call();
    }
}

void EcSweep(benchmark::State& state, const char* machine) {
    const bench::SessionOnMachine session(machine);
    const auto transcript = bench::Transcript(Sweep);
    const auto requests = bench::Replay(transcript, false);
    const auto everything = bench::Replay(transcript, true);
    bench::BestOf bareRequests;
    bench::BestOf bareEverything;
    bench::BestOf library;
    for ([[maybe_unused]] auto iteration : state) {
        bareRequests.Batch(1, [&requests] { RunAll(requests); });
        bareEverything.Batch(1, [&everything] { RunAll(everything); });
        library.Batch(1, Sweep);
    }
    const auto commands = static_cast<double>(bench::CountOf(transcript, "DeviceIoControl"));
    // Each read of a value asks twice: for its type and size, then for its data.
    const double registryReads = static_cast<double>(bench::CountOf(transcript, "RegQueryValueExW")) / 2;
    state.counters["commands"] = commands;
    state.counters["registry_reads_per_reading"] = registryReads / DispatchedReadings;
    state.counters["requests_us"] = bareRequests.Nanoseconds() / 1000;
    state.counters["requests_and_registry_us"] = bareEverything.Nanoseconds() / 1000;
    state.counters["library_us"] = library.Nanoseconds() / 1000;
    state.counters["above_ns_per_command"] =
        (library.Nanoseconds() - bareEverything.Nanoseconds()) / commands;
}

BENCHMARK_CAPTURE(EcSweep, map_a, "ab");
BENCHMARK_CAPTURE(EcSweep, map_b, "cf");
BENCHMARK_CAPTURE(EcSweep, map_c, "default");
BENCHMARK_CAPTURE(EcSweep, map_d, "kl-chip-1");

} // namespace
