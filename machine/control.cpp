// The machine's C interface, for the tool and for hosts under test.
#include "vesk_sondrel_machine.h"

#include "machine/machine.h"
#include "machine/models/trace_sink.h"
#include "machine/profile/built_in_machines.h"
#include "observer/observer.h"
#include "observer/recording/start.h"
#include "unicode/utf.h"

#include <cstdio>

namespace {

/// The listener outlives a machine that is replaced: each new machine is given it.
struct Listening {
    VeskMachine_Listener listener = nullptr;
    void* context = nullptr;

    void Apply(machine::Machine& machine) const {
        using namespace machine;
        if (listener == nullptr) {
            Traces().Detach();
            Traces().OnEvent({});
            machine.onLoggedEvent = {};
            return;
        }
        const auto pass = [self = *this](int kind, const std::u16string& line) {
            self.listener(self.context, kind, unicode::Utf8FromWide(line).c_str());
        };
        Traces().OnEvent([pass](const TraceEvent& event) { pass(VESK_MACHINE_DEBUG_LINE, event.text); });
        machine.onLoggedEvent = [pass](const LoggedEvent& event) {
            pass(VESK_MACHINE_EVENT_LINE, event.strings.back());
        };
        constexpr std::uint8_t EveryLevel = 0;
        Traces().Attach(EveryLevel);
    }
};

Listening TheListening;

} // namespace

int VeskMachine_Start(const char* machineName, const char* store, char* problem, size_t size) {
    try {
        machine::StartNamed(machineName, store);
        observer::MachineIsChosen();
        observer::ForgetOpenThings();
        if (TheListening.listener != nullptr) {
            TheListening.Apply(*machine::Current());
        }
        return 1;
    } catch (const std::exception& failure) {
        if (problem != nullptr) {
            std::snprintf(problem, size, "%s", failure.what());
        }
        return 0;
    }
}

const char* VeskMachine_BuiltIn(size_t index) {
    const auto machines = machine::BuiltInMachineTexts();
    return index < machines.size() ? machines[index].name.data() : nullptr;
}

void VeskMachine_Listen(VeskMachine_Listener listener, void* context) {
    const auto machine = machine::Current();
    TheListening = {listener, context};
    TheListening.Apply(*machine);
}

void VeskMachine_TieToRealTime(int tied) {
    machine::Current()->clock.TieToRealTime(tied != 0);
}

void VeskMachine_PassTime(uint64_t microseconds) {
    machine::Current()->clock.Advance(std::chrono::microseconds(microseconds));
}

uint64_t VeskMachine_Microseconds(void) {
    return static_cast<uint64_t>(machine::Current()->clock.Now().count());
}
