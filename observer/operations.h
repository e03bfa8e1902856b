// Every operation of the boundary, once: its name, how it can fail, and the code it really fails with.
//
// The gate, the transcript and the fault sweep all read this list. An operation that cannot fail in any way
// its callers could see has no failure; the sweep leaves it out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace machine {

/// How a call can be made to fail. An operation names the ways that exist for it.
enum class Failure : std::uint8_t {
    None = 0,
    Refused = 1,     // the call fails with its error code
    ShortAnswer = 2, // success, with less than was asked for
    Nothing = 4,     // success, with nothing: a null list, a null object, zero bytes
    Status = 8,      // success, with an answer whose own status says that the device failed
};

namespace failures {
inline constexpr std::uint8_t Never = 0;
inline constexpr std::uint8_t Refused = static_cast<std::uint8_t>(Failure::Refused);
inline constexpr std::uint8_t Short = static_cast<std::uint8_t>(Failure::ShortAnswer);
inline constexpr std::uint8_t Nothing = static_cast<std::uint8_t>(Failure::Nothing);
inline constexpr std::uint8_t Status = static_cast<std::uint8_t>(Failure::Status);
} // namespace failures

// X(operation, failures, code of a refusal)
#define VESK_MACHINE_OPERATIONS(X)                                                                           \
    /* devices */                                                                                            \
    X(CreateFileW, failures::Refused, 5)                                                                     \
    X(DeviceIoControl, failures::Refused | failures::Short | failures::Nothing | failures::Status, 31)       \
    X(CloseHandle, failures::Never, 0)                                                                       \
    /* time */                                                                                               \
    X(Sleep, failures::Never, 0)                                                                             \
    /* registry */                                                                                           \
    X(RegOpenKeyExW, failures::Refused, 5)                                                                   \
    X(RegCreateKeyExW, failures::Refused, 5)                                                                 \
    X(RegQueryValueExW, failures::Refused, 5)                                                                \
    X(RegSetValueExW, failures::Refused, 5)                                                                  \
    X(RegEnumKeyExW, failures::Refused, 5)                                                                   \
    X(RegQueryInfoKeyW, failures::Refused, 5)                                                                \
    X(RegCloseKey, failures::Never, 0)                                                                       \
    /* diagnostics */                                                                                        \
    X(EventRegister, failures::Refused, 8)                                                                   \
    X(EventSetInformation, failures::Refused, 8)                                                             \
    X(EventWriteTransfer, failures::Refused, 8)                                                              \
    X(RegisterEventSourceW, failures::Refused, 5)                                                            \
    X(ReportEventW, failures::Refused, 5)                                                                    \
    X(DeregisterEventSource, failures::Never, 0)                                                             \
    /* battery device */                                                                                     \
    X(SetupDiGetClassDevsW, failures::Refused, 8)                                                            \
    X(SetupDiEnumDeviceInterfaces, failures::Refused, 259)                                                   \
    X(SetupDiGetDeviceInterfaceDetailW, failures::Refused, 31)                                               \
    X(SetupDiDestroyDeviceInfoList, failures::Never, 0)                                                      \
    /* processor and power */                                                                                \
    X(GetSystemTimes, failures::Refused, 5)                                                                  \
    X(GetSystemPowerStatus, failures::Refused, 31)                                                           \
    /* firmware variables */                                                                                 \
    X(OpenProcessToken, failures::Refused, 5)                                                                \
    X(LookupPrivilegeValueW, failures::Refused, 1313)                                                        \
    X(AdjustTokenPrivileges, failures::Refused, 5)                                                           \
    X(GetFirmwareEnvironmentVariableW, failures::Refused | failures::Short, 1)                               \
    X(SetFirmwareEnvironmentVariableW, failures::Refused, 1)                                                 \
    /* files */                                                                                              \
    X(GetFileAttributesW, failures::Refused, 5)                                                              \
    X(ReadFile, failures::Refused | failures::Short | failures::Nothing, 30)                                 \
    X(WriteFile, failures::Refused | failures::Short, 112)                                                   \
    X(SetEndOfFile, failures::Refused, 112)                                                                  \
    X(FlushFileBuffers, failures::Refused, 29)                                                               \
    X(MoveFileExW, failures::Refused, 5)                                                                     \
    X(DeleteFileW, failures::Refused, 5)                                                                     \
    /* COM apartments */                                                                                     \
    X(CoInitializeEx, failures::Refused, 0x80010106)                                                         \
    X(CoUninitialize, failures::Never, 0)                                                                    \
    X(StringFromGUID2, failures::Refused, 0)                                                                 \
    X(CoCreateInstance, failures::Refused, 0x80040154)                                                       \
    X(Release, failures::Never, 0)                                                                           \
    /* WMI */                                                                                                \
    X(ConnectServer, failures::Refused, 0x80041003)                                                          \
    X(CoSetProxyBlanket, failures::Refused, 0x80070005)                                                      \
    X(ExecQuery, failures::Refused, 0x80041003)                                                              \
    X(Next, failures::Refused | failures::Nothing, 0x80041010)                                               \
    X(Get, failures::Refused | failures::Nothing, 0x80041002)                                                \
    X(GetObject, failures::Refused, 0x80041002)                                                              \
    X(GetMethod, failures::Refused | failures::Nothing, 0x80041002)                                          \
    X(SpawnInstance, failures::Refused, 0x80041006)                                                          \
    X(Put, failures::Refused, 0x80041005)                                                                    \
    X(ExecMethod, failures::Refused | failures::Nothing, 0x80041024)                                         \
    /* system */                                                                                             \
    X(RtlGetVersion, failures::Refused, 127)                                                                 \
    X(LoadLibraryW, failures::Refused, 126)                                                                  \
    X(FreeLibrary, failures::Never, 0)                                                                       \
    X(WldpQueryWindowsLockdownMode, failures::Refused, 0x80070005)                                           \
    X(GetUserGeoID, failures::Refused, 87)                                                                   \
    X(GetGeoInfoW, failures::Refused, 87)                                                                    \
    X(Time64, failures::Never, 0)                                                                            \
    X(LocalTime64, failures::Refused, 22)                                                                    \
    /* audio endpoints */                                                                                    \
    X(GetDefaultAudioEndpoint, failures::Refused, 0x80070490)                                                \
    X(Activate, failures::Refused, 0x88890004)                                                               \
    X(GetMasterVolumeLevelScalar, failures::Refused, 0x88890004)                                             \
    X(GetMute, failures::Refused, 0x88890004)                                                                \
    /* network adapters */                                                                                   \
    X(GetAdaptersInfo, failures::Refused, 31)                                                                \
    /* WLAN */                                                                                               \
    X(WlanOpenHandle, failures::Refused, 1062)                                                               \
    X(WlanCloseHandle, failures::Never, 0)                                                                   \
    X(WlanEnumInterfaces, failures::Refused | failures::Nothing, 5)                                          \
    X(WlanQueryInterface, failures::Refused | failures::Nothing, 5023)                                       \
    X(WlanGetNetworkBssList, failures::Refused | failures::Nothing, 5)                                       \
    /* Bluetooth */                                                                                          \
    X(BluetoothFindFirstRadio, failures::Refused, 5)                                                         \
    X(BluetoothFindNextRadio, failures::Refused, 1167)                                                       \
    X(BluetoothFindRadioClose, failures::Never, 0)                                                           \
    X(BluetoothGetRadioInfo, failures::Refused, 1167)                                                        \
    X(BluetoothFindFirstDevice, failures::Refused, 1167)                                                     \
    X(BluetoothFindNextDevice, failures::Refused, 1167)                                                      \
    X(BluetoothFindDeviceClose, failures::Never, 0)                                                          \
    /* packages */                                                                                           \
    X(GetPackagesByPackageFamily, failures::Refused | failures::Nothing, 31)                                 \
    X(GetPackagePathByFullName, failures::Refused, 1168)                                                     \
    X(SHLoadIndirectString, failures::Refused | failures::Nothing, 0x80004005)                               \
    X(put_async, failures::Refused, 0x80004005)                                                              \
    X(put_validateOnParse, failures::Refused, 0x80004005)                                                    \
    X(put_resolveExternals, failures::Refused, 0x80004005)                                                   \
    X(put_preserveWhiteSpace, failures::Refused, 0x80004005)                                                 \
    X(load, failures::Refused | failures::Nothing, 0x80004005)                                               \
    X(get_xml, failures::Refused | failures::Nothing, 0x80004005)                                            \
    X(CM_Get_Device_ID_List_SizeW, failures::Refused | failures::Nothing, 19)                                \
    X(CM_Get_Device_ID_ListW, failures::Refused, 19)                                                         \
    X(CM_Locate_DevNodeW, failures::Refused, 13)                                                             \
    X(CM_Get_DevNode_Registry_PropertyW, failures::Refused, 37)                                              \
    /* windows and processes */                                                                              \
    X(EnumWindows, failures::Refused, 5)                                                                     \
    X(GetWindowTextLengthW, failures::Refused, 1400)                                                         \
    X(IsWindowEnabled, failures::Refused, 1400)                                                              \
    X(IsWindow, failures::Refused, 1400)                                                                     \
    X(IsWindowVisible, failures::Refused, 1400)                                                              \
    X(GetAncestor, failures::Refused, 1400)                                                                  \
    X(GetLastActivePopup, failures::Refused, 1400)                                                           \
    X(GetTitleBarInfo, failures::Refused, 1400)                                                              \
    X(GetWindowLongW, failures::Refused, 1400)                                                               \
    X(IsIconic, failures::Refused, 1400)                                                                     \
    X(GetClassNameW, failures::Refused, 1400)                                                                \
    X(FindWindowExW, failures::Refused, 1400)                                                                \
    X(GetWindowTextW, failures::Refused, 1400)                                                               \
    X(GetWindowThreadProcessId, failures::Refused, 1400)                                                     \
    X(OpenProcess, failures::Refused, 5)                                                                     \
    X(K32GetModuleFileNameExW, failures::Refused, 31)                                                        \
    X(GetProcessTimes, failures::Refused, 5)                                                                 \
    X(K32GetProcessMemoryInfo, failures::Refused, 5)

enum class Operation : std::uint16_t {
#define VESK_MACHINE_ENUMERATOR(name, failures, code) name,
    VESK_MACHINE_OPERATIONS(VESK_MACHINE_ENUMERATOR)
#undef VESK_MACHINE_ENUMERATOR
};

struct OperationRow {
    std::string_view name;
    std::uint8_t failures;
    std::uint32_t refusal;
};

inline constexpr OperationRow OperationTable[] = {
#define VESK_MACHINE_ROW(name, failures, code) {#name, failures, code},
    VESK_MACHINE_OPERATIONS(VESK_MACHINE_ROW)
#undef VESK_MACHINE_ROW
};

constexpr const OperationRow& RowOf(Operation operation) {
    return OperationTable[static_cast<std::size_t>(operation)];
}

} // namespace machine
