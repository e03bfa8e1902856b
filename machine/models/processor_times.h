// The counters that GetSystemTimes reads.
#pragma once

#include "machine/models/clock.h"
#include "machine/models/machine_course.h"
#include "machine/profile/sections/power_profile.h"

#include <cstddef>

namespace machine {

struct ProcessorTimes {
    SystemTimesSample Now(const Clock& clock, const MachineCourse* course);

    const SystemPowerProfile profile;
    std::size_t nextSample = 0;
};

} // namespace machine
