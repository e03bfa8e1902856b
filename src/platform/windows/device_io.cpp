#include "platform/device_io.h"

#include "platform/back_end.h"
#include "platform/windows/support/native.h"

namespace VESK_BACK_END {

Handle CreateFileW(const char16_t* path, std::uint32_t access, std::uint32_t shareMode,
                   std::uint32_t creationDisposition, std::uint32_t flagsAndAttributes) {
    return Handle{reinterpret_cast<std::uintptr_t>(::CreateFileW(
        Wide(path), access, shareMode, nullptr, creationDisposition, flagsAndAttributes, nullptr))};
}

bool DeviceIoControl(Handle device, std::uint32_t code, std::span<const std::byte> in,
                     std::span<std::byte> out, std::uint32_t& returned) {
    DWORD written = 0;
    const BOOL done = ::DeviceIoControl(Native(device), code, const_cast<std::byte*>(in.data()),
                                        static_cast<DWORD>(in.size()), out.data(),
                                        static_cast<DWORD>(out.size()), &written, nullptr);
    returned = written;
    return done != FALSE;
}

void CloseHandle(Handle handle) {
    ::CloseHandle(Native(handle));
}

SystemError GetLastError() {
    return ::GetLastError();
}

} // namespace VESK_BACK_END
