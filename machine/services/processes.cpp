#include "platform/processes.h"

#include "machine/machine.h"
#include "machine/profile/profile.h"
#include "machine/services/clock.h"
#include "observer/gate.h"
#include "platform/back_end.h"

#include <algorithm>

namespace VESK_BACK_END {

using machine::Call;
using machine::Current;
using machine::Operation;
using machine::ProcessAccess;
using machine::ProcessProfile;

namespace {

SystemError Grants(const ProcessProfile* process, std::uint32_t access) {
    if (process == nullptr) {
        return error::InvalidParameter; // which is what an id that nobody has gives
    }
    const bool queriesOnly = (access & ~access::ProcessQueryInformation) == 0;
    const bool granted = process->access == ProcessAccess::Everything ||
                         (process->access == ProcessAccess::Queries && queriesOnly);
    return granted ? error::Success : error::AccessDenied;
}

/// One question about an open process; one that is refused or about nothing that is open has the answer 0.
template <class Body>
auto Ask(Operation operation, Handle process, Body body) {
    Call call(operation);
    using Answer = decltype(body(std::declval<const ProcessProfile&>()));
    const auto found = Current().openProcesses.find(static_cast<std::uintptr_t>(process));
    if (found == Current().openProcesses.end() || call.Refused()) {
        machine::SetLastError(call.Refused() ? call.RefusalCode() : error::InvalidHandle);
        return call.Answered(Answer{});
    }
    call.Note([&] { return std::to_string(found->second->id); });
    return call.Answered(body(*found->second));
}

} // namespace

Handle OpenProcess(std::uint32_t access, std::uint32_t processId) {
    Call call(Operation::OpenProcess);
    call.Note([&] { return std::to_string(processId) + " access " + std::to_string(access); });
    const auto& processes = Current().profile.processes;
    const auto found = std::ranges::find(processes, processId, &ProcessProfile::id);
    const ProcessProfile* process = found == processes.end() ? nullptr : &*found;
    const SystemError problem = call.Refused() ? call.RefusalCode() : Grants(process, access);
    machine::SetLastError(problem);
    if (problem != error::Success) {
        return call.Answered(Handle::Null);
    }
    const std::uintptr_t number = Current().gate.Opened("process " + std::to_string(processId));
    Current().openProcesses[number] = process;
    return call.Answered(Handle{number});
}

std::uint32_t K32GetModuleFileNameExW(Handle process, char16_t* path, std::uint32_t size) {
    return Ask(Operation::K32GetModuleFileNameExW, process, [=](const ProcessProfile& found) {
        const std::size_t length = std::min<std::size_t>(found.path.size(), size - 1);
        *std::copy_n(found.path.data(), length, path) = u'\0';
        return static_cast<std::uint32_t>(length);
    });
}

bool GetProcessTimes(Handle process, ProcessTimes& times) {
    return Ask(Operation::GetProcessTimes, process, [&times](const ProcessProfile& found) {
        constexpr double UnitsPerMicrosecond = 10;
        const double all = static_cast<double>(Current().clock.Now().count()) * UnitsPerMicrosecond *
                           Current().profile.systemPower.processors;
        const auto own = static_cast<std::uint64_t>(all * found.cpuPercent / 100);
        times = {1, 0, own / 4, own - own / 4}; // a quarter of it is the kernel's
        return true;
    });
}

bool K32GetProcessMemoryInfo(Handle process, ProcessMemoryCounters& counters, std::uint32_t size) {
    return Ask(Operation::K32GetProcessMemoryInfo, process, [&counters, size](const ProcessProfile& found) {
        if (size < sizeof counters || !found.tellsMemory) {
            machine::SetLastError(found.tellsMemory ? error::InsufficientBuffer : error::AccessDenied);
            return false;
        }
        counters.workingSetSize = found.workingSet;
        return true;
    });
}

} // namespace VESK_BACK_END
