#include "platform/processes.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

Handle OpenProcess(std::uint32_t access, std::uint32_t processId) {
    const DecimalText id(processId);
    return ObserveOpening<Operation::OpenProcess>(OpensResult{HandleKind::Process, id.Text()},
                                                  back_end::OpenProcess, Hex("access", access),
                                                  In("id", processId));
}

std::uint32_t K32GetModuleFileNameExW(Handle process, char16_t* path, std::uint32_t size) {
    return Observe<Operation::K32GetModuleFileNameExW>(back_end::K32GetModuleFileNameExW,
                                                       In("process", process), OutText("path", path, size),
                                                       In("size", size));
}

bool GetProcessTimes(Handle process, ProcessTimes& times) {
    return Observe<Operation::GetProcessTimes>(back_end::GetProcessTimes, In("process", process),
                                               Out("times", times));
}

bool K32GetProcessMemoryInfo(Handle process, ProcessMemoryCounters& counters, std::uint32_t size) {
    return Observe<Operation::K32GetProcessMemoryInfo>(back_end::K32GetProcessMemoryInfo,
                                                       In("process", process), Out("counters", counters),
                                                       In("size", size));
}

} // namespace platform
