// What the observer calls: the boundary's functions as a back end defines them.
//
// Each has the type of the boundary's own declaration, so that none can drift from it. The four that are overloaded
// are written out.
#pragma once

#include "platform/audio.h"
#include "platform/bluetooth.h"
#include "platform/com.h"
#include "platform/desktop.h"
#include "platform/device_interfaces.h"
#include "platform/device_io.h"
#include "platform/device_nodes.h"
#include "platform/event_log.h"
#include "platform/files.h"
#include "platform/firmware_variables.h"
#include "platform/network_adapters.h"
#include "platform/packages.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/system_information.h"
#include "platform/system_power.h"
#include "platform/time.h"
#include "platform/tracing.h"
#include "platform/wlan.h"
#include "platform/wmi.h"
#include "platform/xml_document.h"

namespace platform::back_end {

// platform/audio.h
decltype(platform::GetDefaultAudioEndpoint) GetDefaultAudioEndpoint;
decltype(platform::Activate) Activate;
decltype(platform::GetMasterVolumeLevelScalar) GetMasterVolumeLevelScalar;
decltype(platform::GetMute) GetMute;

// platform/bluetooth.h
decltype(platform::BluetoothFindFirstRadio) BluetoothFindFirstRadio;
decltype(platform::BluetoothFindNextRadio) BluetoothFindNextRadio;
decltype(platform::BluetoothFindRadioClose) BluetoothFindRadioClose;
decltype(platform::BluetoothGetRadioInfo) BluetoothGetRadioInfo;
decltype(platform::BluetoothFindFirstDevice) BluetoothFindFirstDevice;
decltype(platform::BluetoothFindNextDevice) BluetoothFindNextDevice;
decltype(platform::BluetoothFindDeviceClose) BluetoothFindDeviceClose;

// platform/com.h
decltype(platform::CoInitializeEx) CoInitializeEx;
decltype(platform::CoUninitialize) CoUninitialize;
decltype(platform::StringFromGUID2) StringFromGUID2;
HResult CoCreateInstance(const Guid& classId, std::uint32_t classContext, const Guid& interfaceId,
                         Unknown& made);
decltype(platform::Release) Release;

// platform/desktop.h
decltype(platform::EnumWindows) EnumWindows;
decltype(platform::GetWindowTextLengthW) GetWindowTextLengthW;
decltype(platform::IsWindowEnabled) IsWindowEnabled;
decltype(platform::IsWindow) IsWindow;
decltype(platform::IsWindowVisible) IsWindowVisible;
decltype(platform::IsIconic) IsIconic;
decltype(platform::GetAncestor) GetAncestor;
decltype(platform::GetLastActivePopup) GetLastActivePopup;
decltype(platform::GetTitleBarInfo) GetTitleBarInfo;
decltype(platform::GetWindowLongW) GetWindowLongW;
decltype(platform::GetClassNameW) GetClassNameW;
decltype(platform::FindWindowExW) FindWindowExW;
decltype(platform::GetWindowTextW) GetWindowTextW;
decltype(platform::GetWindowThreadProcessId) GetWindowThreadProcessId;

// platform/device_interfaces.h
decltype(platform::SetupDiGetClassDevsW) SetupDiGetClassDevsW;
decltype(platform::SetupDiEnumDeviceInterfaces) SetupDiEnumDeviceInterfaces;
decltype(platform::SetupDiGetDeviceInterfaceDetailW) SetupDiGetDeviceInterfaceDetailW;
decltype(platform::SetupDiDestroyDeviceInfoList) SetupDiDestroyDeviceInfoList;

// platform/device_io.h
decltype(platform::CreateFileW) CreateFileW;
decltype(platform::DeviceIoControl) DeviceIoControl;
decltype(platform::CloseHandle) CloseHandle;
decltype(platform::GetLastError) GetLastError;

// platform/device_nodes.h
decltype(platform::CM_Get_Device_ID_List_SizeW) CM_Get_Device_ID_List_SizeW;
decltype(platform::CM_Get_Device_ID_ListW) CM_Get_Device_ID_ListW;
decltype(platform::CM_Locate_DevNodeW) CM_Locate_DevNodeW;
decltype(platform::CM_Get_DevNode_Registry_PropertyW) CM_Get_DevNode_Registry_PropertyW;

// platform/event_log.h
decltype(platform::RegisterEventSourceW) RegisterEventSourceW;
decltype(platform::ReportEventW) ReportEventW;
decltype(platform::DeregisterEventSource) DeregisterEventSource;

// platform/files.h
decltype(platform::TextLineEnd) TextLineEnd;
decltype(platform::GetFileAttributesW) GetFileAttributesW;
decltype(platform::ReadFile) ReadFile;
decltype(platform::WriteFile) WriteFile;
decltype(platform::GetFileInformationByHandleEx) GetFileInformationByHandleEx;
decltype(platform::SetFileInformationByHandle) SetFileInformationByHandle;
decltype(platform::LockFileEx) LockFileEx;
decltype(platform::UnlockFileEx) UnlockFileEx;
decltype(platform::FlushFileBuffers) FlushFileBuffers;

// platform/firmware_variables.h
decltype(platform::OpenProcessToken) OpenProcessToken;
decltype(platform::LookupPrivilegeValueW) LookupPrivilegeValueW;
decltype(platform::AdjustTokenPrivileges) AdjustTokenPrivileges;
decltype(platform::GetFirmwareEnvironmentVariableW) GetFirmwareEnvironmentVariableW;
decltype(platform::SetFirmwareEnvironmentVariableW) SetFirmwareEnvironmentVariableW;

// platform/network_adapters.h
decltype(platform::GetAdaptersInfo) GetAdaptersInfo;

// platform/packages.h
decltype(platform::GetPackagesByPackageFamily) GetPackagesByPackageFamily;
decltype(platform::GetPackagePathByFullName) GetPackagePathByFullName;
decltype(platform::SHLoadIndirectString) SHLoadIndirectString;

// platform/processes.h
decltype(platform::OpenProcess) OpenProcess;
decltype(platform::K32GetModuleFileNameExW) K32GetModuleFileNameExW;
decltype(platform::GetProcessTimes) GetProcessTimes;
decltype(platform::K32GetProcessMemoryInfo) K32GetProcessMemoryInfo;

// platform/registry.h
decltype(platform::RegOpenKeyExW) RegOpenKeyExW;
decltype(platform::RegCreateKeyExW) RegCreateKeyExW;
decltype(platform::RegQueryValueExW) RegQueryValueExW;
decltype(platform::RegSetValueExW) RegSetValueExW;
decltype(platform::RegEnumKeyExW) RegEnumKeyExW;
decltype(platform::RegQueryInfoKeyW) RegQueryInfoKeyW;
decltype(platform::RegCloseKey) RegCloseKey;

// platform/system_information.h
decltype(platform::RtlGetVersion) RtlGetVersion;
decltype(platform::LoadLibraryW) LoadLibraryW;
decltype(platform::FreeLibrary) FreeLibrary;
decltype(platform::WldpQueryWindowsLockdownMode) WldpQueryWindowsLockdownMode;
decltype(platform::GetUserGeoID) GetUserGeoID;
decltype(platform::GetGeoInfoW) GetGeoInfoW;
decltype(platform::Time64) Time64;
decltype(platform::LocalTime64) LocalTime64;

// platform/system_power.h
decltype(platform::GetSystemTimes) GetSystemTimes;
decltype(platform::GetSystemPowerStatus) GetSystemPowerStatus;

// platform/time.h
decltype(platform::Sleep) Sleep;

// platform/tracing.h
decltype(platform::EventRegister) EventRegister;
decltype(platform::EventSetInformation) EventSetInformation;
decltype(platform::EventWriteTransfer) EventWriteTransfer;

// platform/wlan.h
decltype(platform::WlanOpenHandle) WlanOpenHandle;
decltype(platform::WlanCloseHandle) WlanCloseHandle;
decltype(platform::WlanEnumInterfaces) WlanEnumInterfaces;
SystemError WlanQueryInterface(WlanClient client, const Guid& interfaceGuid, std::uint32_t opcode,
                               std::optional<WlanConnection>& connection);
SystemError WlanQueryInterface(WlanClient client, const Guid& interfaceGuid, std::uint32_t opcode,
                               std::optional<std::uint32_t>& number);
decltype(platform::WlanGetNetworkBssList) WlanGetNetworkBssList;

// platform/wmi.h
decltype(platform::ConnectServer) ConnectServer;
decltype(platform::CoSetProxyBlanket) CoSetProxyBlanket;
decltype(platform::ExecQuery) ExecQuery;
decltype(platform::Next) Next;
HResult Get(WbemObject object, const char16_t* name, WmiValue& value);
HResult Get(WbemObject object, const char16_t* name, VariantWord& word);
decltype(platform::GetObject) GetObject;
decltype(platform::GetMethod) GetMethod;
decltype(platform::SpawnInstance) SpawnInstance;
decltype(platform::Put) Put;
decltype(platform::ExecMethod) ExecMethod;

// platform/xml_document.h
decltype(platform::put_async) put_async;
decltype(platform::put_validateOnParse) put_validateOnParse;
decltype(platform::put_resolveExternals) put_resolveExternals;
decltype(platform::put_preserveWhiteSpace) put_preserveWhiteSpace;
decltype(platform::load) load;
decltype(platform::get_xml) get_xml;

} // namespace platform::back_end
