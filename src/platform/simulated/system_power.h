// The counters behind GetSystemTimes.
#pragma once

#include "platform/simulated/clock.h"
#include "platform/simulated/machine_course.h"
#include "platform/simulated/system_power_profile.h"

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
