// The event document against the bare device calls that it is made of: 500 registers and as many events as the
// limit admits.
#include "platform/device_io.h"
#include "platform/simulated/machine.h"
#include "vesk_sondrel.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace {

constexpr std::uint32_t Registers = 500;

/// A log of the shortest records, so that the limit admits the most of them.
void StartMachine(std::uint32_t registers) {
    machine::Start(machine::ParseProfile(
                       R"({"name": "bench", "ec": {"revision": "KL", "chip_name": "KC01"},
                           "acpi": {"log": [{}], "log_end": "never ends", "register_count": )" +
                           std::to_string(registers) + "}}",
                       "the benchmark's machine"),
                   ":memory:");
}

std::size_t EventsIn(std::u16string_view document) {
    std::size_t events = 0;
    for (auto at = document.find(u"0x5a 0xa5"); at != document.npos;
         at = document.find(u"0x5a 0xa5", at + 1)) {
        ++events;
    }
    return events;
}

void EepromDocument(benchmark::State& state) {
    StartMachine(static_cast<std::uint32_t>(state.range(0)));
    std::vector<char16_t> out(100'000 + static_cast<std::size_t>(state.range(0)) * 13);
    for (auto _ : state) {
        GetEEPROM_Data(out.data());
        benchmark::DoNotOptimize(out.data());
    }
    state.counters["events"] = static_cast<double>(EventsIn(out.data()));
}

void BareCall(std::uint32_t what) {
    const std::array<std::uint32_t, 4> request{0x53564544, 8, 0x60059, what};
    std::array<std::byte, 1024> reply;
    std::uint32_t returned = 0;
    const platform::Handle device =
        platform::CreateFileW(u"\\\\.\\ZRNACPI", platform::access::GenericReadWrite,
                              platform::share::ReadWrite, platform::OpenExisting, 0);
    platform::DeviceIoControl(device, 0x22240C, std::as_bytes(std::span(request)), reply, returned);
    platform::CloseHandle(device);
    benchmark::DoNotOptimize(reply.data());
}

/// What the same document asks of the device.
void BareDeviceCalls(benchmark::State& state) {
    const auto registers = static_cast<std::uint32_t>(state.range(0));
    StartMachine(registers);
    std::vector<char16_t> out(100'000 + registers * 13);
    GetEEPROM_Data(out.data());
    const std::size_t events = EventsIn(out.data()) + 1; // the last one is read and left out
    for (auto _ : state) {
        BareCall(0xE0);
        BareCall(0xFFE3);
        for (std::uint32_t index = 0; index < registers; ++index) {
            BareCall(0xE3 + 0x100 * index);
        }
        for (std::size_t event = 0; event < events; ++event) {
            BareCall(0xE5);
        }
    }
}

BENCHMARK(BareDeviceCalls)->Arg(Registers);
BENCHMARK(EepromDocument)->Arg(Registers);
BENCHMARK(BareDeviceCalls)->Arg(100'000);
BENCHMARK(EepromDocument)->Arg(100'000);

} // namespace
