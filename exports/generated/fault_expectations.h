// Generated from exports/exports.json by exports/generate.py.
// For the fault sweep: what an export may answer after a boundary call has failed, by the export's index.
#pragma once

#include "exports/generated/enums.h"

#include <iterator>
#include <span>
#include <string_view>

namespace exports {

enum class AnswerForm : std::uint8_t { Exact, EcNumber, EcList, ShortenedText, Words, Document, List, Radio };

struct FaultExpectation {
    AnswerForm form;
    /// The good answer may come although one of these failed; "*" means all.
    std::span<const std::string_view> maySucceedWithout;
    /// The good answer must not come when one of these failed, although it may for most exports.
    std::span<const std::string_view> mustNotice;
};

namespace expectation_lists {

inline constexpr std::string_view InitializeSondrel_MaySucceedWithout[] = {"CreateFileW"};
inline constexpr std::string_view Battery_Read_CycleCount_MaySucceedWithout[] = {"SetupDiGetClassDevsW", "CreateFileW"};
inline constexpr std::string_view CPU_ReadCpuId_MustNotice[] = {"DeviceIoControl"};
inline constexpr std::string_view GetEEPROM_Data_MaySucceedWithout[] = {"CreateFileW"};
inline constexpr std::string_view GetSENSOR_WMI_Data_MustNotice[] = {"DeviceIoControl"};
inline constexpr std::string_view GPNV_Get_RandomUUID_MaySucceedWithout[] = {"GetFirmwareEnvironmentVariableW"};
inline constexpr std::string_view GPNV_Set_RandomUUID_MaySucceedWithout[] = {"*"};
inline constexpr std::string_view GPNV_Set_RandomUUID_MustNotice[] = {"SetFirmwareEnvironmentVariableW"};
inline constexpr std::string_view GPNV_Set_ActivatedTime_MaySucceedWithout[] = {"*"};
inline constexpr std::string_view GPNV_Set_ActivatedTime_MustNotice[] = {"SetFirmwareEnvironmentVariableW"};
inline constexpr std::string_view GPNV_Set_ManufacturedTime_MaySucceedWithout[] = {"*"};
inline constexpr std::string_view GPNV_Set_ManufacturedTime_MustNotice[] = {"SetFirmwareEnvironmentVariableW"};
inline constexpr std::string_view WMICheckBatteryHealthSupport_MustNotice[] = {"Next"};
inline constexpr std::string_view WMICheckQuietFanSupport_MustNotice[] = {"Next"};
inline constexpr std::string_view WMIGetBatteryHealth_MaySucceedWithout[] = {"*"};
inline constexpr std::string_view WMIGetBatteryHealth_MustNotice[] = {"CreateFileW"};
inline constexpr std::string_view WMIGetQuietFan_MaySucceedWithout[] = {"*"};
inline constexpr std::string_view WMIGetQuietFan_MustNotice[] = {"CreateFileW"};
inline constexpr std::string_view WMISetBatteryHealth_MaySucceedWithout[] = {"*"};
inline constexpr std::string_view WMISetBatteryHealth_MustNotice[] = {"GetMethod", "SpawnInstance", "ExecMethod"};
inline constexpr std::string_view WMISetQuietFan_MaySucceedWithout[] = {"*"};
inline constexpr std::string_view WMISetQuietFan_MustNotice[] = {"GetMethod", "SpawnInstance", "ExecMethod"};
inline constexpr std::string_view WMISetAppPath_MaySucceedWithout[] = {"*"};
inline constexpr std::string_view WMISetAppPath_MustNotice[] = {"RegSetValueExW"};
inline constexpr std::string_view WMIGetWiFiBytesPersec_MaySucceedWithout[] = {"Get"};
inline constexpr std::string_view System_Check_S_Mode_MaySucceedWithout[] = {"*"};
inline constexpr std::string_view System_Read_TabletMode_MustNotice[] = {"DeviceIoControl"};
inline constexpr std::string_view GetApplist_UWP_MaySucceedWithout[] = {"GetPackagesByPackageFamily", "SHLoadIndirectString", "GetPackagePathByFullName", "put_async", "put_validateOnParse", "put_resolveExternals", "put_preserveWhiteSpace"};
inline constexpr std::string_view App_Get_UWPApp_MustNotice[] = {"RegOpenKeyExW", "RegEnumKeyExW"};
inline constexpr std::string_view App_Get_Win32WOW6432App_MustNotice[] = {"RegEnumKeyExW"};
inline constexpr std::string_view GetInfVersion_MaySucceedWithout[] = {"CM_Locate_DevNodeW", "CM_Get_DevNode_Registry_PropertyW"};
inline constexpr std::string_view GetInfVersion_MustNotice[] = {"RegOpenKeyExW", "RegQueryValueExW"};
inline constexpr std::string_view AppList_OpenWindows_MaySucceedWithout[] = {"*"};
inline constexpr std::string_view AppList_OpenWindows_MustNotice[] = {"EnumWindows"};
inline constexpr std::string_view AppList_CpuUsage_MaySucceedWithout[] = {"Get"};
inline constexpr std::string_view AppList_MemUsage_MaySucceedWithout[] = {"Get"};
inline constexpr std::string_view AppList_HardwareConfig_MaySucceedWithout[] = {"GetMute"};

} // namespace expectation_lists

inline constexpr FaultExpectation FaultExpectations[] = {
    {AnswerForm::Exact, expectation_lists::InitializeSondrel_MaySucceedWithout, {}}, // InitializeSondrel
    {AnswerForm::Exact, {}, {}}, // ShutdownSondrel
    {AnswerForm::EcNumber, {}, {}}, // GetDriverVersion
    {AnswerForm::EcNumber, {}, {}}, // GetRefCount
    {AnswerForm::Exact, {}, {}}, // GetIoDllVersion
    {AnswerForm::EcNumber, {}, {}}, // EC_ReadEcFwRev
    {AnswerForm::EcNumber, {}, {}}, // EC_ReadEcChipId
    {AnswerForm::EcNumber, {}, {}}, // EC_ReadEcChipName
    {AnswerForm::Exact, {}, {}}, // Battery_Read_DesignedCapacity
    {AnswerForm::Exact, {}, {}}, // Battery_Read_FullChargedCapcity
    {AnswerForm::Exact, {}, {}}, // Battery_Read_Capacity
    {AnswerForm::Exact, {}, {}}, // Battery_Read_DesignVoltage
    {AnswerForm::Exact, {}, {}}, // Battery_Read_ASOC
    {AnswerForm::Exact, {}, {}}, // Battery_Read_CapacityPercentage
    {AnswerForm::EcNumber, expectation_lists::Battery_Read_CycleCount_MaySucceedWithout, {}}, // Battery_Read_CycleCount
    {AnswerForm::EcNumber, {}, {}}, // Battery_Get_LidStatus
    {AnswerForm::EcNumber, {}, {}}, // Battery_Read_ChargingVoltage
    {AnswerForm::EcNumber, {}, {}}, // Battery_Read_PackageVoltage
    {AnswerForm::EcNumber, {}, {}}, // Battery_Read_Temperature
    {AnswerForm::EcNumber, {}, {}}, // Battery_Read_Current
    {AnswerForm::EcList, {}, {}}, // Battery_Read_CellVoltage
    {AnswerForm::EcList, {}, {}}, // Battery_Read_ManufactureDate
    {AnswerForm::ShortenedText, {}, {}}, // Battery_Read_ManufactureName
    {AnswerForm::EcNumber, {}, {}}, // Thermal_Read_Cpu_Temperature
    {AnswerForm::EcNumber, {}, {}}, // Thermal_Read_BoardTS0L_Temperature
    {AnswerForm::EcNumber, {}, {}}, // Thermal_Read_BoardTS0R_Temperature
    {AnswerForm::EcNumber, {}, {}}, // Thermal_Read_GpuTS1L_Temperature
    {AnswerForm::EcNumber, {}, {}}, // Thermal_Read_GpuTS1R_Temperature
    {AnswerForm::EcNumber, {}, {}}, // Thermal_Read_BatteryConnector_Temperature
    {AnswerForm::EcNumber, {}, {}}, // Thermal_Read_ACFET_Temperature
    {AnswerForm::EcNumber, {}, {}}, // Thermal_Read_ChargerChoke_Temperature
    {AnswerForm::EcNumber, {}, {}}, // Thermal_Read_GpuVrm_Temperature
    {AnswerForm::EcNumber, {}, {}}, // Thermal_Read_UpCpu_Temperature
    {AnswerForm::EcNumber, {}, {}}, // Thermal_Read_GpuVram_Temperature
    {AnswerForm::EcList, {}, {}}, // Thermal_Read_Fan
    {AnswerForm::Exact, {}, {}}, // CPU_ReadCPUUsage
    {AnswerForm::Words, {}, expectation_lists::CPU_ReadCpuId_MustNotice}, // CPU_ReadCpuId
    {AnswerForm::EcNumber, {}, {}}, // Thermal_Read_CpuPackagePower
    {AnswerForm::EcNumber, {}, {}}, // Thermal_Read_CpuDptf_PowerLimit1
    {AnswerForm::EcNumber, {}, {}}, // Thermal_Read_CpuDptf_PowerLimit2
    {AnswerForm::Exact, {}, {}}, // Power_Read_ACDCMode
    {AnswerForm::Document, expectation_lists::GetEEPROM_Data_MaySucceedWithout, {}}, // GetEEPROM_Data
    {AnswerForm::Document, {}, expectation_lists::GetSENSOR_WMI_Data_MustNotice}, // GetSENSOR_WMI_Data
    {AnswerForm::Exact, expectation_lists::GPNV_Get_RandomUUID_MaySucceedWithout, {}}, // GPNV_Get_RandomUUID
    {AnswerForm::Exact, {}, {}}, // GPNV_Get_ActivatedTime
    {AnswerForm::Exact, {}, {}}, // GPNV_Get_ManufacturedTime
    {AnswerForm::Exact, expectation_lists::GPNV_Set_RandomUUID_MaySucceedWithout, expectation_lists::GPNV_Set_RandomUUID_MustNotice}, // GPNV_Set_RandomUUID
    {AnswerForm::Exact, expectation_lists::GPNV_Set_ActivatedTime_MaySucceedWithout, expectation_lists::GPNV_Set_ActivatedTime_MustNotice}, // GPNV_Set_ActivatedTime
    {AnswerForm::Exact, expectation_lists::GPNV_Set_ManufacturedTime_MaySucceedWithout, expectation_lists::GPNV_Set_ManufacturedTime_MustNotice}, // GPNV_Set_ManufacturedTime
    {AnswerForm::Exact, {}, expectation_lists::WMICheckBatteryHealthSupport_MustNotice}, // WMICheckBatteryHealthSupport
    {AnswerForm::Exact, {}, expectation_lists::WMICheckQuietFanSupport_MustNotice}, // WMICheckQuietFanSupport
    {AnswerForm::Exact, expectation_lists::WMIGetBatteryHealth_MaySucceedWithout, expectation_lists::WMIGetBatteryHealth_MustNotice}, // WMIGetBatteryHealth
    {AnswerForm::Exact, expectation_lists::WMIGetQuietFan_MaySucceedWithout, expectation_lists::WMIGetQuietFan_MustNotice}, // WMIGetQuietFan
    {AnswerForm::Exact, expectation_lists::WMISetBatteryHealth_MaySucceedWithout, expectation_lists::WMISetBatteryHealth_MustNotice}, // WMISetBatteryHealth
    {AnswerForm::Exact, expectation_lists::WMISetQuietFan_MaySucceedWithout, expectation_lists::WMISetQuietFan_MustNotice}, // WMISetQuietFan
    {AnswerForm::Exact, expectation_lists::WMISetAppPath_MaySucceedWithout, expectation_lists::WMISetAppPath_MustNotice}, // WMISetAppPath
    {AnswerForm::List, {}, {}}, // WMIGet90Number
    {AnswerForm::List, {}, {}}, // WMIGetBiosManufacture
    {AnswerForm::List, {}, {}}, // WMIGetBiosReleaseDate
    {AnswerForm::List, {}, {}}, // WMIGetBiosVersion
    {AnswerForm::List, {}, {}}, // WMIGetBoardUUID
    {AnswerForm::List, {}, {}}, // WMIGetCPUInfo
    {AnswerForm::Exact, {}, {}}, // WMIGetCPUUsg
    {AnswerForm::List, {}, {}}, // WMIGetComputerFamilyName
    {AnswerForm::Exact, {}, {}}, // WMIGetExternMonitorNum
    {AnswerForm::List, {}, {}}, // WMIGetGPUInfo
    {AnswerForm::List, {}, {}}, // WMIGetHDDCaption
    {AnswerForm::List, {}, {}}, // WMIGetHDDInfo
    {AnswerForm::List, {}, {}}, // WMIGetHDDModel
    {AnswerForm::List, {}, {}}, // WMIGetHDDSize
    {AnswerForm::List, {}, {}}, // WMIGetHDDTemp
    {AnswerForm::List, {}, {}}, // WMIGetLCDModel
    {AnswerForm::List, {}, {}}, // WMIGetMacAddress
    {AnswerForm::List, {}, {}}, // WMIGetMemManufacture
    {AnswerForm::List, {}, {}}, // WMIGetMemModel
    {AnswerForm::List, {}, {}}, // WMIGetMemSize
    {AnswerForm::List, {}, {}}, // WMIGetModelName
    {AnswerForm::Exact, {}, {}}, // WMIGetMonitorBrightness
    {AnswerForm::List, {}, {}}, // WMIGetOSCountryCode
    {AnswerForm::Words, {}, {}}, // WMIGetOSInfo
    {AnswerForm::List, {}, {}}, // WMIGetProductName
    {AnswerForm::List, {}, {}}, // WMIGetSN
    {AnswerForm::List, {}, {}}, // WMIGetSSDModel
    {AnswerForm::Exact, {}, {}}, // WMIGetSystemChassisTypes
    {AnswerForm::Exact, {}, {}}, // wmiadd
    {AnswerForm::List, {}, {}}, // WMIGetWiFiCardName
    {AnswerForm::List, expectation_lists::WMIGetWiFiBytesPersec_MaySucceedWithout, {}}, // WMIGetWiFiBytesPersec
    {AnswerForm::Exact, {}, {}}, // RF_WiFiIsConnected
    {AnswerForm::Exact, {}, {}}, // RF_WiFiCardName
    {AnswerForm::Exact, {}, {}}, // RF_WiFiRssi
    {AnswerForm::Exact, {}, {}}, // RF_WiFiChannel
    {AnswerForm::Exact, {}, {}}, // RF_AP_MAC
    {AnswerForm::Exact, {}, {}}, // RF_WiFiMaxRate
    {AnswerForm::Exact, {}, {}}, // RF_PhyMode
    {AnswerForm::Radio, {}, {}}, // RF_BTIsUsed
    {AnswerForm::Exact, {}, {}}, // RF_BTConnectedNum
    {AnswerForm::Exact, {}, {}}, // RF_BTConnectedType
    {AnswerForm::Exact, expectation_lists::System_Check_S_Mode_MaySucceedWithout, {}}, // System_Check_S_Mode
    {AnswerForm::Exact, {}, {}}, // System_GetCountryCode_ISO2
    {AnswerForm::Exact, {}, {}}, // System_Read_LocalTime
    {AnswerForm::Exact, {}, {}}, // System_Read_VolumeLevel
    {AnswerForm::EcNumber, {}, expectation_lists::System_Read_TabletMode_MustNotice}, // System_Read_TabletMode
    {AnswerForm::Document, {}, {}}, // GetApplist_x64
    {AnswerForm::Document, {}, {}}, // GetApplist_x86
    {AnswerForm::Document, expectation_lists::GetApplist_UWP_MaySucceedWithout, {}}, // GetApplist_UWP
    {AnswerForm::List, {}, expectation_lists::App_Get_UWPApp_MustNotice}, // App_Get_UWPApp
    {AnswerForm::List, {}, {}}, // App_Get_Win32App
    {AnswerForm::List, {}, expectation_lists::App_Get_Win32WOW6432App_MustNotice}, // App_Get_Win32WOW6432App
    {AnswerForm::Exact, expectation_lists::GetInfVersion_MaySucceedWithout, expectation_lists::GetInfVersion_MustNotice}, // GetInfVersion
    {AnswerForm::Exact, {}, {}}, // GetUWPVersion
    {AnswerForm::Document, expectation_lists::AppList_OpenWindows_MaySucceedWithout, expectation_lists::AppList_OpenWindows_MustNotice}, // AppList_OpenWindows
    {AnswerForm::Document, expectation_lists::AppList_CpuUsage_MaySucceedWithout, {}}, // AppList_CpuUsage
    {AnswerForm::Document, expectation_lists::AppList_MemUsage_MaySucceedWithout, {}}, // AppList_MemUsage
    {AnswerForm::Document, expectation_lists::AppList_HardwareConfig_MaySucceedWithout, {}}, // AppList_HardwareConfig
};
static_assert(std::size(FaultExpectations) == ExportCount);

} // namespace exports
