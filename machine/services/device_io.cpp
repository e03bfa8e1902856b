#include "platform/device_io.h"

#include "machine/machine.h"
#include "machine/models/device.h"
#include "machine/models/storage/file_system.h"
#include "machine/services/last_error.h"
#include "machine/text/folding.h"
#include "platform/back_end.h"

#include <algorithm>

namespace VESK_BACK_END {
namespace {

using machine::OpenDevice;

/// A file's own state is the file system's, under the same number.
struct OpenFile {};

Handle FileAt(machine::Machine& machine, const char16_t* path, const machine::FileSystem::Opening& opening) {
    int descriptor = -1;
    if (!machine::Succeed(
            machine::OnDisk([&] { return machine.storage.files->Open(path, opening, descriptor); }))) {
        return Handle::Invalid;
    }
    const auto number = machine.handles.Open<std::uintptr_t>(OpenFile{});
    machine.storage.files->Keep(number, path, opening, descriptor);
    return Handle{number};
}

} // namespace

Handle CreateFileW(const char16_t* path, std::uint32_t access, std::uint32_t shareMode,
                   std::uint32_t creationDisposition, std::uint32_t flagsAndAttributes) {
    const auto machine = machine::Current();
    const auto found = machine->devices.find(machine::Folded(path));
    if (found == machine->devices.end()) {
        const bool isDevicePath = std::u16string_view(path).starts_with(u"\\\\");
        if (!isDevicePath) {
            return FileAt(*machine, path, {access, shareMode, creationDisposition, flagsAndAttributes});
        }
        machine::SetLastError(error::FileNotFound);
        return Handle::Invalid;
    }
    if (!machine::Succeed(found->second->Open(access, shareMode))) {
        return Handle::Invalid;
    }
    return machine->handles.Open<Handle>(OpenDevice{found->second});
}

bool DeviceIoControl(Handle device, std::uint32_t code, std::span<const std::byte> in,
                     std::span<std::byte> out, std::uint32_t& returned) {
    const auto machine = machine::Current();
    returned = 0;
    const auto* const opened = machine->handles.Find<OpenDevice>(device);
    if (opened == nullptr) {
        return machine::Succeed(error::InvalidHandle);
    }
    machine->AdvanceModels();
    const machine::ControlAnswer answer = opened->device->Control(code, in, out.size());
    if (!machine::Succeed(answer.error)) {
        return false;
    }
    const std::size_t written = std::min(answer.bytes.size(), out.size());
    std::copy_n(answer.bytes.begin(), written, out.begin());
    returned = static_cast<std::uint32_t>(written);
    return true;
}

/// Devices, files, tokens, processes and Bluetooth radios.
void CloseHandle(Handle handle) {
    const auto machine = machine::Current();
    if (const auto* const device = machine->handles.Find<OpenDevice>(handle); device != nullptr) {
        device->device->Close();
    } else if (machine->handles.Find<OpenFile>(handle) != nullptr) {
        machine->storage.files->Close(static_cast<std::uintptr_t>(handle));
    }
    machine->handles.Close(handle);
}

} // namespace VESK_BACK_END
