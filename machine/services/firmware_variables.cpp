#include "platform/firmware_variables.h"

#include "machine/machine.h"
#include "machine/models/storage/firmware_store.h"
#include "machine/text/wide_text.h"
#include "observer/gate.h"
#include "platform/back_end.h"

#include <algorithm>
#include <string_view>

namespace VESK_BACK_END {

using machine::Call;
using machine::Current;
using machine::Operation;
using machine::Utf8FromWide;

namespace {

// The machine's own number for the one privilege it knows.
constexpr std::uint32_t EnvironmentPrivilege = 22;

constexpr SystemError WriteProtected = 19;
constexpr SystemError VariableNotFound = 203;
constexpr SystemError NotAllAssigned = 1300;
constexpr SystemError PrivilegeNotHeld = 1314;
constexpr SystemError NoSuchPrivilege = 1313;

std::string Variable(const char16_t* name, const char16_t* guid) {
    return Utf8FromWide(name) + ' ' + Utf8FromWide(guid);
}

/// Sets the last error and gives whether there is none.
bool Done(SystemError problem) {
    machine::SetLastError(problem);
    return problem == error::Success;
}

SystemError Read(const char16_t* name, const char16_t* guid, std::span<std::byte> buffer,
                 std::uint32_t& size) {
    machine::Machine& machine = Current();
    if (!machine.firmwareStore.PrivilegeEnabled()) {
        return PrivilegeNotHeld;
    }
    const auto data = machine.firmwareStore.Get(guid, name);
    if (!data) {
        return VariableNotFound;
    }
    if (data->size() > buffer.size()) {
        return error::InsufficientBuffer;
    }
    std::ranges::copy(*data, buffer.begin());
    size = static_cast<std::uint32_t>(data->size());
    return error::Success;
}

SystemError Write(const char16_t* name, const char16_t* guid, std::span<const std::byte> data) {
    machine::Machine& machine = Current();
    if (!machine.firmwareStore.PrivilegeEnabled()) {
        return PrivilegeNotHeld;
    }
    if (machine.firmwareStore.IsReadOnly(guid, name)) {
        return WriteProtected;
    }
    machine.firmwareStore.Set(guid, name, data);
    return error::Success;
}

} // namespace

bool OpenProcessToken(std::uint32_t access, Handle& token) {
    Call call(Operation::OpenProcessToken);
    call.Note([&] { return "access " + std::to_string(access); });
    if (call.Refused()) {
        return call.Answered(Done(call.RefusalCode()));
    }
    token = Handle{Current().gate.Opened("process token")};
    return call.Answered(Done(error::Success));
}

bool LookupPrivilegeValueW(const char16_t* name, Luid& privilege) {
    Call call(Operation::LookupPrivilegeValueW);
    call.Note([&] { return Utf8FromWide(name); });
    if (call.Refused()) {
        return call.Answered(Done(call.RefusalCode()));
    }
    if (std::u16string_view(name) != u"SeSystemEnvironmentPrivilege") {
        return call.Answered(Done(NoSuchPrivilege));
    }
    privilege = {EnvironmentPrivilege, 0};
    return call.Answered(Done(error::Success));
}

bool AdjustTokenPrivileges(Handle token, const Luid& privilege, std::uint32_t attributes) {
    Call call(Operation::AdjustTokenPrivileges);
    call.Note(
        [&] { return std::to_string(privilege.lowPart) + " attributes " + std::to_string(attributes); });
    if (call.Refused() || token == Handle::Null) {
        return call.Answered(Done(call.Refused() ? call.RefusalCode() : error::InvalidHandle));
    }
    if (privilege.lowPart == EnvironmentPrivilege && attributes == PrivilegeEnabled) {
        Current().firmwareStore.EnablePrivilege();
    }
    // What the token does not hold is told by the last error alone.
    machine::SetLastError(Current().firmwareStore.PrivilegeEnabled() ? error::Success : NotAllAssigned);
    return call.Answered(true);
}

std::uint32_t GetFirmwareEnvironmentVariableW(const char16_t* name, const char16_t* guid,
                                              std::span<std::byte> buffer) {
    Call call(Operation::GetFirmwareEnvironmentVariableW);
    call.Note([&] { return Variable(name, guid) + " room " + std::to_string(buffer.size()); });
    std::uint32_t size = 0;
    try {
        Done(call.Refused() ? call.RefusalCode() : Read(name, guid, buffer, size));
    } catch (const machine::StoreError&) {
        Done(error::GenFailure);
    }
    return call.Answered(call.Shortened() ? size / 2 : size);
}

bool SetFirmwareEnvironmentVariableW(const char16_t* name, const char16_t* guid,
                                     std::span<const std::byte> data) {
    Call call(Operation::SetFirmwareEnvironmentVariableW);
    call.Note([&] { return Variable(name, guid) + ' ' + std::to_string(data.size()) + " bytes"; });
    try {
        return call.Answered(Done(call.Refused() ? call.RefusalCode() : Write(name, guid, data)));
    } catch (const machine::StoreError&) {
        return call.Answered(Done(error::GenFailure));
    }
}

} // namespace VESK_BACK_END
