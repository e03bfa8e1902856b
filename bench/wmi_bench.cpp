// What joining and sorting cost above the bare walk of the same rows.
#include "platform/simulated/machine.h"
#include "vesk_sondrel.h"
#include "wmi/wmi_query.h"
#include "wmi/wmi_readers.h"
#include "wmi/wmi_values.h"

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace {

const std::u16string Query = u"SELECT * FROM Win32_PerfFormattedData_PerfProc_Process";

/// A machine with that many processes, of which the last ones are the busiest.
void StartWith(std::int64_t processes) {
    machine::Profile profile = machine::LoadProfile("default");
    machine::WmiClassProfile rows{u"Win32_PerfFormattedData_PerfProc_Process", {}};
    for (std::int64_t id = 1; id <= processes; ++id) {
        const std::string number = std::to_string(id);
        const std::u16string text(number.begin(), number.end());
        rows.rows.push_back({{u"Name", {u"process" + text}},
                             {u"IDProcess", {id}},
                             {u"PercentProcessorTime", {text}},
                             {u"WorkingSet", {text + u"000"}}});
    }
    profile.wmi.namespaces = {{u"ROOT\\CIMV2", {std::move(rows)}}};
    machine::Start(std::move(profile), ":memory:");
}

void BareWalkOfOneProperty(benchmark::State& state) {
    StartWith(state.range(0));
    for (auto _ : state) {
        sondrel::WalkWmiQuery(sondrel::WmiReader::PropStr, u"ROOT\\CIMV2", Query, 1,
                              [](platform::WbemObject row) {
                                  benchmark::DoNotOptimize(sondrel::ReadWmiProperty(row, u"Name"));
                              });
    }
}

void JoinOfOneProperty(benchmark::State& state) {
    StartWith(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(sondrel::ReadWMIPropStr(u"ROOT\\CIMV2", Query, u"Name", 1));
    }
}

void BareWalkOfFourProperties(benchmark::State& state) {
    StartWith(state.range(0));
    for (auto _ : state) {
        sondrel::WalkWmiQuery(
            sondrel::WmiReader::CpuUsage, u"ROOT\\CIMV2", Query, 1, [](platform::WbemObject row) {
                for (const char16_t* name : {u"Name", u"IDProcess", u"PercentProcessorTime", u"WorkingSet"}) {
                    benchmark::DoNotOptimize(sondrel::ReadWmiProperty(row, name));
                }
            });
    }
}

void ProcessList(benchmark::State& state) {
    StartWith(state.range(0));
    std::vector<VeskChar16> out(4096);
    for (auto _ : state) {
        AppList_CpuUsage(out.data());
        benchmark::DoNotOptimize(out.data());
    }
}

void TenAndAHundredThousand(benchmark::internal::Benchmark* bench) {
    bench->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(BareWalkOfOneProperty)->Apply(TenAndAHundredThousand);
BENCHMARK(JoinOfOneProperty)->Apply(TenAndAHundredThousand);
BENCHMARK(BareWalkOfFourProperties)->Apply(TenAndAHundredThousand);
BENCHMARK(ProcessList)->Apply(TenAndAHundredThousand);

} // namespace
