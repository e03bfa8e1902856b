// Three facts about the machine in two firmware variables, read and written as raw bytes.
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

/// One field: the variable it stands in, and its place there. What stands around it is carried along.
struct Field {
    const char16_t* variable;
    std::size_t offset;
    std::size_t size;
};

constexpr Field RandomUuid{u"CNFG", 0, 16};
constexpr Field ActivatedTime{u"CNFG", 32, 19};
constexpr Field ManufacturedTime{u"MFG0", 148, 23};

/// A variable as it was read, with the room for the largest one that is handled.
struct Variable {
    std::array<std::byte, 256> room;
    std::size_t size = 0;

    [[nodiscard]] std::span<std::byte> Read() { return std::span(room).first(size); }

    [[nodiscard]] std::byte* At(const Field& field) {
        return room.data() + static_cast<std::ptrdiff_t>(field.offset);
    }
};

/// Asks for the privilege that firmware variables demand. That it was not granted is only logged: the
/// operation that follows tells the host with its own code.
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

/// Reads the variable of a field. One that ends before the field does holds no such field, which counts as a
/// read that failed with ERROR_INVALID_DATA. After a failure the variable's size is 0.
platform::SystemError ReadVariable(const Field& field, Variable& variable) {
    variable.size =
        platform::GetFirmwareEnvironmentVariableW(field.variable, FirmwareVariableGuid, variable.room);
    platform::SystemError problem = platform::error::Success;
    if (variable.size == 0) {
        problem = platform::GetLastError();
    } else if (variable.size < field.offset + field.size || variable.size > variable.room.size()) {
        problem = platform::error::InvalidData;
    } else {
        return problem;
    }
    variable.size = 0;
    TraceMade([problem] {
        return "Failed, GetFirmwareEnvironmentVariable(), GetLastError return " + std::to_string(problem);
    });
    return problem;
}

/// The result is the code of a failed read, which not every getter gives on.
platform::SystemError GetField(const Field& field, std::uint8_t* out) {
    RasiePrivileges();
    Variable variable;
    const platform::SystemError problem = ReadVariable(field, variable);
    if (variable.size != 0) {
        std::copy_n(variable.At(field), field.size, reinterpret_cast<std::byte*>(out));
    }
    return problem;
}

/// Replaces one field and writes the variable back at its size. A failed read writes nothing and gives 0.
platform::SystemError SetField(const Field& field, const std::uint8_t* bytes) {
    RasiePrivileges();
    Variable variable;
    ReadVariable(field, variable);
    if (variable.size == 0) {
        return platform::error::Success;
    }
    std::copy_n(reinterpret_cast<const std::byte*>(bytes), field.size, variable.At(field));
    if (platform::SetFirmwareEnvironmentVariableW(field.variable, FirmwareVariableGuid, variable.Read())) {
        TraceLine("Success!! SetFirmwareEnvironmentVariable");
        return platform::error::Success;
    }
    const platform::SystemError problem = platform::GetLastError();
    TraceMade([problem] {
        return "Failed!! SetFirmwareEnvironmentVariable, GetLastError return " + std::to_string(problem);
    });
    return problem;
}

} // namespace
} // namespace sondrel

using namespace sondrel;

uint32_t GPNV_Get_ActivatedTime(uint8_t* out) {
    // A host cannot tell a failed read here: the result has always been 0.
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
