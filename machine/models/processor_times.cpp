#include "machine/models/processor_times.h"

namespace machine {

SystemTimesSample ProcessorTimes::Now(const Clock& clock, const MachineCourse* course) {
    constexpr double UnitsPerMicrosecond = 10;
    constexpr double UnitsPerSecond = 10'000'000;
    if (!profile.samples.empty()) {
        const SystemTimesSample sample = profile.samples[nextSample];
        nextSample += nextSample + 1 < profile.samples.size() ? 1 : 0;
        return sample;
    }
    const double time = static_cast<double>(clock.Now().count()) * UnitsPerMicrosecond * profile.processors;
    const double busy = course != nullptr
                            ? course->Load().BusySeconds(std::chrono::duration<double>(clock.Now()).count()) *
                                  UnitsPerSecond * profile.processors
                            : time * profile.load;
    const double busyInKernel = busy * profile.kernelShare;
    SystemTimesSample sample;
    sample.idle = static_cast<std::uint64_t>(time - busy);
    sample.kernel = sample.idle + static_cast<std::uint64_t>(busyInKernel);
    sample.user = static_cast<std::uint64_t>(busy - busyInKernel);
    return sample;
}

} // namespace machine
