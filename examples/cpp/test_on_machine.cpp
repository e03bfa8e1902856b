// A host's own tests on simulated machines, without a test framework; with one, VeskMachine_Start is the set-up.
//
// What the library caches in a process (Wi-Fi, Bluetooth, disk temperatures) needs a process for each machine; everything
// else can change its machine from test to test.
#include <vesk_sondrel.hpp>
#include <vesk_sondrel_machine.h>
#include <vesk_sondrel_observer.h>

#include <cstdio>
#include <exception>

namespace {

int failed = 0;

void Check(bool condition, const char* what) {
    if (!condition) {
        std::printf("failed: %s\n", what);
        ++failed;
    }
}

void Start(const char* machine) {
    char problem[512] = "";
    Check(VeskMachine_Start(machine, ":memory:", problem, sizeof problem) == 1, problem);
}

/// The host's rule: nothing where this machine does not say.
std::optional<bool> TooHot(const vesk::Session& session) {
    const auto degrees = session.thermal().cpu_temperature();
    return degrees ? std::optional(degrees->value > 90) : std::nullopt;
}

void TestMachineThatDoesNotSay(const vesk::Library& library) {
    Start("unknown-code");
    Check(TooHot(*library.open_session()) == std::nullopt, "no answer without a temperature");
}

void TestMachineUnderLoad(const vesk::Library& library) {
    Start("living");
    const auto session = library.open_session();
    for (int i = 0; i < 60; ++i) {
        VeskMachine_PassTime(10'000'000);
        Check(TooHot(*session) == false, "never too hot");
    }
}

void TestAll() {
    const vesk::Library library = vesk::Library::linked();
    TestMachineThatDoesNotSay(library);
    TestMachineUnderLoad(library);
}

} // namespace

int main() {
    try {
        TestAll();
    } catch (const std::exception& error) {
        Check(false, error.what());
    }
    Check(VeskObserver_ListOpen(nullptr, nullptr) == 0, "the host closes what it opens");
    std::printf("%d failed\n", failed);
    return failed == 0 ? 0 : 1;
}
