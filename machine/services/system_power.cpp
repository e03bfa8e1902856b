#include "platform/system_power.h"

#include "machine/machine.h"
#include "platform/back_end.h"

namespace VESK_BACK_END {

bool GetSystemTimes(SystemTimes& times) {
    const auto machine = machine::Current();
    const machine::SystemTimesSample sample =
        machine->processorTimes.Now(machine->clock, machine->course ? &*machine->course : nullptr);
    times = {sample.idle, sample.kernel, sample.user};
    return true;
}

bool GetSystemPowerStatus(SystemPowerStatus& status) {
    constexpr std::uint32_t UnknownTime = 0xFFFFFFFF;
    const auto machine = machine::Current();
    const std::uint8_t acLine =
        machine->course ? machine->course->AcLine(machine->clock.Now()) : machine->profile.systemPower.acLine;
    status = {acLine, 255, 255, UnknownTime, UnknownTime};
    return true;
}

} // namespace VESK_BACK_END
