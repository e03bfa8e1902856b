// Three fields of two firmware variables, read and written as raw bytes.
#include "platform/firmware_variables.h"

#include "frame/diagnostics.h"
#include "vesk_sondrel.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>

namespace sondrel {
namespace {

constexpr const char16_t* FirmwareVariableGuid = u"{91b89306-5bac-4ae0-aab3-207ec12e989b}";

/// One field of a variable. The bytes around it are written as they were read.
struct Field {
    const char16_t* variable;
    std::size_t offset;
    std::size_t size;
};

constexpr Field RandomUuid{u"CNFG", 0, 16};
constexpr Field ActivatedTime{u"CNFG", 32, 19};
constexpr Field ManufacturedTime{u"MFG0", 148, 23};

/// A variable as it was read; larger ones fail the read.
struct Variable {
    std::array<std::byte, 256> buffer;
    std::size_t size = 0;
    bool isTooShort = false;

    [[nodiscard]] std::span<std::byte> Bytes() { return std::span(buffer).first(size); }
    [[nodiscard]] std::byte* At(const Field& field) {
        return buffer.data() + static_cast<std::ptrdiff_t>(field.offset);
    }
};

/// Enables the privilege that firmware variables need. A failure is only logged: the operation after it fails
/// with a code of the system.
void RasiePrivileges() {
    platform::OwnedToken token;
    if (!platform::OpenProcessToken(platform::access::TokenAdjustAndQuery, token.Receive())) {
        TraceLine("Failed OpenProcessToken");
        return;
    }
    platform::Luid privilege{};
    platform::LookupPrivilegeValueW(u"SeSystemEnvironmentPrivilege", privilege);
    platform::AdjustTokenPrivileges(token.Get(), privilege, platform::PrivilegeEnabled);
    if (platform::GetLastError() != platform::error::Success) {
        TraceLine("Failed RasiePrivileges()");
    }
}

/// Reads the variable of a field; after a failure its size is 0. A variable that ends before the field does fails with
/// ERROR_INVALID_DATA, and the line says so.
platform::SystemError ReadVariable(const Field& field, Variable& variable) {
    const std::size_t size =
        platform::GetFirmwareEnvironmentVariableW(field.variable, FirmwareVariableGuid, variable.buffer);
    if (size == 0) {
        const platform::SystemError error = platform::GetLastError();
        TraceLine([error] {
            return "Failed, GetFirmwareEnvironmentVariable(), GetLastError return " + std::to_string(error);
        });
        return error;
    }
    variable.isTooShort = size < field.offset + field.size;
    if (variable.isTooShort) {
        TraceLine([size] {
            return "Failed, GetFirmwareEnvironmentVariable(), the variable is too short: " +
                   std::to_string(size) + " bytes";
        });
        return platform::error::InvalidData;
    }
    variable.size = std::min(size, variable.buffer.size());
    return platform::error::Success;
}

/// Copies one field. Returns the code of a failed read.
platform::SystemError GetField(const Field& field, std::uint8_t* out) {
    RasiePrivileges();
    Variable variable;
    const platform::SystemError error = ReadVariable(field, variable);
    if (variable.size != 0) {
        std::copy_n(variable.At(field), field.size, reinterpret_cast<std::byte*>(out));
    }
    return error;
}

/// Replaces one field and writes the variable with its size unchanged. A failed read writes nothing and returns 0. A
/// variable that is too short for the field is not written either, and returns ERROR_INVALID_DATA.
platform::SystemError SetField(const Field& field, const std::uint8_t* bytes) {
    RasiePrivileges();
    Variable variable;
    ReadVariable(field, variable);
    if (variable.size == 0) {
        return variable.isTooShort ? platform::error::InvalidData : platform::error::Success;
    }
    std::copy_n(reinterpret_cast<const std::byte*>(bytes), field.size, variable.At(field));
    if (platform::SetFirmwareEnvironmentVariableW(field.variable, FirmwareVariableGuid, variable.Bytes())) {
        TraceLine("Success!! SetFirmwareEnvironmentVariable");
        return platform::error::Success;
    }
    const platform::SystemError error = platform::GetLastError();
    TraceLine([error] {
        return "Failed!! SetFirmwareEnvironmentVariable, GetLastError return " + std::to_string(error);
    });
    return error;
}

} // namespace
} // namespace sondrel

using namespace sondrel;

uint32_t GPNV_Get_ActivatedTime(uint8_t* out) {
    // The result is 0 even when the read failed.
    GetField(ActivatedTime, out);
    return platform::error::Success;
}

uint32_t GPNV_Get_ManufacturedTime(uint8_t* out) {
    return GetField(ManufacturedTime, out);
}

uint32_t GPNV_Get_RandomUUID(uint8_t* out) {
    return GetField(RandomUuid, out);
}

uint32_t GPNV_Set_ActivatedTime(const uint8_t* bytes) {
    return SetField(ActivatedTime, bytes);
}

uint32_t GPNV_Set_ManufacturedTime(const uint8_t* bytes) {
    return SetField(ManufacturedTime, bytes);
}

uint32_t GPNV_Set_RandomUUID(const uint8_t* bytes) {
    return SetField(RandomUuid, bytes);
}
