#include "platform/device_io.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

Handle CreateFileW(const char16_t* path, std::uint32_t access, std::uint32_t shareMode,
                   std::uint32_t creationDisposition, std::uint32_t flagsAndAttributes) {
    return ObserveOpening<Operation::CreateFileW>(
        OpensResult{HandleKind::File, path}, back_end::CreateFileW, In("path", path), Hex("access", access),
        Hex("share", shareMode), In("disposition", creationDisposition), Hex("flags", flagsAndAttributes));
}

bool DeviceIoControl(Handle device, std::uint32_t code, std::span<const std::byte> in,
                     std::span<std::byte> out, std::uint32_t& returned) {
    return Observe<Operation::DeviceIoControl>(
        back_end::DeviceIoControl, In("device", device), Hex("code", code), In("in", in),
        OutBytes("out", out, returned, code), OutCount("returned", returned));
}

void CloseHandle(Handle handle) {
    Observe<Operation::CloseHandle>(back_end::CloseHandle, Closes("handle", handle));
}

/// Answered from what the last boundary call left: anything between may have changed the operating system's own.
SystemError GetLastError() {
    return observer::LastErrorOfThread();
}

} // namespace platform
