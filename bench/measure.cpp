#include "measure.h"

#include "frame/session.h"
#include "heap.h"
#include "observer/back_end.h"
#include "observer/observer.h"
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

/// What one run costs.
struct Observation {
    double whole = 0;              // seconds
    double below = 0;              // those of them in the machine
    std::uint64_t allocations = 0; // the library's
    std::uint64_t calls = 0;
};

double SecondsOf(const std::function<void()>& work) {
    const auto start = Clock::now();
    work();
    return Seconds(Clock::now() - start).count();
}

Observation Observed(const std::function<void()>& work) {
    Observation seen;
    observer::Restart();
    heap::Restart();
    {
        const heap::InLibrary here;
        seen.whole = SecondsOf(work);
    }
    const observer::Costs costs = observer::CurrentCosts();
    seen.allocations = heap::Count();
    seen.below = Seconds(costs.inBackEnd).count();
    seen.calls = costs.calls;
    return seen;
}

/// What the observer does to the figures of one call, learnt from calls that do nothing.
struct Bias {
    double before = 0; // what a call takes without the observer beyond what the observer measures
    double around = 0; // what the observer itself takes outside of what it measures
};

Bias BiasOfObserving() {
    constexpr unsigned Calls = 1000;
    const auto repeat = [](void (*close)(platform::Handle)) {
        for (unsigned call = 0; call < Calls; ++call) {
            close(platform::Handle::Null);
        }
    };
    double plain = 1;
    Observation least{.whole = 1};
    for (unsigned attempt = 0; attempt < 500; ++attempt) {
        plain = std::min(plain, SecondsOf([&] { repeat(platform::back_end::CloseHandle); }));
        const Observation seen = Observed([&] { repeat(platform::CloseHandle); });
        least = seen.whole < least.whole ? seen : least;
    }
    return {(plain - least.below) / Calls, (least.whole - least.below) / Calls};
}

/// Puts the library on a fresh machine that keeps nothing, with a session open and its identity cached. A machine
/// that is there already stays: some take longer to build than to measure.
void GoTo(const Case& measured, std::size_t items) {
    static std::string Present;
    const std::string wanted = measured.name + '/' + std::to_string(items);
    if (Present == wanted) {
        return;
    }
    while (sondrel::SessionOpen != 0) {
        ShutdownSondrel();
    }
    machine::Start(measured.machine(items), ":memory:");
    InitializeSondrel();
    EC_ReadEcFwRev();
    EC_ReadEcChipId();
    Present = wanted;
}

void Measure(benchmark::State& state, const Case& measured) {
    const auto items = static_cast<std::size_t>(state.range(0));
    GoTo(measured, items);
    static const Bias OfObserving = BiasOfObserving();
    const std::size_t times = std::max<std::size_t>(1, 20 / items); // short cases run many times
    const auto work = [&] {
        for (std::size_t time = 0; time < times; ++time) {
            measured.go();
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
    const double bare = least.below + calls * OfObserving.before;
    const double above = std::max(0.0, least.whole - least.below - calls * OfObserving.around);
    const auto gone = static_cast<double>(times * items);
    state.counters["seconds"] = (bare + above) / gone;
    state.counters["ratio"] = (bare + above) / bare;
    state.counters["allocations"] = static_cast<double>(least.allocations) / gone;
    state.counters["calls"] = calls / gone;
}

} // namespace

void Register(const Case& measured, bool grows) {
    constexpr int Repetitions = 5;
    auto* const made = benchmark::RegisterBenchmark(
        measured.name.c_str(), [measured](benchmark::State& state) { Measure(state, measured); });
    for (const std::int64_t items :
         grows ? std::vector<std::int64_t>{1000, 10'000, 100'000} : std::vector<std::int64_t>{1}) {
        made->Arg(items);
    }
    made->UseManualTime()->MinTime(0.2)->Repetitions(Repetitions)->DisplayAggregatesOnly(true);
}

} // namespace bench
