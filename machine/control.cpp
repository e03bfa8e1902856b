// The machine's C interface, for the tool and for hosts under test.
#include "vesk_sondrel_machine.h"

#include "machine/machine.h"
#include "machine/profile/built_in_machines.h"
#include "machine/profile/profile.h"
#include "machine/services/clock.h"
#include "machine/services/trace_sink.h"
#include "machine/text/wide_text.h"

#include <algorithm>
#include <cstring>

namespace {

void Tell(const std::string& problem, char* out, std::size_t size) {
    if (out == nullptr || size == 0) {
        return;
    }
    const std::size_t length = std::min(problem.size(), size - 1);
    std::memcpy(out, problem.data(), length);
    out[length] = '\0';
}

/// The listener outlives a machine that is replaced: each new machine is given it.
struct Listening {
    VeskMachine_Listener listener = nullptr;
    void* context = nullptr;
    bool calls = false;

    void Apply() const {
        using namespace machine;
        const Listening self = *this;
        const auto tell = [self](int kind, const std::string& line) {
            self.listener(self.context, kind, line.c_str());
        };
        if (listener == nullptr) {
            Traces().Detach();
            Traces().OnEvent({});
            Current().onLoggedEvent = {};
            Current().gate.Transcribe({});
            return;
        }
        Traces().OnEvent(
            [tell](const TraceEvent& event) { tell(VESK_MACHINE_DEBUG_LINE, Utf8FromWide(event.text)); });
        Current().onLoggedEvent = [tell](const LoggedEvent& event) {
            tell(VESK_MACHINE_EVENT_LINE, Utf8FromWide(event.strings.back()));
        };
        if (calls) {
            Current().gate.Transcribe(
                [tell](const std::string& line) { tell(VESK_MACHINE_CALL_LINE, line); });
        } else {
            Current().gate.Transcribe({});
        }
        constexpr std::uint8_t EveryLevel = 0;
        Traces().Attach(EveryLevel);
    }
};

Listening TheListening;

} // namespace

int VeskMachine_Start(const char* machineName, const char* store, char* problem, size_t size) {
    try {
        machine::Profile profile = machine::LoadProfile(machineName);
        const std::string path = store != nullptr ? store : machine::DefaultStorePath(profile);
        machine::Start(std::move(profile), path);
        if (TheListening.listener != nullptr) {
            TheListening.Apply();
        }
        return 1;
    } catch (const std::exception& failure) {
        Tell(failure.what(), problem, size);
        return 0;
    }
}

const char* VeskMachine_BuiltIn(size_t index) {
    const auto machines = machine::BuiltInMachineTexts();
    return index < machines.size() ? machines[index].name.data() : nullptr;
}

void VeskMachine_Listen(VeskMachine_Listener listener, void* context, int calls) {
    const std::lock_guard lock(machine::MachineMutex());
    TheListening = {listener, context, calls != 0};
    TheListening.Apply();
}

void VeskMachine_TieToRealTime(int tied) {
    const std::lock_guard lock(machine::MachineMutex());
    machine::Current().clock.TieToRealTime(tied != 0);
}

void VeskMachine_PassTime(uint64_t microseconds) {
    const std::lock_guard lock(machine::MachineMutex());
    machine::Current().clock.Advance(std::chrono::microseconds(microseconds));
}

uint64_t VeskMachine_Microseconds(void) {
    const std::lock_guard lock(machine::MachineMutex());
    return static_cast<uint64_t>(machine::Current().clock.Now().count());
}

size_t VeskMachine_OpenThings(void) {
    const std::lock_guard lock(machine::MachineMutex());
    return machine::Current().gate.OpenThings().size();
}
