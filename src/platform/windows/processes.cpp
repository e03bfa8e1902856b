#include "platform/processes.h"

#include "platform/back_end.h"
#include "platform/windows/support/native.h"

#include <psapi.h>

namespace VESK_BACK_END {
namespace {

static_assert(sizeof(ProcessMemoryCounters) == sizeof(PROCESS_MEMORY_COUNTERS));
static_assert(offsetof(ProcessMemoryCounters, workingSetSize) ==
              offsetof(PROCESS_MEMORY_COUNTERS, WorkingSetSize));

} // namespace

Handle OpenProcess(std::uint32_t access, std::uint32_t processId) {
    return Handle{reinterpret_cast<std::uintptr_t>(::OpenProcess(access, FALSE, processId))};
}

std::uint32_t K32GetModuleFileNameExW(Handle process, char16_t* path, std::uint32_t size) {
    return ::K32GetModuleFileNameExW(Native(process), nullptr, Wide(path), size);
}

bool GetProcessTimes(Handle process, ProcessTimes& times) {
    FILETIME creation{};
    FILETIME exit{};
    FILETIME kernel{};
    FILETIME user{};
    if (::GetProcessTimes(Native(process), &creation, &exit, &kernel, &user) == FALSE) {
        return false;
    }
    times = {Ticks(creation), Ticks(exit), Ticks(kernel), Ticks(user)};
    return true;
}

bool K32GetProcessMemoryInfo(Handle process, ProcessMemoryCounters& counters, std::uint32_t size) {
    return ::K32GetProcessMemoryInfo(Native(process), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                                     size) != FALSE;
}

} // namespace VESK_BACK_END
