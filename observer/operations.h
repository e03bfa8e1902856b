// Every operation of the boundary, once: what it returns, how it can fail, and the code it really fails with.
//
// The transcript, the faults, the replay and the fault sweep read this table. An operation that cannot fail in any way that its
// callers could see has no kind of failure.
#pragma once

#include "observer/operation.h"

#include <cstddef>
#include <iterator>

// X(operation, how it answers and fails)
#define VESK_OBSERVED_OPERATIONS(X)                                                                          \
    /* devices */                                                                                            \
    X(CreateFileW, row::Handle(5, -1))                                                                       \
    X(DeviceIoControl, row::Flag(31).Shortened(Shortening::HalfOfAnswer).Emptied().WithStatus())             \
    X(CloseHandle, row::Void)                                                                                \
    /* time */                                                                                               \
    X(Sleep, row::Void)                                                                                      \
    /* registry */                                                                                           \
    X(RegOpenKeyExW, row::Error(5))                                                                          \
    X(RegCreateKeyExW, row::Error(5))                                                                        \
    X(RegQueryValueExW, row::Error(5))                                                                       \
    X(RegSetValueExW, row::Error(5))                                                                         \
    X(RegEnumKeyExW, row::Error(5))                                                                          \
    X(RegQueryInfoKeyW, row::Error(5))                                                                       \
    X(RegCloseKey, row::Void)                                                                                \
    /* diagnostics */                                                                                        \
    X(EventRegister, row::Error(8).Reporting())                                                              \
    X(EventSetInformation, row::Error(8).Reporting())                                                        \
    X(EventWriteTransfer, row::Error(8).Reporting())                                                         \
    X(RegisterEventSourceW, row::Handle(5).Reporting())                                                      \
    X(ReportEventW, row::Flag(5).Reporting())                                                                \
    X(DeregisterEventSource, row::Void.Reporting())                                                          \
    /* battery device */                                                                                     \
    X(SetupDiGetClassDevsW, row::Handle(8, -1))                                                              \
    X(SetupDiEnumDeviceInterfaces, row::Flag(259))                                                           \
    X(SetupDiGetDeviceInterfaceDetailW, row::Flag(31))                                                       \
    X(SetupDiDestroyDeviceInfoList, row::Void)                                                               \
    /* processor and power */                                                                                \
    X(GetSystemTimes, row::Flag(5))                                                                          \
    X(GetSystemPowerStatus, row::Flag(31))                                                                   \
    /* firmware variables */                                                                                 \
    X(OpenProcessToken, row::Flag(5))                                                                        \
    X(LookupPrivilegeValueW, row::Flag(1313))                                                                \
    X(AdjustTokenPrivileges, row::Flag(5, LastError::SetAlways))                                             \
    X(GetFirmwareEnvironmentVariableW, row::Count(1).Shortened(Shortening::HalfOfCount))                     \
    X(SetFirmwareEnvironmentVariableW, row::Flag(1))                                                         \
    /* files */                                                                                              \
    X(GetFileAttributesW, row::Count(5, 0xFFFFFFFF))                                                         \
    X(ReadFile, row::Flag(30).Shortened(Shortening::BufferOfOneByte).Emptied())                              \
    X(WriteFile, row::Flag(112).Shortened(Shortening::HalfOfInput))                                          \
    X(GetFileInformationByHandleEx, row::Flag(5))                                                            \
    X(SetFileInformationByHandle, row::Flag(112))                                                            \
    X(LockFileEx, row::Flag(33))                                                                             \
    X(UnlockFileEx, row::Void)                                                                               \
    X(FlushFileBuffers, row::Flag(29))                                                                       \
    X(TextLineEnd, row::Value)                                                                               \
    /* COM apartments */                                                                                     \
    X(CoInitializeEx, row::HResult(0x80010106))                                                              \
    X(CoUninitialize, row::Void)                                                                             \
    X(StringFromGUID2, row::Count(0, 0, LastError::NotSet))                                                  \
    X(CoCreateInstance, row::HResult(0x80040154))                                                            \
    X(Release, row::Void)                                                                                    \
    /* WMI */                                                                                                \
    X(ConnectServer, row::HResult(0x80041003))                                                               \
    X(CoSetProxyBlanket, row::HResult(0x80070005))                                                           \
    X(ExecQuery, row::HResult(0x80041003))                                                                   \
    X(Next, row::HResult(0x80041010).Emptied(1))                                                             \
    X(Get, row::HResult(0x80041002).Emptied())                                                               \
    X(GetObject, row::HResult(0x80041002))                                                                   \
    X(GetMethod, row::HResult(0x80041002).Emptied())                                                         \
    X(SpawnInstance, row::HResult(0x80041006))                                                               \
    X(Put, row::HResult(0x80041005))                                                                         \
    X(ExecMethod, row::HResult(0x80041024).Emptied())                                                        \
    /* system */                                                                                             \
    X(RtlGetVersion, row::Flag(127, LastError::NotSet))                                                      \
    X(LoadLibraryW, row::Handle(126))                                                                        \
    X(FreeLibrary, row::Void)                                                                                \
    X(WldpQueryWindowsLockdownMode, row::HResult(0x80070005))                                                \
    X(GetUserGeoID, row::Count(87, -1, LastError::NotSet))                                                   \
    X(GetGeoInfoW, row::Count(87))                                                                           \
    X(Time64, row::Value)                                                                                    \
    X(LocalTime64, row::Flag(22, LastError::NotSet))                                                         \
    /* audio endpoints */                                                                                    \
    X(GetDefaultAudioEndpoint, row::HResult(0x80070490))                                                     \
    X(Activate, row::HResult(0x88890004))                                                                    \
    X(GetMasterVolumeLevelScalar, row::HResult(0x88890004))                                                  \
    X(GetMute, row::HResult(0x88890004))                                                                     \
    /* network adapters */                                                                                   \
    X(GetAdaptersInfo, row::Error(31))                                                                       \
    /* WLAN */                                                                                               \
    X(WlanOpenHandle, row::Error(1062))                                                                      \
    X(WlanCloseHandle, row::Void)                                                                            \
    X(WlanEnumInterfaces, row::Error(5).Emptied())                                                           \
    X(WlanQueryInterface, row::Error(5023).Emptied())                                                        \
    X(WlanGetNetworkBssList, row::Error(5).Emptied())                                                        \
    /* Bluetooth */                                                                                          \
    X(BluetoothFindFirstRadio, row::Handle(5))                                                               \
    X(BluetoothFindNextRadio, row::Flag(1167))                                                               \
    X(BluetoothFindRadioClose, row::Void)                                                                    \
    X(BluetoothGetRadioInfo, row::Error(1167))                                                               \
    X(BluetoothFindFirstDevice, row::Handle(1167))                                                           \
    X(BluetoothFindNextDevice, row::Flag(1167))                                                              \
    X(BluetoothFindDeviceClose, row::Void)                                                                   \
    /* packages */                                                                                           \
    X(GetPackagesByPackageFamily, row::Error(31).Emptied())                                                  \
    X(GetPackagePathByFullName, row::Error(1168))                                                            \
    X(SHLoadIndirectString, row::HResult(0x80004005).Emptied())                                              \
    X(put_async, row::HResult(0x80004005))                                                                   \
    X(put_validateOnParse, row::HResult(0x80004005))                                                         \
    X(put_resolveExternals, row::HResult(0x80004005))                                                        \
    X(put_preserveWhiteSpace, row::HResult(0x80004005))                                                      \
    X(load, row::HResult(0x80004005).Emptied(1))                                                             \
    X(get_xml, row::HResult(0x80004005).Emptied(1))                                                          \
    X(CM_Get_Device_ID_List_SizeW, row::Error(19).Emptied())                                                 \
    X(CM_Get_Device_ID_ListW, row::Error(19))                                                                \
    X(CM_Locate_DevNodeW, row::Error(13))                                                                    \
    X(CM_Get_DevNode_Registry_PropertyW, row::Error(37))                                                     \
    /* windows and processes */                                                                              \
    X(EnumWindows, row::Count(5, 0, LastError::NotSet))                                                      \
    X(GetWindowTextLengthW, row::Count(1400, 0, LastError::NotSet).ReturningSize())                          \
    X(IsWindowEnabled, row::Flag(1400, LastError::NotSet))                                                   \
    X(IsWindow, row::Flag(1400, LastError::NotSet))                                                          \
    X(IsWindowVisible, row::Flag(1400, LastError::NotSet))                                                   \
    X(IsIconic, row::Flag(1400, LastError::NotSet))                                                          \
    X(GetAncestor, row::Handle(1400, 0, LastError::NotSet))                                                  \
    X(GetLastActivePopup, row::Handle(1400, 0, LastError::NotSet))                                           \
    X(GetTitleBarInfo, row::Flag(1400, LastError::NotSet))                                                   \
    X(GetWindowLongW, row::Count(1400, 0, LastError::NotSet))                                                \
    X(GetClassNameW, row::Count(1400, 0, LastError::NotSet))                                                 \
    X(FindWindowExW, row::Handle(1400, 0, LastError::NotSet))                                                \
    X(GetWindowTextW, row::Count(1400, 0, LastError::NotSet))                                                \
    X(GetWindowThreadProcessId, row::Count(1400, 0, LastError::NotSet))                                      \
    X(OpenProcess, row::Handle(5))                                                                           \
    X(K32GetModuleFileNameExW, row::Count(31))                                                               \
    X(GetProcessTimes, row::Flag(5))                                                                         \
    X(K32GetProcessMemoryInfo, row::Flag(5))

namespace observer {

enum class Operation : std::uint16_t {
#define VESK_ENUMERATOR(name, properties) name,
    VESK_OBSERVED_OPERATIONS(VESK_ENUMERATOR)
#undef VESK_ENUMERATOR
};

inline constexpr OperationRow OperationTable[] = {
#define VESK_ROW(name, properties) (properties).Named(#name),
    VESK_OBSERVED_OPERATIONS(VESK_ROW)
#undef VESK_ROW
};

inline constexpr std::size_t OperationCount = std::size(OperationTable);

constexpr const OperationRow& RowOf(Operation operation) {
    return OperationTable[static_cast<std::size_t>(operation)];
}

/// A device whose answers contain a status: where it is in the answer of which request. An answer with any
/// other status than 0 there says that the device failed.
struct StatusField {
    std::uint32_t controlCode;
    std::size_t offset;
};

inline constexpr StatusField StatusFields[] = {
    {0x80102070, 12}, // an EC command of the I/O driver
};

} // namespace observer
