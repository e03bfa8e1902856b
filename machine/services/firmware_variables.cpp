#include "platform/firmware_variables.h"

#include "machine/machine.h"
#include "machine/services/last_error.h"
#include "platform/back_end.h"

#include <algorithm>
#include <string_view>

namespace VESK_BACK_END {
namespace {

using machine::FirmwareVariableStore;
using machine::Succeed;

// The machine's own number for the one privilege it knows.
constexpr std::uint32_t EnvironmentPrivilege = 22;

constexpr SystemError WriteProtected = 19;
constexpr SystemError VariableNotFound = 203;
constexpr SystemError NotAllAssigned = 1300;
constexpr SystemError PrivilegeNotHeld = 1314;
constexpr SystemError NoSuchPrivilege = 1313;

struct OpenToken {};

/// An operation on the variables, which needs the privilege. Sets the last error.
template <class Operation>
bool OnVariables(Operation operation) {
    const auto machine = machine::Current();
    FirmwareVariableStore& variables = *machine->storage.firmwareVariables;
    return Succeed(variables.PrivilegeEnabled()
                       ? machine::OnDisk([&]() -> SystemError { return operation(variables); })
                       : PrivilegeNotHeld);
}

} // namespace

bool OpenProcessToken(std::uint32_t, Handle& token) {
    token = machine::Current()->handles.Open<Handle>(OpenToken{});
    return Succeed(error::Success);
}

bool LookupPrivilegeValueW(const char16_t* name, Luid& privilege) {
    if (std::u16string_view(name) != u"SeSystemEnvironmentPrivilege") {
        return Succeed(NoSuchPrivilege);
    }
    privilege = {EnvironmentPrivilege, 0};
    return Succeed(error::Success);
}

bool AdjustTokenPrivileges(Handle token, const Luid& privilege, std::uint32_t attributes) {
    const auto machine = machine::Current();
    if (token == Handle::Null) {
        return Succeed(error::InvalidHandle);
    }
    FirmwareVariableStore& variables = *machine->storage.firmwareVariables;
    if (privilege.lowPart == EnvironmentPrivilege && attributes == PrivilegeEnabled) {
        variables.EnablePrivilege();
    }
    // That the token does not hold a privilege is reported by the last error alone.
    machine::SetLastError(variables.PrivilegeEnabled() ? error::Success : NotAllAssigned);
    return true;
}

std::uint32_t GetFirmwareEnvironmentVariableW(const char16_t* name, const char16_t* guid,
                                              std::span<std::byte> buffer) {
    std::uint32_t size = 0;
    OnVariables([&](FirmwareVariableStore& variables) {
        const auto data = variables.Get(guid, name);
        if (!data) {
            return VariableNotFound;
        }
        if (data->size() > buffer.size()) {
            return error::InsufficientBuffer;
        }
        std::ranges::copy(*data, buffer.begin());
        size = static_cast<std::uint32_t>(data->size());
        return error::Success;
    });
    return size;
}

bool SetFirmwareEnvironmentVariableW(const char16_t* name, const char16_t* guid,
                                     std::span<const std::byte> data) {
    return OnVariables([&](FirmwareVariableStore& variables) {
        if (variables.IsReadOnly(guid, name)) {
            return WriteProtected;
        }
        variables.Set(guid, name, data);
        return error::Success;
    });
}

} // namespace VESK_BACK_END
