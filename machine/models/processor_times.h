// The counters that GetSystemTimes reads.
#pragma once

#include "machine/models/clock.h"
#include "machine/models/machine_course.h"
#include "machine/profile/sections/power_profile.h"

#include <cstddef>
#include <utility>

namespace machine {

class ProcessorTimes {
public:
    explicit ProcessorTimes(SystemPowerProfile profile) : m_profile(std::move(profile)) {}

    SystemTimesSample Now(const Clock& clock, const MachineCourse* course);

private:
    SystemPowerProfile m_profile;
    std::size_t m_nextSample = 0;
};

} // namespace machine
