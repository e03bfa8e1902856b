// Devices: open, send an IOCTL, close.
#pragma once

#include "platform/support/owned.h"
#include "platform/types.h"

#include <span>

namespace platform {

enum class Handle : std::uintptr_t {
    Null = 0,
    Invalid = ~std::uintptr_t{0}, // INVALID_HANDLE_VALUE
};

namespace share {
inline constexpr std::uint32_t None = 0;
inline constexpr std::uint32_t ReadWrite = 3; // FILE_SHARE_READ | FILE_SHARE_WRITE
} // namespace share

inline constexpr std::uint32_t OpenExisting = 3;           // OPEN_EXISTING
inline constexpr std::uint32_t FileAttributeNormal = 0x80; // FILE_ATTRIBUTE_NORMAL

/// CreateFileW with no security attributes and no template. `Handle::Invalid` on failure.
Handle CreateFileW(const char16_t* path, std::uint32_t access, std::uint32_t shareMode,
                   std::uint32_t creationDisposition, std::uint32_t flagsAndAttributes);

/// DeviceIoControl, synchronous. `in` and `out` may be the same bytes. `returned` is the number of bytes that the
/// device reports. On failure `out` is unchanged.
bool DeviceIoControl(Handle device, std::uint32_t code, std::span<const std::byte> in,
                     std::span<std::byte> out, std::uint32_t& returned);

void CloseHandle(Handle handle);

/// The last error of the calling thread, set by the operation before this one.
SystemError GetLastError();

using OwnedFile = Owned<Handle, CloseHandle, Handle::Invalid>;

} // namespace platform
