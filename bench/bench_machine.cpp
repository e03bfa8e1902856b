#include "bench_machine.h"

#include "frame/registry_store.h"
#include "frame/session.h"
#include "platform/registry.h"
#include "platform/simulated/machine.h"
#include "platform/time.h"
#include "vesk_sondrel.h"

#include <atomic>
#include <cstdlib>
#include <new>
#include <sstream>

namespace {

std::atomic<std::uint64_t> AllocationCount{0};

} // namespace

// Replaced so that every allocation of the process is counted. The others come down to these.
void* operator new(std::size_t size) {
    AllocationCount.fetch_add(1, std::memory_order_relaxed);
    if (void* const memory = std::malloc(size != 0 ? size : 1)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace bench {

std::uint64_t Allocations() {
    return AllocationCount.load(std::memory_order_relaxed);
}

SessionOnMachine::SessionOnMachine(const std::string& name) {
    machine::Start(machine::LoadProfile(name), ":memory:");
    InitializeSondrel();
    EC_ReadEcFwRev();
    EC_ReadEcChipId();
}

SessionOnMachine::~SessionOnMachine() {
    ShutdownSondrel();
}

void BareExchange(const EcBytes& request) {
    EcBytes wire = request;
    std::uint32_t returned = 0;
    platform::DeviceIoControl(sondrel::DriverHandle, sondrel::driver_request::EcCommand, wire, wire,
                              returned);
}

std::vector<std::string> Transcript(const std::function<void()>& work) {
    std::vector<std::string> lines;
    machine::Current().gate.Transcribe([&lines](const std::string& line) { lines.push_back(line); });
    work();
    machine::Current().gate.Transcribe({});
    return lines;
}

std::size_t CountOf(const std::vector<std::string>& transcript, const std::string& operation) {
    std::size_t count = 0;
    for (const std::string& line : transcript) {
        count += line.starts_with(operation) ? 1 : 0;
    }
    return count;
}

namespace {

EcBytes BytesOf(const std::string& hexadecimal) {
    EcBytes bytes{};
    for (std::size_t place = 0; place < bytes.size(); ++place) {
        bytes[place] = static_cast<std::byte>(std::stoul(hexadecimal.substr(place * 2, 2), nullptr, 16));
    }
    return bytes;
}

/// A value of the product key, read with the platform's four calls.
void BareRegistryRead(const std::u16string& name) {
    platform::OwnedKey key;
    platform::RegOpenKeyExW(platform::Key::LocalMachine, sondrel::ProductKey, platform::access::KeyRead,
                            key.Receive());
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    std::uint32_t number = 0;
    platform::RegQueryValueExW(key.Get(), name.c_str(), type, nullptr, size);
    size = sizeof number;
    platform::RegQueryValueExW(key.Get(), name.c_str(), type, reinterpret_cast<std::byte*>(&number), size);
}

} // namespace

std::vector<PlatformCall> Replay(const std::vector<std::string>& transcript, bool registry) {
    std::vector<PlatformCall> calls;
    for (const std::string& line : transcript) {
        std::istringstream words(line);
        std::string operation;
        std::string first;
        std::string second;
        std::string third;
        words >> operation >> first >> second >> third;
        if (operation == "DeviceIoControl") {
            calls.emplace_back([request = BytesOf(third)] { BareExchange(request); });
        } else if (operation == "Sleep") {
            const auto milliseconds = static_cast<std::uint32_t>(std::stoul(first));
            calls.emplace_back([milliseconds] { platform::Sleep(milliseconds); });
        } else if (registry && operation == "RegQueryValueExW" && second == "size") {
            const std::u16string name(first.begin(), first.end());
            calls.emplace_back([name] { BareRegistryRead(name); });
        }
    }
    return calls;
}

} // namespace bench
