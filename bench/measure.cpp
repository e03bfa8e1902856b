#include "measure.h"

#include "frame/session.h"
#include "heap.h"
#include "platform/device_io.h"
#include "vesk_sondrel.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdint>

namespace bench {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

/// What an observer of the calls saw.
struct Observation {
    double whole = 0;              // seconds
    double behind = 0;             // those of them behind the boundary
    std::uint64_t allocations = 0; // the library's
    std::uint64_t calls = 0;
};

Observation Seen;
Clock::time_point Began;

void OnBegan() {
    heap::EnterMachine();
    ++Seen.calls;
    Began = Clock::now();
}

void OnEnded() {
    Seen.behind += Seconds(Clock::now() - Began).count();
    heap::LeaveMachine();
}

double SecondsOf(const std::function<void()>& work) {
    const auto start = Clock::now();
    work();
    return Seconds(Clock::now() - start).count();
}

Observation Observed(const std::function<void()>& work) {
    Seen = {};
    machine::ObserveCalls({OnBegan, OnEnded});
    heap::Restart();
    {
        const heap::InLibrary here;
        Seen.whole = SecondsOf(work);
    }
    Seen.allocations = heap::Count();
    machine::ObserveCalls({});
    return Seen;
}

/// What observing does to the figures of one call, learnt from calls that do nothing.
struct Bias {
    double before = 0; // what it takes unobserved above what is seen of it
    double around = 0; // what lies outside the call with an observer, of which nothing is the library's
};

Bias BiasOfObserving() {
    constexpr unsigned Calls = 1000;
    const auto work = [] {
        for (unsigned call = 0; call < Calls; ++call) {
            platform::CloseHandle(platform::Handle::Null);
        }
    };
    double plain = 1;
    Observation least{.whole = 1};
    for (unsigned attempt = 0; attempt < 500; ++attempt) {
        plain = std::min(plain, SecondsOf(work));
        if (const Observation seen = Observed(work); seen.whole < least.whole) {
            least = seen;
        }
    }
    return {(plain - least.behind) / Calls, (least.whole - least.behind) / Calls};
}

/// Puts the library on a fresh machine that keeps nothing, with a session open and its identity kept. A machine
/// that is there already stays: some take longer to build than to measure.
void GoTo(const Road& road, std::size_t items) {
    static std::string Present;
    const std::string wanted = road.name + '/' + std::to_string(items);
    if (Present == wanted) {
        return;
    }
    while (sondrel::SessionOpen != 0) {
        ShutdownSondrel();
    }
    machine::Start(road.machine(items), ":memory:");
    InitializeSondrel();
    EC_ReadEcFwRev();
    EC_ReadEcChipId();
    Present = wanted;
}

void Measure(benchmark::State& state, const Road& road) {
    const auto items = static_cast<std::size_t>(state.range(0));
    GoTo(road, items);
    static const Bias OfObserving = BiasOfObserving();
    const std::size_t times = std::max<std::size_t>(1, 20 / items); // short roads are gone many times
    const auto work = [&] {
        for (std::size_t time = 0; time < times; ++time) {
            road.go();
        }
    };
    work();
    Observation least{.whole = 1e9};
    for ([[maybe_unused]] auto iteration : state) {
        const Observation seen = Observed(work);
        state.SetIterationTime(seen.whole);
        least = seen.whole < least.whole ? seen : least;
    }
    const auto calls = static_cast<double>(least.calls);
    const double bare = least.behind + calls * OfObserving.before;
    const double above = std::max(0.0, least.whole - least.behind - calls * OfObserving.around);
    const auto gone = static_cast<double>(times * items);
    state.counters["seconds"] = (bare + above) / gone;
    state.counters["ratio"] = (bare + above) / bare;
    state.counters["allocations"] = static_cast<double>(least.allocations) / gone;
    state.counters["calls"] = calls / gone;
}

} // namespace

void Register(const Road& road, bool grows) {
    constexpr int Repetitions = 5;
    auto* const made = benchmark::RegisterBenchmark(
        road.name.c_str(), [road](benchmark::State& state) { Measure(state, road); });
    for (const std::int64_t items :
         grows ? std::vector<std::int64_t>{1000, 10'000, 100'000} : std::vector<std::int64_t>{1}) {
        made->Arg(items);
    }
    made->UseManualTime()->MinTime(0.2)->Repetitions(Repetitions)->DisplayAggregatesOnly(true);
}

} // namespace bench
