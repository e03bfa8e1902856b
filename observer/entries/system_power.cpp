#include "platform/system_power.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

bool GetSystemTimes(SystemTimes& times) {
    return Observe<Operation::GetSystemTimes>(back_end::GetSystemTimes, Out("times", times));
}

bool GetSystemPowerStatus(SystemPowerStatus& status) {
    return Observe<Operation::GetSystemPowerStatus>(back_end::GetSystemPowerStatus, Out("status", status));
}

} // namespace platform
