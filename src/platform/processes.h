// Processes: executable, times, memory.
#pragma once

#include "platform/device_io.h"
#include "platform/types.h"

namespace platform {

namespace access {
inline constexpr std::uint32_t ProcessQueryInformation = 1024; // PROCESS_QUERY_INFORMATION
inline constexpr std::uint32_t ProcessAll = 0x1FFFFF;          // PROCESS_ALL_ACCESS
} // namespace access

using OwnedProcess = Owned<Handle, CloseHandle, Handle::Null>;

/// OpenProcess; the handle is not inherited. `Handle::Null` on failure. Close it with CloseHandle.
Handle OpenProcess(std::uint32_t access, std::uint32_t processId);

/// K32GetModuleFileNameExW of the executable (a null module): the length of the path, 0 on failure.
std::uint32_t K32GetModuleFileNameExW(Handle process, char16_t* path, std::uint32_t size);

/// In units of 100 ns.
struct ProcessTimes {
    std::uint64_t creation;
    std::uint64_t exit;
    std::uint64_t kernel;
    std::uint64_t user;
};

/// On failure the times are unchanged.
bool GetProcessTimes(Handle process, ProcessTimes& times);

/// PROCESS_MEMORY_COUNTERS
struct ProcessMemoryCounters {
    std::uint32_t size; // of this structure
    std::uint32_t pageFaultCount;
    std::uint64_t peakWorkingSetSize;
    std::uint64_t workingSetSize;
    std::uint64_t quotaPeakPagedPoolUsage;
    std::uint64_t quotaPagedPoolUsage;
    std::uint64_t quotaPeakNonPagedPoolUsage;
    std::uint64_t quotaNonPagedPoolUsage;
    std::uint64_t pagefileUsage;
    std::uint64_t peakPagefileUsage;
};

static_assert(sizeof(ProcessMemoryCounters) == 72);

bool K32GetProcessMemoryInfo(Handle process, ProcessMemoryCounters& counters, std::uint32_t size);

} // namespace platform
