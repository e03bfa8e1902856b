#include "platform/system_power.h"

#include "platform/back_end.h"
#include "platform/windows/support/native.h"

namespace VESK_BACK_END {

bool GetSystemTimes(SystemTimes& times) {
    FILETIME idle{};
    FILETIME kernel{};
    FILETIME user{};
    const BOOL done = ::GetSystemTimes(&idle, &kernel, &user);
    times = {Ticks(idle), Ticks(kernel), Ticks(user)};
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

} // namespace VESK_BACK_END
