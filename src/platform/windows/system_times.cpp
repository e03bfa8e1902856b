#include "platform/system_times.h"

#include "platform/windows/file_time.h"

namespace platform {

bool GetSystemTimes(std::uint64_t& idle, std::uint64_t& kernel, std::uint64_t& user) {
    FILETIME idleTime{};
    FILETIME kernelTime{};
    FILETIME userTime{};
    if (::GetSystemTimes(&idleTime, &kernelTime, &userTime) == FALSE) {
        return false;
    }
    idle = Ticks(idleTime);
    kernel = Ticks(kernelTime);
    user = Ticks(userTime);
    return true;
}

} // namespace platform
