#include "platform/firmware_variables.h"

#include "observer/observe.h"

namespace platform {

using namespace observer::decorators;

bool OpenProcessToken(std::uint32_t access, Handle& token) {
    return Observe<Operation::OpenProcessToken>(back_end::OpenProcessToken, Hex("access", access),
                                                Opens("token", token, HandleKind::Token));
}

bool LookupPrivilegeValueW(const char16_t* name, Luid& privilege) {
    return Observe<Operation::LookupPrivilegeValueW>(back_end::LookupPrivilegeValueW, In("name", name),
                                                     Out("privilege", privilege));
}

bool AdjustTokenPrivileges(Handle token, const Luid& privilege, std::uint32_t attributes) {
    return Observe<Operation::AdjustTokenPrivileges>(back_end::AdjustTokenPrivileges, In("token", token),
                                                     In("privilege", privilege),
                                                     Hex("attributes", attributes));
}

std::uint32_t GetFirmwareEnvironmentVariableW(const char16_t* name, const char16_t* guid,
                                              std::span<std::byte> buffer) {
    std::uint32_t size = 0;
    const auto read = [&size](const auto&... arguments) {
        return size = back_end::GetFirmwareEnvironmentVariableW(arguments...);
    };
    return Observe<Operation::GetFirmwareEnvironmentVariableW>(read, In("name", name), In("guid", guid),
                                                               OutBytes("data", buffer, size));
}

bool SetFirmwareEnvironmentVariableW(const char16_t* name, const char16_t* guid,
                                     std::span<const std::byte> data) {
    return Observe<Operation::SetFirmwareEnvironmentVariableW>(
        back_end::SetFirmwareEnvironmentVariableW, In("name", name), In("guid", guid), InBytes("data", data));
}

} // namespace platform
