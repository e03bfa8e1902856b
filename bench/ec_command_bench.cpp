// One EC command through the library against the same exchange with the platform alone.
#include "bench_machine.h"

#include "ec/ec_command.h"

#include <benchmark/benchmark.h>

#include <cstring>

namespace {

struct Command {
    std::uint8_t command;
    std::uint8_t dataCount;
    std::uint8_t data[8];
    std::uint8_t readFlag;
};

bench::EcBytes WireOf(const Command& command) {
    bench::EcBytes wire{};
    std::memcpy(wire.data(), &command, sizeof command);
    return wire;
}

/// Both in turn within one run, so that they meet the same machine. The time of an iteration is a batch of
/// each; what counts are the counters.
void AboveBareExchange(benchmark::State& state, const Command& command) {
    constexpr std::size_t Batch = 256;
    const bench::SessionOnMachine session("default");
    const bench::EcBytes wire = WireOf(command);
    const auto bareCommand = [&wire] {
        bench::BareExchange(wire);
    };
    const auto libraryCommand = [&command] {
        std::uint32_t status = 0;
        benchmark::DoNotOptimize(
            sondrel::RwEcCmd(command.dataCount, command.command, command.data, command.readFlag, &status));
    };
    libraryCommand(); // registers the trace provider
    bench::BestOf bare;
    bench::BestOf library;
    for ([[maybe_unused]] auto iteration : state) {
        bare.Batch(Batch, bareCommand);
        library.Batch(Batch, libraryCommand);
    }
    const std::uint64_t before = bench::Allocations();
    bareCommand();
    const std::uint64_t bareAllocations = bench::Allocations() - before;
    libraryCommand();
    const std::uint64_t libraryAllocations = bench::Allocations() - before - bareAllocations;
    state.counters["bare_ns"] = bare.Nanoseconds();
    state.counters["library_ns"] = library.Nanoseconds();
    state.counters["above_ns"] = library.Nanoseconds() - bare.Nanoseconds();
    state.counters["bare_allocations"] = static_cast<double>(bareAllocations);
    state.counters["above_allocations"] =
        static_cast<double>(libraryAllocations) - static_cast<double>(bareAllocations);
}

BENCHMARK_CAPTURE(AboveBareExchange, one_byte_read, Command{0xBB, 1, {0x10}, 1});
BENCHMARK_CAPTURE(AboveBareExchange, two_byte_read, Command{0x80, 2, {0x03, 0xA0}, 1});
BENCHMARK_CAPTURE(AboveBareExchange, three_byte_write, Command{0xA1, 3, {0x02, 0x20, 0x20}, 0});
BENCHMARK_CAPTURE(AboveBareExchange, eight_byte_write, Command{0xAB, 8, {1, 2, 3, 4, 5, 6, 7, 255}, 0});

} // namespace
