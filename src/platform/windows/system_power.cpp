#include "platform/system_power.h"

#include <windows.h>

namespace platform {
namespace {

std::uint64_t WholeNumber(const FILETIME& time) {
    return std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
}

} // namespace

bool GetSystemTimes(SystemTimes& times) {
    FILETIME idle{};
    FILETIME kernel{};
    FILETIME user{};
    const BOOL done = ::GetSystemTimes(&idle, &kernel, &user);
    times = {WholeNumber(idle), WholeNumber(kernel), WholeNumber(user)};
    return done != FALSE;
}

bool GetSystemPowerStatus(SystemPowerStatus& status) {
    SYSTEM_POWER_STATUS native{};
    const BOOL done = ::GetSystemPowerStatus(&native);
    status.acLineStatus = native.ACLineStatus;
    status.batteryFlag = native.BatteryFlag;
    status.batteryLifePercent = native.BatteryLifePercent;
    status.batteryLifeTime = native.BatteryLifeTime;
    status.batteryFullLifeTime = native.BatteryFullLifeTime;
    return done != FALSE;
}

} // namespace platform
