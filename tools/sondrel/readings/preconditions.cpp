#include "readings/preconditions.h"

namespace tool {
namespace {

constexpr Precondition Namespace(std::string_view name, std::string_view reading) {
    return {.name = name,
            .title = "WMI namespace",
            .reading = reading,
            .operations = {"CoInitializeEx", "CoCreateInstance", "ConnectServer", "CoSetProxyBlanket"},
            .subject = {}};
}

/// `subject`: as the library writes it in its query. A class without an instance is there.
constexpr Precondition Class(std::string_view name, std::string_view subject, std::string_view reading) {
    return {.name = name,
            .title = "WMI class",
            .reading = reading,
            .operations = {"ExecQuery", "Next", "GetObject"},
            .subject = subject,
            .emptyIsMet = true};
}

/// Wi-Fi and Bluetooth are read once in a process, so one reading has the calls of each.
constexpr Precondition Table[] = {
    {.name = "library", .title = "Library version", .check = OwnCheck::Library},
    {.name = "exports", .title = "Library exports", .check = OwnCheck::Exports},
    {.name = "elevation", .title = "Elevation", .check = OwnCheck::Elevation},
    {.name = "session", .title = "User session", .check = OwnCheck::Session},
    {.name = "user", .title = "User of the process", .check = OwnCheck::User},
    {.name = "signed-in-user",
     .title = "Signed-in user",
     .reading = "WMIGetBatteryHealth",
     .operations = {"ExecQuery", "Next", "Get"},
     .subject = "win32_ComputerSystem"},

    {.name = "driver",
     .title = "Driver device",
     .reading = "InitializeSondrel",
     .operations = {"CreateFileW"}},
    {.name = "driver-version",
     .title = "Driver version",
     .reading = "GetDriverVersion",
     .operations = {"DeviceIoControl"}},
    {.name = "ec",
     .title = "EC identity",
     .reading = "EC_ReadEcFwRev",
     .operations = {"DeviceIoControl", "RegQueryValueExW"}},
    {.name = "ec-map",
     .title = "EC map",
     .reading = "Thermal_Read_Fan",
     .operations = {"DeviceIoControl"},
     .subject = "EC command "},
    {.name = "acpi",
     .title = "ACPI device",
     .reading = "GetSENSOR_WMI_Data",
     .operations = {"CreateFileW", "DeviceIoControl"}},
    {.name = "battery",
     .title = "Battery device",
     .reading = "Battery_Read_Capacity",
     .operations = {"SetupDi", "CreateFileW", "DeviceIoControl"}},

    {.name = "firmware-privilege",
     .title = "Firmware-variable privilege",
     .reading = "GPNV_Get_RandomUUID",
     .operations = {"OpenProcessToken", "LookupPrivilegeValueW", "AdjustTokenPrivileges",
                    "GetFirmwareEnvironmentVariable"},
     .onlyCode = 1314},
    {.name = "firmware-kind",
     .title = "UEFI firmware",
     .reading = "GPNV_Get_RandomUUID",
     .operations = {"GetFirmwareEnvironmentVariable"},
     .onlyCode = 1},

    {.name = "wlan-service",
     .title = "WLAN service",
     .reading = "RF_WiFiRssi",
     .operations = {"WlanOpenHandle"}},
    {.name = "wlan-adapter",
     .title = "Wi-Fi adapter",
     .reading = "RF_WiFiRssi",
     .operations = {"WlanEnumInterfaces"}},
    {.name = "location-consent",
     .title = "Location consent",
     .reading = "RF_WiFiRssi",
     .operations = {"WlanGetNetworkBssList", "WlanQueryInterface"},
     .onlyCode = 5},
    {.name = "bluetooth",
     .title = "Bluetooth radio",
     .reading = "RF_BTIsUsed",
     .operations = {"BluetoothFindFirstRadio"}},
    {.name = "audio",
     .title = "Audio endpoint",
     .reading = "System_Read_VolumeLevel",
     .operations = {"CoCreateInstance", "GetDefaultAudioEndpoint", "Activate", "GetMasterVolumeLevelScalar"}},

    {.name = "app-path",
     .title = "App path",
     .reading = "WMIGetBatteryHealth",
     .operations = {"RegOpenKeyExW", "RegQueryValueExW", "GetFileAttributesW"},
     .absenceIsUnmet = true},
    {.name = "app-path-writable", .title = "App path writable", .check = OwnCheck::AppPathWritable},

    Namespace("ROOT\\CIMV2", "WMIGetSN"),
    Namespace("ROOT\\WMI", "WMIGetMonitorBrightness"),
    Namespace("root\\Microsoft\\Windows\\Storage", "WMIGetHDDInfo"),
    Class("Win32_BaseBoard", "Win32_Baseboard", "WMIGetModelName"),
    Class("Win32_BIOS", "Win32_Bios", "WMIGetSN"),
    Class("Win32_ComputerSystem", "win32_ComputerSystem", "WMIGetProductName"),
    Class("Win32_ComputerSystemProduct", "Win32_ComputerSystemProduct", "WMIGetBoardUUID"),
    Class("Win32_DiskDrive", "Win32_DiskDrive", "WMIGetHDDCaption"),
    Class("Win32_NetworkAdapter", "win32_NetworkAdapter", "WMIGetMacAddress"),
    Class("Win32_OperatingSystem", "Win32_OperatingSystem", "WMIGetOSCountryCode"),
    Class("Win32_PerfFormattedData_PerfProc_Process", "Win32_PerfFormattedData_PerfProc_Process",
          "AppList_CpuUsage"),
    Class("Win32_PerfFormattedData_Tcpip_NetworkInterface", "Win32_PerfFormattedData_Tcpip_Networkinterface",
          "WMIGetWiFiBytesPersec"),
    Class("Win32_PhysicalMemory", "Win32_PhysicalMemory", "WMIGetMemModel"),
    Class("Win32_Processor", "Win32_Processor", "WMIGetCPUInfo"),
    Class("Win32_SystemEnclosure", "Win32_SystemEnclosure", "WMIGetSystemChassisTypes"),
    Class("Win32_VideoController", "win32_VideoController", "WMIGetGPUInfo"),
    Class("MSStorageDriver_FailurePredictData", "MSStorageDriver_FailurePredictData", "WMIGetHDDTemp"),
    Class("VeskZrnWmi_WMNB", "VeskZrnWmi_WMNB", "WMICheckBatteryHealthSupport"),
    Class("WmiMonitorBrightness", "WmiMonitorBrightness", "WMIGetMonitorBrightness"),
    Class("WmiMonitorConnectionParams", "WmiMonitorConnectionParams", "WMIGetExternMonitorNum"),
    Class("WmiMonitorID", "WMIMonitorID", "WMIGetLCDModel"),
    Class("MSFT_PhysicalDisk", "MSFT_PhysicalDisk", "WMIGetHDDInfo"),
};

} // namespace

std::span<const Precondition> AllPreconditions() {
    return Table;
}

} // namespace tool
