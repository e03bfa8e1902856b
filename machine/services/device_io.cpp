#include "platform/device_io.h"

#include "machine/machine.h"
#include "machine/models/storage/file_system.h"
#include "machine/models/storage/store.h"
#include "machine/services/devices.h"
#include "machine/services/radios.h"
#include "machine/text/wide_text.h"
#include "observer/gate.h"
#include "platform/back_end.h"

#include <algorithm>
#include <cstdio>

namespace VESK_BACK_END {

using machine::Call;
using machine::Current;
using machine::Operation;

namespace {

std::string Hexadecimal(std::uint32_t number) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%x", static_cast<unsigned>(number));
    return text;
}

std::string HexadecimalBytes(std::span<const std::byte> bytes) {
    std::string text(bytes.empty() ? "-" : "");
    for (const std::byte byte : bytes) {
        char pair[4];
        std::snprintf(pair, sizeof pair, "%02x", std::to_integer<unsigned>(byte));
        text += pair;
    }
    return text;
}

Handle OpenFile(const char16_t* path, const machine::FileSystem::Opening& opening) {
    machine::Machine& machine = Current();
    int descriptor = -1;
    SystemError problem = error::GenFailure;
    try {
        problem = machine.files.Open(path, opening, descriptor);
    } catch (const machine::StoreError&) {
        descriptor = -1;
    }
    machine::SetLastError(problem);
    if (problem != error::Success) {
        return Handle::Invalid;
    }
    const std::uintptr_t number = machine.gate.Opened("file " + machine::Utf8FromWide(path));
    machine.files.Keep(number, path, opening, descriptor);
    return Handle{number};
}

} // namespace

Handle CreateFileW(const char16_t* path, std::uint32_t access, std::uint32_t shareMode,
                   std::uint32_t creationDisposition, std::uint32_t) {
    Call call(Operation::CreateFileW);
    call.Note([&] {
        return machine::Utf8FromWide(path) + " access " + Hexadecimal(access) + " share " +
               Hexadecimal(shareMode);
    });
    machine::Machine& machine = Current();
    const auto found = machine.devices.find(machine::Folded(path));
    SystemError problem = error::FileNotFound;
    if (call.Refused()) {
        problem = call.RefusalCode();
    } else if (found != machine.devices.end()) {
        problem = found->second->Open(access, shareMode);
    } else if (!std::u16string_view(path).starts_with(u"\\\\")) {
        return call.Answered(OpenFile(path, {access, shareMode, creationDisposition}));
    }
    machine::SetLastError(problem);
    if (problem != error::Success) {
        return call.Answered(Handle::Invalid);
    }
    const std::uintptr_t number = machine.gate.Opened("file " + machine::Utf8FromWide(path));
    machine.openDevices[number] = found->second;
    return call.Answered(Handle{number});
}

bool DeviceIoControl(Handle device, std::uint32_t code, std::span<const std::byte> in,
                     std::span<std::byte> out, std::uint32_t& returned) {
    Call call(Operation::DeviceIoControl);
    call.Note([&] { return Hexadecimal(code) + " in " + HexadecimalBytes(in); });
    machine::Machine& machine = Current();
    returned = 0;
    const auto opened = machine.openDevices.find(static_cast<std::uintptr_t>(device));
    if (opened == machine.openDevices.end() || call.Refused()) {
        machine::SetLastError(call.Refused() ? call.RefusalCode() : error::InvalidHandle);
        return call.Answered(false);
    }
    machine.CatchUp();
    machine::ControlAnswer answer = opened->second->Control(code, in, out.size());
    machine::SetLastError(answer.error);
    if (answer.error != error::Success) {
        return call.Answered(false);
    }
    if (call.Emptied()) {
        answer.bytes.clear();
    } else if (call.Shortened()) {
        answer.bytes.resize(answer.bytes.size() / 2);
    } else if (call.SaysFailed() && !opened->second->SayFailed(code, answer)) {
        machine.gate.Withdraw();
    }
    const std::size_t written = std::min(answer.bytes.size(), out.size());
    std::copy_n(answer.bytes.begin(), written, out.begin());
    returned = static_cast<std::uint32_t>(written);
    call.Note([&] { return "out " + HexadecimalBytes(out.first(written)); });
    return call.Answered(true);
}

void CloseHandle(Handle handle) {
    Call call(Operation::CloseHandle);
    machine::Machine& machine = Current();
    const auto number = static_cast<std::uintptr_t>(handle);
    machine.gate.Closed(number);
    machine.openProcesses.erase(number);
    if (const auto opened = machine.openDevices.find(number); opened != machine.openDevices.end()) {
        opened->second->Close();
        machine.openDevices.erase(opened);
    }
    machine.radios.bluetoothRadios.erase(number);
    machine.files.Close(number);
}

} // namespace VESK_BACK_END
