#include "platform/processes.h"

#include "machine/machine.h"
#include "machine/services/last_error.h"
#include "platform/back_end.h"

#include <algorithm>

namespace VESK_BACK_END {
namespace {

using machine::Machine;
using machine::ProcessAccess;
using machine::ProcessProfile;

struct OpenedProcess {
    const ProcessProfile* process;
};

SystemError Grants(const ProcessProfile& process, std::uint32_t access) {
    const bool queriesOnly = (access & ~access::ProcessQueryInformation) == 0;
    const bool granted = process.access == ProcessAccess::Everything ||
                         (process.access == ProcessAccess::Queries && queriesOnly);
    return granted ? error::Success : error::AccessDenied;
}

/// Null with the last error set for a handle that is no open process.
const ProcessProfile* Find(Machine& machine, Handle handle) {
    const auto* const opened = machine.handles.Find<OpenedProcess>(handle);
    if (opened == nullptr) {
        machine::SetLastError(error::InvalidHandle);
    }
    return opened == nullptr ? nullptr : opened->process;
}

} // namespace

Handle OpenProcess(std::uint32_t access, std::uint32_t processId) {
    const auto machine = machine::Current();
    const auto& processes = machine->profile.processes;
    const auto found = std::ranges::find(processes, processId, &ProcessProfile::id);
    // An id that no process has is an invalid parameter.
    if (!machine::Succeed(found == processes.end() ? error::InvalidParameter : Grants(*found, access))) {
        return Handle::Null;
    }
    return machine->handles.Open<Handle>(OpenedProcess{&*found});
}

std::uint32_t K32GetModuleFileNameExW(Handle process, char16_t* path, std::uint32_t size) {
    const auto machine = machine::Current();
    const ProcessProfile* const found = Find(*machine, process);
    if (found == nullptr) {
        return 0;
    }
    const std::size_t length = std::min<std::size_t>(found->path.size(), size - 1);
    *std::copy_n(found->path.data(), length, path) = u'\0';
    return static_cast<std::uint32_t>(length);
}

bool GetProcessTimes(Handle process, ProcessTimes& times) {
    const auto machine = machine::Current();
    const ProcessProfile* const found = Find(*machine, process);
    if (found == nullptr) {
        return false;
    }
    constexpr double UnitsPerMicrosecond = 10;
    const double all = static_cast<double>(machine->clock.Now().count()) * UnitsPerMicrosecond *
                       machine->profile.systemPower.processors;
    const auto own = static_cast<std::uint64_t>(all * found->cpuPercent / 100);
    times = {1, 0, own / 4, own - own / 4}; // a quarter of it is the kernel's
    return true;
}

bool K32GetProcessMemoryInfo(Handle process, ProcessMemoryCounters& counters, std::uint32_t size) {
    const auto machine = machine::Current();
    const ProcessProfile* const found = Find(*machine, process);
    if (found == nullptr) {
        return false;
    }
    if (size < sizeof counters || !found->reportsMemory) {
        return machine::Succeed(found->reportsMemory ? error::InsufficientBuffer : error::AccessDenied);
    }
    counters.workingSetSize = found->workingSet;
    return true;
}

} // namespace VESK_BACK_END
