#include "platform/firmware_variables.h"

#include "shims.h"

#include "machine/machine.h"
#include "machine/models/device.h"
#include "machine/models/storage/firmware_variable_store.h"
#include "machine/text/folding.h"

#include <cstring>
#include <map>
#include <span>

namespace comparison {
namespace {

std::size_t Changes = 0;

/// Which of the machine's devices a handle of Wine's belongs to.
std::map<HANDLE, machine::Device*> OpenDevices;

machine::Device* DeviceAt(const machine::Machine& machine, const wchar_t* path) {
    const auto& devices = machine.devices;
    const auto found = devices.find(machine::Folded(Plain(path)));
    return found == devices.end() ? nullptr : found->second;
}

/// No driver can refuse an opening under Wine, so that the machine's device is asked before it.
HANDLE WINAPI OpenDevice(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                         DWORD disposition, DWORD flags, HANDLE likeness) {
    const auto machine = machine::Current();
    machine::Device* const device = DeviceAt(*machine, path);
    if (device != nullptr) {
        if (const DWORD problem = device->Open(access, share); problem != ERROR_SUCCESS) {
            ::SetLastError(problem);
            return INVALID_HANDLE_VALUE;
        }
    }
    const HANDLE handle = ::CreateFileW(path, access, share, security, disposition, flags, likeness);
    if (device != nullptr && handle != INVALID_HANDLE_VALUE) {
        OpenDevices[handle] = device;
    }
    return handle;
}

WINBOOL WINAPI Close(HANDLE handle) {
    const auto machine = machine::Current();
    if (IsMarked(handle)) {
        return Truth(machine->handles.Close(static_cast<std::uintptr_t>(Unmarked(handle))));
    }
    if (const auto opened = OpenDevices.find(handle); opened != OpenDevices.end()) {
        opened->second->Close();
        OpenDevices.erase(opened);
    }
    return ::CloseHandle(handle);
}

/// Wine gives every privilege; the machine may not hold this one.
WINBOOL WINAPI Adjust(HANDLE token, WINBOOL disableAll, PTOKEN_PRIVILEGES wanted, DWORD size,
                      PTOKEN_PRIVILEGES previous, PDWORD previousSize) {
    NoteChange();
    if (::AdjustTokenPrivileges(token, disableAll, wanted, size, previous, previousSize) == FALSE) {
        return FALSE;
    }
    LUID environment{};
    ::LookupPrivilegeValueW(nullptr, L"SeSystemEnvironmentPrivilege", &environment);
    const auto machine = machine::Current();
    machine::FirmwareVariableStore& store = *machine->storage.firmwareVariables;
    const LUID_AND_ATTRIBUTES& asked = wanted->Privileges[0];
    if (wanted->PrivilegeCount == 1 && std::memcmp(&asked.Luid, &environment, sizeof environment) == 0 &&
        asked.Attributes == SE_PRIVILEGE_ENABLED) {
        store.EnablePrivilege();
    }
    ::SetLastError(store.PrivilegeEnabled() ? ERROR_SUCCESS : ERROR_NOT_ALL_ASSIGNED);
    return TRUE;
}

DWORD WINAPI ReadVariable(LPCWSTR name, LPCWSTR guid, PVOID buffer, DWORD size) {
    return WithLastError(platform::GetFirmwareEnvironmentVariableW(
        Plain(name), Plain(guid), std::span(static_cast<std::byte*>(buffer), size)));
}

WINBOOL WINAPI WriteVariable(LPCWSTR name, LPCWSTR guid, PVOID data, DWORD size) {
    NoteChange();
    return Truth(WithLastError(platform::SetFirmwareEnvironmentVariableW(
        Plain(name), Plain(guid), std::span(static_cast<const std::byte*>(data), size))));
}

} // namespace

std::size_t DevicesOpen() {
    return OpenDevices.size();
}

std::size_t ChangesMade() {
    return Changes;
}

void NoteChange() {
    ++Changes;
}

void CloseDevices() {
    while (!OpenDevices.empty()) {
        Close(OpenDevices.begin()->first);
    }
}

void PutUpFirmware(test::ImportPatch& patch) {
    patch.Replace("CreateFileW", &OpenDevice);
    patch.Replace("CloseHandle", &Close);
    patch.Replace("AdjustTokenPrivileges", &Adjust);
    patch.Replace("GetFirmwareEnvironmentVariableW", &ReadVariable);
    patch.Replace("SetFirmwareEnvironmentVariableW", &WriteVariable);
}

} // namespace comparison
