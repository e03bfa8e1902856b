// Functions in place of those that the DLL calls, where Wine has no device or service. Each takes the arguments of
// the real one, asks the simulated machine, and answers in the real one's structures.
#pragma once

#include "import_patch.h"

#include "platform/device_io.h"

#include <windows.h>

#include <cstddef>
#include <cstdint>

namespace comparison {

void PutUpRadios(test::ImportPatch& patch);   // WLAN, Bluetooth, adapters
void PutUpDesktop(test::ImportPatch& patch);  // windows, processes
void PutUpPackages(test::ImportPatch& patch); // packages, device nodes
void PutUpFirmware(
    test::ImportPatch& patch);              // variables and the privilege for them, who may open the devices
void PutUpSystem(test::ImportPatch& patch); // version, lockdown mode, nation, time, power
void PutUpCom(test::ImportPatch& patch);    // WMI, sound
void PutUpAll(test::ImportPatch& patch);

/// What the DLL took and has not released, besides what the machine's ledger lists.
std::size_t BlocksOut();   // of the WLAN service's memory
std::size_t DevicesOpen(); // handles of the driver and of ACPI

/// How often the DLL has called what may change the machine: a method of WMI, a write or a privilege of the firmware's.
std::size_t ChangesMade();
void NoteChange();

/// Closes what DevicesOpen counts, before the machine is replaced.
void CloseDevices();

/// Handles of the machine's are none that Wine gives.
inline constexpr std::uintptr_t HandleMark = 0x5EED'0000;

inline HANDLE Marked(platform::Handle handle) {
    return reinterpret_cast<HANDLE>(static_cast<std::uintptr_t>(handle) + HandleMark);
}

inline platform::Handle Unmarked(HANDLE handle) {
    return platform::Handle{reinterpret_cast<std::uintptr_t>(handle) - HandleMark};
}

inline bool IsMarked(HANDLE handle) {
    return (reinterpret_cast<std::uintptr_t>(handle) & ~std::uintptr_t{0xFFFF}) == HandleMark;
}

/// The platform's error of the machine's operation that was just asked, as the thread's own; and its answer.
template <class Answer>
Answer WithLastError(Answer answer) {
    ::SetLastError(platform::GetLastError());
    return answer;
}

inline BOOL Truth(bool answer) {
    return answer ? TRUE : FALSE;
}

inline FILETIME NativeTime(std::uint64_t ticks) {
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

inline char16_t* Plain(wchar_t* text) {
    return reinterpret_cast<char16_t*>(text);
}

inline const char16_t* Plain(const wchar_t* text) {
    return reinterpret_cast<const char16_t*>(text);
}

} // namespace comparison
