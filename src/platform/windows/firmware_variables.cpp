#include "platform/firmware_variables.h"

#include "platform/back_end.h"
#include "platform/windows/support/native.h"

namespace VESK_BACK_END {

bool OpenProcessToken(std::uint32_t access, Handle& token) {
    HANDLE opened = nullptr;
    if (::OpenProcessToken(::GetCurrentProcess(), access, &opened) == FALSE) {
        return false;
    }
    token = Handle{reinterpret_cast<std::uintptr_t>(opened)};
    return true;
}

bool LookupPrivilegeValueW(const char16_t* name, Luid& privilege) {
    static_assert(sizeof(Luid) == sizeof(LUID));
    return ::LookupPrivilegeValueW(nullptr, Wide(name), reinterpret_cast<LUID*>(&privilege)) != FALSE;
}

bool AdjustTokenPrivileges(Handle token, const Luid& privilege, std::uint32_t attributes) {
    TOKEN_PRIVILEGES wanted{};
    wanted.PrivilegeCount = 1;
    wanted.Privileges[0] = {{privilege.lowPart, privilege.highPart}, attributes};
    return ::AdjustTokenPrivileges(reinterpret_cast<HANDLE>(token), FALSE, &wanted, 0, nullptr, nullptr) !=
           FALSE;
}

std::uint32_t GetFirmwareEnvironmentVariableW(const char16_t* name, const char16_t* guid,
                                              std::span<std::byte> buffer) {
    return ::GetFirmwareEnvironmentVariableW(Wide(name), Wide(guid), buffer.data(),
                                             static_cast<DWORD>(buffer.size()));
}

bool SetFirmwareEnvironmentVariableW(const char16_t* name, const char16_t* guid,
                                     std::span<const std::byte> data) {
    return ::SetFirmwareEnvironmentVariableW(Wide(name), Wide(guid), const_cast<std::byte*>(data.data()),
                                             static_cast<DWORD>(data.size())) != FALSE;
}

} // namespace VESK_BACK_END
