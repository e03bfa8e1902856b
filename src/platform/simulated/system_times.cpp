#include "platform/simulated/system_times.h"

#include "platform/simulated/gate.h"
#include "platform/simulated/machine.h"
#include "platform/system_times.h"

namespace machine {

SystemTimes SystemTimesNow() {
    constexpr std::uint64_t Processors = 8;
    constexpr std::uint64_t TicksPerMicrosecond = 10;
    const auto all =
        static_cast<std::uint64_t>(Current().clock.Now().count()) * TicksPerMicrosecond * Processors;
    const std::uint64_t user = all / 10;
    return {all - user - user, all - user, user};
}

} // namespace machine

namespace platform {

bool GetSystemTimes(std::uint64_t& idle, std::uint64_t& kernel, std::uint64_t& user) {
    machine::Call call(machine::Operation::GetSystemTimes);
    if (call.Refused()) {
        machine::SetLastError(call.RefusalCode());
        return call.Answered(false);
    }
    const machine::SystemTimes times = machine::SystemTimesNow();
    idle = times.idle;
    kernel = times.kernel;
    user = times.user;
    return call.Answered(true);
}

} // namespace platform
