#include "machine/services/system_power.h"

#include "machine/machine.h"
#include "machine/models/machine_course.h"
#include "machine/profile/profile.h"
#include "machine/services/clock.h"
#include "observer/gate.h"
#include "platform/back_end.h"
#include "platform/system_power.h"

namespace machine {

SystemTimesSample ProcessorTimes::Now(const Clock& clock, const MachineCourse* course) {
    constexpr double UnitsPerMicrosecond = 10;
    constexpr double UnitsPerSecond = 10'000'000;
    if (!m_profile.samples.empty()) {
        const SystemTimesSample sample = m_profile.samples[m_nextSample];
        m_nextSample += m_nextSample + 1 < m_profile.samples.size() ? 1 : 0;
        return sample;
    }
    const double time = static_cast<double>(clock.Now().count()) * UnitsPerMicrosecond * m_profile.processors;
    const double busy = course != nullptr
                            ? course->Load().BusySeconds(std::chrono::duration<double>(clock.Now()).count()) *
                                  UnitsPerSecond * m_profile.processors
                            : time * m_profile.load;
    const double busyInKernel = busy * m_profile.kernelShare;
    SystemTimesSample sample;
    sample.idle = static_cast<std::uint64_t>(time - busy);
    sample.kernel = sample.idle + static_cast<std::uint64_t>(busyInKernel);
    sample.user = static_cast<std::uint64_t>(busy - busyInKernel);
    return sample;
}

} // namespace machine

namespace VESK_BACK_END {

using machine::Call;
using machine::Current;
using machine::Operation;

bool GetSystemTimes(SystemTimes& times) {
    Call call(Operation::GetSystemTimes);
    if (call.Refused()) {
        machine::SetLastError(call.RefusalCode());
        return call.Answered(false);
    }
    machine::Machine& machine = Current();
    const machine::SystemTimesSample sample =
        machine.processorTimes.Now(machine.clock, machine.course ? &*machine.course : nullptr);
    times = {sample.idle, sample.kernel, sample.user};
    call.Note([&] {
        return "idle " + std::to_string(sample.idle) + " kernel " + std::to_string(sample.kernel) + " user " +
               std::to_string(sample.user);
    });
    return call.Answered(true);
}

bool GetSystemPowerStatus(SystemPowerStatus& status) {
    constexpr std::uint32_t UnknownTime = 0xFFFFFFFF;
    Call call(Operation::GetSystemPowerStatus);
    if (call.Refused()) {
        machine::SetLastError(call.RefusalCode());
        return call.Answered(false);
    }
    const machine::Machine& machine = Current();
    const std::uint8_t acLine =
        machine.course ? machine.course->AcLine(machine.clock.Now()) : machine.profile.systemPower.acLine;
    status = {acLine, 255, 255, UnknownTime, UnknownTime};
    call.Note([&] { return "line " + std::to_string(status.acLineStatus); });
    return call.Answered(true);
}

} // namespace VESK_BACK_END
