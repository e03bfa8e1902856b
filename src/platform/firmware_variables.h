// Firmware variables, and the privilege that they need.
#pragma once

#include "platform/device_io.h"
#include "platform/types.h"

#include <span>

namespace platform {

namespace access {
inline constexpr std::uint32_t TokenAdjustAndQuery = 0x28; // TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY
} // namespace access

inline constexpr std::uint32_t PrivilegeEnabled = 2; // SE_PRIVILEGE_ENABLED

struct Luid {
    std::uint32_t lowPart;
    std::int32_t highPart;
};

/// OpenProcessToken on the current process.
bool OpenProcessToken(std::uint32_t access, Handle& token);

/// LookupPrivilegeValueW on the local system.
bool LookupPrivilegeValueW(const char16_t* name, Luid& privilege);

/// AdjustTokenPrivileges for one privilege, without disabling others and without the previous state. It
/// succeeds even if the token does not have the privilege: then only the last error is not 0.
bool AdjustTokenPrivileges(Handle token, const Luid& privilege, std::uint32_t attributes);

/// Returns the number of bytes read, or 0 with the last error set.
std::uint32_t GetFirmwareEnvironmentVariableW(const char16_t* name, const char16_t* guid,
                                              std::span<std::byte> buffer);

bool SetFirmwareEnvironmentVariableW(const char16_t* name, const char16_t* guid,
                                     std::span<const std::byte> data);

using OwnedToken = Owned<Handle, CloseHandle, Handle::Null>;

} // namespace platform
