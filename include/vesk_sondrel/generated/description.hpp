/**
 * @file
 * States, units, and the exports by name. Generated from exports/exports.json by scripts/generate_bindings. Include vesk_sondrel.hpp.
 */
// clang-format off
#ifndef VESK_SONDREL_GENERATED_DESCRIPTION_HPP
#define VESK_SONDREL_GENERATED_DESCRIPTION_HPP

#include "../../vesk_sondrel.h"

#include <cstdint>

namespace vesk {

/// What an answer means.
enum class State : std::uint8_t {
    ok, ///< a value
    failed, ///< the reading was tried and failed
    absent, ///< this machine has no such thing
    not_read, ///< the read succeeded and found nothing for this field
    no_session, ///< no driver session is open, and what the reading needs is not cached
    not_ready, ///< the sensor has no measurement yet
};

/// "not_read"
constexpr const char* to_string(State state) noexcept {
    switch (state) {
    case State::ok:
        return "ok";
    case State::failed:
        return "failed";
    case State::absent:
        return "absent";
    case State::not_read:
        return "not_read";
    case State::no_session:
        return "no_session";
    case State::not_ready:
        return "not_ready";
    }
    return "";
}

/// "the reading was tried and failed"
constexpr const char* meaning_of(State state) noexcept {
    switch (state) {
    case State::ok:
        return "a value";
    case State::failed:
        return "the reading was tried and failed";
    case State::absent:
        return "this machine has no such thing";
    case State::not_read:
        return "the read succeeded and found nothing for this field";
    case State::no_session:
        return "no driver session is open, and what the reading needs is not cached";
    case State::not_ready:
        return "the sensor has no measurement yet";
    }
    return "";
}

/// The units of quantities.
namespace unit {
struct milliwatt_hours {
    static constexpr const char* symbol = "mWh";
};
struct millivolts {
    static constexpr const char* symbol = "mV";
};
struct percent {
    static constexpr const char* symbol = "%";
};
struct fraction {
    static constexpr const char* symbol = "fraction";
};
struct cycles {
    static constexpr const char* symbol = "cycles";
};
struct raw_units {
    static constexpr const char* symbol = "raw";
};
struct degrees_celsius {
    static constexpr const char* symbol = "\xC2" "\xB0" "C";
};
struct revolutions_per_minute {
    static constexpr const char* symbol = "rpm";
};
struct bytes {
    static constexpr const char* symbol = "bytes";
};
struct bytes_per_second {
    static constexpr const char* symbol = "bytes/s";
};
struct decibel_milliwatts {
    static constexpr const char* symbol = "dBm";
};
struct megabits_per_second {
    static constexpr const char* symbol = "Mbit/s";
};
} // namespace unit

/// All exports as they are, for what a host wants to call without this header's help. Two return a string object of
/// C++: it is written to the 32 bytes given.
struct Exports {
    decltype(&::InitializeSondrel) InitializeSondrel = nullptr;
    decltype(&::ShutdownSondrel) ShutdownSondrel = nullptr;
    decltype(&::GetDriverVersion) GetDriverVersion = nullptr;
    decltype(&::GetRefCount) GetRefCount = nullptr;
    decltype(&::GetIoDllVersion) GetIoDllVersion = nullptr;
    decltype(&::EC_ReadEcFwRev) EC_ReadEcFwRev = nullptr;
    decltype(&::EC_ReadEcChipId) EC_ReadEcChipId = nullptr;
    decltype(&::EC_ReadEcChipName) EC_ReadEcChipName = nullptr;
    decltype(&::Battery_Read_DesignedCapacity) Battery_Read_DesignedCapacity = nullptr;
    decltype(&::Battery_Read_FullChargedCapcity) Battery_Read_FullChargedCapcity = nullptr;
    decltype(&::Battery_Read_Capacity) Battery_Read_Capacity = nullptr;
    decltype(&::Battery_Read_DesignVoltage) Battery_Read_DesignVoltage = nullptr;
    decltype(&::Battery_Read_ASOC) Battery_Read_ASOC = nullptr;
    decltype(&::Battery_Read_CapacityPercentage) Battery_Read_CapacityPercentage = nullptr;
    decltype(&::Battery_Read_CycleCount) Battery_Read_CycleCount = nullptr;
    decltype(&::Battery_Get_LidStatus) Battery_Get_LidStatus = nullptr;
    decltype(&::Battery_Read_ChargingVoltage) Battery_Read_ChargingVoltage = nullptr;
    decltype(&::Battery_Read_PackageVoltage) Battery_Read_PackageVoltage = nullptr;
    decltype(&::Battery_Read_Temperature) Battery_Read_Temperature = nullptr;
    decltype(&::Battery_Read_Current) Battery_Read_Current = nullptr;
    decltype(&::Battery_Read_CellVoltage) Battery_Read_CellVoltage = nullptr;
    decltype(&::Battery_Read_ManufactureDate) Battery_Read_ManufactureDate = nullptr;
    decltype(&::Battery_Read_ManufactureName) Battery_Read_ManufactureName = nullptr;
    decltype(&::Thermal_Read_Cpu_Temperature) Thermal_Read_Cpu_Temperature = nullptr;
    decltype(&::Thermal_Read_BoardTS0L_Temperature) Thermal_Read_BoardTS0L_Temperature = nullptr;
    decltype(&::Thermal_Read_BoardTS0R_Temperature) Thermal_Read_BoardTS0R_Temperature = nullptr;
    decltype(&::Thermal_Read_GpuTS1L_Temperature) Thermal_Read_GpuTS1L_Temperature = nullptr;
    decltype(&::Thermal_Read_GpuTS1R_Temperature) Thermal_Read_GpuTS1R_Temperature = nullptr;
    decltype(&::Thermal_Read_BatteryConnector_Temperature) Thermal_Read_BatteryConnector_Temperature = nullptr;
    decltype(&::Thermal_Read_ACFET_Temperature) Thermal_Read_ACFET_Temperature = nullptr;
    decltype(&::Thermal_Read_ChargerChoke_Temperature) Thermal_Read_ChargerChoke_Temperature = nullptr;
    decltype(&::Thermal_Read_GpuVrm_Temperature) Thermal_Read_GpuVrm_Temperature = nullptr;
    decltype(&::Thermal_Read_UpCpu_Temperature) Thermal_Read_UpCpu_Temperature = nullptr;
    decltype(&::Thermal_Read_GpuVram_Temperature) Thermal_Read_GpuVram_Temperature = nullptr;
    decltype(&::Thermal_Read_Fan) Thermal_Read_Fan = nullptr;
    decltype(&::CPU_ReadCPUUsage) CPU_ReadCPUUsage = nullptr;
    decltype(&::CPU_ReadCpuId) CPU_ReadCpuId = nullptr;
    decltype(&::Thermal_Read_CpuPackagePower) Thermal_Read_CpuPackagePower = nullptr;
    decltype(&::Thermal_Read_CpuDptf_PowerLimit1) Thermal_Read_CpuDptf_PowerLimit1 = nullptr;
    decltype(&::Thermal_Read_CpuDptf_PowerLimit2) Thermal_Read_CpuDptf_PowerLimit2 = nullptr;
    decltype(&::Power_Read_ACDCMode) Power_Read_ACDCMode = nullptr;
    decltype(&::GetEEPROM_Data) GetEEPROM_Data = nullptr;
    decltype(&::GetSENSOR_WMI_Data) GetSENSOR_WMI_Data = nullptr;
    decltype(&::GPNV_Get_RandomUUID) GPNV_Get_RandomUUID = nullptr;
    decltype(&::GPNV_Get_ActivatedTime) GPNV_Get_ActivatedTime = nullptr;
    decltype(&::GPNV_Get_ManufacturedTime) GPNV_Get_ManufacturedTime = nullptr;
    decltype(&::GPNV_Set_RandomUUID) GPNV_Set_RandomUUID = nullptr;
    decltype(&::GPNV_Set_ActivatedTime) GPNV_Set_ActivatedTime = nullptr;
    decltype(&::GPNV_Set_ManufacturedTime) GPNV_Set_ManufacturedTime = nullptr;
    decltype(&::WMICheckBatteryHealthSupport) WMICheckBatteryHealthSupport = nullptr;
    decltype(&::WMICheckQuietFanSupport) WMICheckQuietFanSupport = nullptr;
    decltype(&::WMIGetBatteryHealth) WMIGetBatteryHealth = nullptr;
    decltype(&::WMIGetQuietFan) WMIGetQuietFan = nullptr;
    decltype(&::WMISetBatteryHealth) WMISetBatteryHealth = nullptr;
    decltype(&::WMISetQuietFan) WMISetQuietFan = nullptr;
    decltype(&::WMISetAppPath) WMISetAppPath = nullptr;
    decltype(&::WMIGet90Number) WMIGet90Number = nullptr;
    decltype(&::WMIGetBiosManufacture) WMIGetBiosManufacture = nullptr;
    decltype(&::WMIGetBiosReleaseDate) WMIGetBiosReleaseDate = nullptr;
    decltype(&::WMIGetBiosVersion) WMIGetBiosVersion = nullptr;
    decltype(&::WMIGetBoardUUID) WMIGetBoardUUID = nullptr;
    decltype(&::WMIGetCPUInfo) WMIGetCPUInfo = nullptr;
    decltype(&::WMIGetCPUUsg) WMIGetCPUUsg = nullptr;
    decltype(&::WMIGetComputerFamilyName) WMIGetComputerFamilyName = nullptr;
    decltype(&::WMIGetExternMonitorNum) WMIGetExternMonitorNum = nullptr;
    decltype(&::WMIGetGPUInfo) WMIGetGPUInfo = nullptr;
    decltype(&::WMIGetHDDCaption) WMIGetHDDCaption = nullptr;
    decltype(&::WMIGetHDDInfo) WMIGetHDDInfo = nullptr;
    decltype(&::WMIGetHDDModel) WMIGetHDDModel = nullptr;
    decltype(&::WMIGetHDDSize) WMIGetHDDSize = nullptr;
    decltype(&::WMIGetHDDTemp) WMIGetHDDTemp = nullptr;
    decltype(&::WMIGetLCDModel) WMIGetLCDModel = nullptr;
    decltype(&::WMIGetMacAddress) WMIGetMacAddress = nullptr;
    decltype(&::WMIGetMemManufacture) WMIGetMemManufacture = nullptr;
    decltype(&::WMIGetMemModel) WMIGetMemModel = nullptr;
    decltype(&::WMIGetMemSize) WMIGetMemSize = nullptr;
    decltype(&::WMIGetModelName) WMIGetModelName = nullptr;
    decltype(&::WMIGetMonitorBrightness) WMIGetMonitorBrightness = nullptr;
    decltype(&::WMIGetOSCountryCode) WMIGetOSCountryCode = nullptr;
    decltype(&::WMIGetOSInfo) WMIGetOSInfo = nullptr;
    decltype(&::WMIGetProductName) WMIGetProductName = nullptr;
    decltype(&::WMIGetSN) WMIGetSN = nullptr;
    decltype(&::WMIGetSSDModel) WMIGetSSDModel = nullptr;
    decltype(&::WMIGetSystemChassisTypes) WMIGetSystemChassisTypes = nullptr;
    decltype(&::wmiadd) wmiadd = nullptr;
    decltype(&::WMIGetWiFiCardName) WMIGetWiFiCardName = nullptr;
    decltype(&::WMIGetWiFiBytesPersec) WMIGetWiFiBytesPersec = nullptr;
    decltype(&::RF_WiFiIsConnected) RF_WiFiIsConnected = nullptr;
    decltype(&::RF_WiFiCardName) RF_WiFiCardName = nullptr;
    decltype(&::RF_WiFiRssi) RF_WiFiRssi = nullptr;
    decltype(&::RF_WiFiChannel) RF_WiFiChannel = nullptr;
    decltype(&::RF_AP_MAC) RF_AP_MAC = nullptr;
    decltype(&::RF_WiFiMaxRate) RF_WiFiMaxRate = nullptr;
    void* (*RF_PhyMode)(void*) = nullptr;
    decltype(&::RF_BTIsUsed) RF_BTIsUsed = nullptr;
    decltype(&::RF_BTConnectedNum) RF_BTConnectedNum = nullptr;
    void* (*RF_BTConnectedType)(void*) = nullptr;
    decltype(&::System_Check_S_Mode) System_Check_S_Mode = nullptr;
    decltype(&::System_GetCountryCode_ISO2) System_GetCountryCode_ISO2 = nullptr;
    decltype(&::System_Read_LocalTime) System_Read_LocalTime = nullptr;
    decltype(&::System_Read_VolumeLevel) System_Read_VolumeLevel = nullptr;
    decltype(&::System_Read_TabletMode) System_Read_TabletMode = nullptr;
    decltype(&::GetApplist_x64) GetApplist_x64 = nullptr;
    decltype(&::GetApplist_x86) GetApplist_x86 = nullptr;
    decltype(&::GetApplist_UWP) GetApplist_UWP = nullptr;
    decltype(&::App_Get_UWPApp) App_Get_UWPApp = nullptr;
    decltype(&::App_Get_Win32App) App_Get_Win32App = nullptr;
    decltype(&::App_Get_Win32WOW6432App) App_Get_Win32WOW6432App = nullptr;
    decltype(&::GetInfVersion) GetInfVersion = nullptr;
    decltype(&::GetUWPVersion) GetUWPVersion = nullptr;
    decltype(&::AppList_OpenWindows) AppList_OpenWindows = nullptr;
    decltype(&::AppList_CpuUsage) AppList_CpuUsage = nullptr;
    decltype(&::AppList_MemUsage) AppList_MemUsage = nullptr;
    decltype(&::AppList_HardwareConfig) AppList_HardwareConfig = nullptr;
};

namespace detail {

/// Fills the table; returns the name of the first export that find() does not find, or null.
template <class Find>
const char* find_all(Exports& exports, Find find) {
    if (!find("InitializeSondrel", exports.InitializeSondrel)) {
        return "InitializeSondrel";
    }
    if (!find("ShutdownSondrel", exports.ShutdownSondrel)) {
        return "ShutdownSondrel";
    }
    if (!find("GetDriverVersion", exports.GetDriverVersion)) {
        return "GetDriverVersion";
    }
    if (!find("GetRefCount", exports.GetRefCount)) {
        return "GetRefCount";
    }
    if (!find("GetIoDllVersion", exports.GetIoDllVersion)) {
        return "GetIoDllVersion";
    }
    if (!find("EC_ReadEcFwRev", exports.EC_ReadEcFwRev)) {
        return "EC_ReadEcFwRev";
    }
    if (!find("EC_ReadEcChipId", exports.EC_ReadEcChipId)) {
        return "EC_ReadEcChipId";
    }
    if (!find("EC_ReadEcChipName", exports.EC_ReadEcChipName)) {
        return "EC_ReadEcChipName";
    }
    if (!find("Battery_Read_DesignedCapacity", exports.Battery_Read_DesignedCapacity)) {
        return "Battery_Read_DesignedCapacity";
    }
    if (!find("Battery_Read_FullChargedCapcity", exports.Battery_Read_FullChargedCapcity)) {
        return "Battery_Read_FullChargedCapcity";
    }
    if (!find("Battery_Read_Capacity", exports.Battery_Read_Capacity)) {
        return "Battery_Read_Capacity";
    }
    if (!find("Battery_Read_DesignVoltage", exports.Battery_Read_DesignVoltage)) {
        return "Battery_Read_DesignVoltage";
    }
    if (!find("Battery_Read_ASOC", exports.Battery_Read_ASOC)) {
        return "Battery_Read_ASOC";
    }
    if (!find("Battery_Read_CapacityPercentage", exports.Battery_Read_CapacityPercentage)) {
        return "Battery_Read_CapacityPercentage";
    }
    if (!find("Battery_Read_CycleCount", exports.Battery_Read_CycleCount)) {
        return "Battery_Read_CycleCount";
    }
    if (!find("Battery_Get_LidStatus", exports.Battery_Get_LidStatus)) {
        return "Battery_Get_LidStatus";
    }
    if (!find("Battery_Read_ChargingVoltage", exports.Battery_Read_ChargingVoltage)) {
        return "Battery_Read_ChargingVoltage";
    }
    if (!find("Battery_Read_PackageVoltage", exports.Battery_Read_PackageVoltage)) {
        return "Battery_Read_PackageVoltage";
    }
    if (!find("Battery_Read_Temperature", exports.Battery_Read_Temperature)) {
        return "Battery_Read_Temperature";
    }
    if (!find("Battery_Read_Current", exports.Battery_Read_Current)) {
        return "Battery_Read_Current";
    }
    if (!find("Battery_Read_CellVoltage", exports.Battery_Read_CellVoltage)) {
        return "Battery_Read_CellVoltage";
    }
    if (!find("Battery_Read_ManufactureDate", exports.Battery_Read_ManufactureDate)) {
        return "Battery_Read_ManufactureDate";
    }
    if (!find("Battery_Read_ManufactureName", exports.Battery_Read_ManufactureName)) {
        return "Battery_Read_ManufactureName";
    }
    if (!find("Thermal_Read_Cpu_Temperature", exports.Thermal_Read_Cpu_Temperature)) {
        return "Thermal_Read_Cpu_Temperature";
    }
    if (!find("Thermal_Read_BoardTS0L_Temperature", exports.Thermal_Read_BoardTS0L_Temperature)) {
        return "Thermal_Read_BoardTS0L_Temperature";
    }
    if (!find("Thermal_Read_BoardTS0R_Temperature", exports.Thermal_Read_BoardTS0R_Temperature)) {
        return "Thermal_Read_BoardTS0R_Temperature";
    }
    if (!find("Thermal_Read_GpuTS1L_Temperature", exports.Thermal_Read_GpuTS1L_Temperature)) {
        return "Thermal_Read_GpuTS1L_Temperature";
    }
    if (!find("Thermal_Read_GpuTS1R_Temperature", exports.Thermal_Read_GpuTS1R_Temperature)) {
        return "Thermal_Read_GpuTS1R_Temperature";
    }
    if (!find("Thermal_Read_BatteryConnector_Temperature", exports.Thermal_Read_BatteryConnector_Temperature)) {
        return "Thermal_Read_BatteryConnector_Temperature";
    }
    if (!find("Thermal_Read_ACFET_Temperature", exports.Thermal_Read_ACFET_Temperature)) {
        return "Thermal_Read_ACFET_Temperature";
    }
    if (!find("Thermal_Read_ChargerChoke_Temperature", exports.Thermal_Read_ChargerChoke_Temperature)) {
        return "Thermal_Read_ChargerChoke_Temperature";
    }
    if (!find("Thermal_Read_GpuVrm_Temperature", exports.Thermal_Read_GpuVrm_Temperature)) {
        return "Thermal_Read_GpuVrm_Temperature";
    }
    if (!find("Thermal_Read_UpCpu_Temperature", exports.Thermal_Read_UpCpu_Temperature)) {
        return "Thermal_Read_UpCpu_Temperature";
    }
    if (!find("Thermal_Read_GpuVram_Temperature", exports.Thermal_Read_GpuVram_Temperature)) {
        return "Thermal_Read_GpuVram_Temperature";
    }
    if (!find("Thermal_Read_Fan", exports.Thermal_Read_Fan)) {
        return "Thermal_Read_Fan";
    }
    if (!find("CPU_ReadCPUUsage", exports.CPU_ReadCPUUsage)) {
        return "CPU_ReadCPUUsage";
    }
    if (!find("CPU_ReadCpuId", exports.CPU_ReadCpuId)) {
        return "CPU_ReadCpuId";
    }
    if (!find("Thermal_Read_CpuPackagePower", exports.Thermal_Read_CpuPackagePower)) {
        return "Thermal_Read_CpuPackagePower";
    }
    if (!find("Thermal_Read_CpuDptf_PowerLimit1", exports.Thermal_Read_CpuDptf_PowerLimit1)) {
        return "Thermal_Read_CpuDptf_PowerLimit1";
    }
    if (!find("Thermal_Read_CpuDptf_PowerLimit2", exports.Thermal_Read_CpuDptf_PowerLimit2)) {
        return "Thermal_Read_CpuDptf_PowerLimit2";
    }
    if (!find("Power_Read_ACDCMode", exports.Power_Read_ACDCMode)) {
        return "Power_Read_ACDCMode";
    }
    if (!find("GetEEPROM_Data", exports.GetEEPROM_Data)) {
        return "GetEEPROM_Data";
    }
    if (!find("GetSENSOR_WMI_Data", exports.GetSENSOR_WMI_Data)) {
        return "GetSENSOR_WMI_Data";
    }
    if (!find("GPNV_Get_RandomUUID", exports.GPNV_Get_RandomUUID)) {
        return "GPNV_Get_RandomUUID";
    }
    if (!find("GPNV_Get_ActivatedTime", exports.GPNV_Get_ActivatedTime)) {
        return "GPNV_Get_ActivatedTime";
    }
    if (!find("GPNV_Get_ManufacturedTime", exports.GPNV_Get_ManufacturedTime)) {
        return "GPNV_Get_ManufacturedTime";
    }
    if (!find("GPNV_Set_RandomUUID", exports.GPNV_Set_RandomUUID)) {
        return "GPNV_Set_RandomUUID";
    }
    if (!find("GPNV_Set_ActivatedTime", exports.GPNV_Set_ActivatedTime)) {
        return "GPNV_Set_ActivatedTime";
    }
    if (!find("GPNV_Set_ManufacturedTime", exports.GPNV_Set_ManufacturedTime)) {
        return "GPNV_Set_ManufacturedTime";
    }
    if (!find("WMICheckBatteryHealthSupport", exports.WMICheckBatteryHealthSupport)) {
        return "WMICheckBatteryHealthSupport";
    }
    if (!find("WMICheckQuietFanSupport", exports.WMICheckQuietFanSupport)) {
        return "WMICheckQuietFanSupport";
    }
    if (!find("WMIGetBatteryHealth", exports.WMIGetBatteryHealth)) {
        return "WMIGetBatteryHealth";
    }
    if (!find("WMIGetQuietFan", exports.WMIGetQuietFan)) {
        return "WMIGetQuietFan";
    }
    if (!find("WMISetBatteryHealth", exports.WMISetBatteryHealth)) {
        return "WMISetBatteryHealth";
    }
    if (!find("WMISetQuietFan", exports.WMISetQuietFan)) {
        return "WMISetQuietFan";
    }
    if (!find("WMISetAppPath", exports.WMISetAppPath)) {
        return "WMISetAppPath";
    }
    if (!find("WMIGet90Number", exports.WMIGet90Number)) {
        return "WMIGet90Number";
    }
    if (!find("WMIGetBiosManufacture", exports.WMIGetBiosManufacture)) {
        return "WMIGetBiosManufacture";
    }
    if (!find("WMIGetBiosReleaseDate", exports.WMIGetBiosReleaseDate)) {
        return "WMIGetBiosReleaseDate";
    }
    if (!find("WMIGetBiosVersion", exports.WMIGetBiosVersion)) {
        return "WMIGetBiosVersion";
    }
    if (!find("WMIGetBoardUUID", exports.WMIGetBoardUUID)) {
        return "WMIGetBoardUUID";
    }
    if (!find("WMIGetCPUInfo", exports.WMIGetCPUInfo)) {
        return "WMIGetCPUInfo";
    }
    if (!find("WMIGetCPUUsg", exports.WMIGetCPUUsg)) {
        return "WMIGetCPUUsg";
    }
    if (!find("WMIGetComputerFamilyName", exports.WMIGetComputerFamilyName)) {
        return "WMIGetComputerFamilyName";
    }
    if (!find("WMIGetExternMonitorNum", exports.WMIGetExternMonitorNum)) {
        return "WMIGetExternMonitorNum";
    }
    if (!find("WMIGetGPUInfo", exports.WMIGetGPUInfo)) {
        return "WMIGetGPUInfo";
    }
    if (!find("WMIGetHDDCaption", exports.WMIGetHDDCaption)) {
        return "WMIGetHDDCaption";
    }
    if (!find("WMIGetHDDInfo", exports.WMIGetHDDInfo)) {
        return "WMIGetHDDInfo";
    }
    if (!find("WMIGetHDDModel", exports.WMIGetHDDModel)) {
        return "WMIGetHDDModel";
    }
    if (!find("WMIGetHDDSize", exports.WMIGetHDDSize)) {
        return "WMIGetHDDSize";
    }
    if (!find("WMIGetHDDTemp", exports.WMIGetHDDTemp)) {
        return "WMIGetHDDTemp";
    }
    if (!find("WMIGetLCDModel", exports.WMIGetLCDModel)) {
        return "WMIGetLCDModel";
    }
    if (!find("WMIGetMacAddress", exports.WMIGetMacAddress)) {
        return "WMIGetMacAddress";
    }
    if (!find("WMIGetMemManufacture", exports.WMIGetMemManufacture)) {
        return "WMIGetMemManufacture";
    }
    if (!find("WMIGetMemModel", exports.WMIGetMemModel)) {
        return "WMIGetMemModel";
    }
    if (!find("WMIGetMemSize", exports.WMIGetMemSize)) {
        return "WMIGetMemSize";
    }
    if (!find("WMIGetModelName", exports.WMIGetModelName)) {
        return "WMIGetModelName";
    }
    if (!find("WMIGetMonitorBrightness", exports.WMIGetMonitorBrightness)) {
        return "WMIGetMonitorBrightness";
    }
    if (!find("WMIGetOSCountryCode", exports.WMIGetOSCountryCode)) {
        return "WMIGetOSCountryCode";
    }
    if (!find("WMIGetOSInfo", exports.WMIGetOSInfo)) {
        return "WMIGetOSInfo";
    }
    if (!find("WMIGetProductName", exports.WMIGetProductName)) {
        return "WMIGetProductName";
    }
    if (!find("WMIGetSN", exports.WMIGetSN)) {
        return "WMIGetSN";
    }
    if (!find("WMIGetSSDModel", exports.WMIGetSSDModel)) {
        return "WMIGetSSDModel";
    }
    if (!find("WMIGetSystemChassisTypes", exports.WMIGetSystemChassisTypes)) {
        return "WMIGetSystemChassisTypes";
    }
    if (!find("wmiadd", exports.wmiadd)) {
        return "wmiadd";
    }
    if (!find("WMIGetWiFiCardName", exports.WMIGetWiFiCardName)) {
        return "WMIGetWiFiCardName";
    }
    if (!find("WMIGetWiFiBytesPersec", exports.WMIGetWiFiBytesPersec)) {
        return "WMIGetWiFiBytesPersec";
    }
    if (!find("RF_WiFiIsConnected", exports.RF_WiFiIsConnected)) {
        return "RF_WiFiIsConnected";
    }
    if (!find("RF_WiFiCardName", exports.RF_WiFiCardName)) {
        return "RF_WiFiCardName";
    }
    if (!find("RF_WiFiRssi", exports.RF_WiFiRssi)) {
        return "RF_WiFiRssi";
    }
    if (!find("RF_WiFiChannel", exports.RF_WiFiChannel)) {
        return "RF_WiFiChannel";
    }
    if (!find("RF_AP_MAC", exports.RF_AP_MAC)) {
        return "RF_AP_MAC";
    }
    if (!find("RF_WiFiMaxRate", exports.RF_WiFiMaxRate)) {
        return "RF_WiFiMaxRate";
    }
    if (!find("RF_PhyMode", exports.RF_PhyMode)) {
        return "RF_PhyMode";
    }
    if (!find("RF_BTIsUsed", exports.RF_BTIsUsed)) {
        return "RF_BTIsUsed";
    }
    if (!find("RF_BTConnectedNum", exports.RF_BTConnectedNum)) {
        return "RF_BTConnectedNum";
    }
    if (!find("RF_BTConnectedType", exports.RF_BTConnectedType)) {
        return "RF_BTConnectedType";
    }
    if (!find("System_Check_S_Mode", exports.System_Check_S_Mode)) {
        return "System_Check_S_Mode";
    }
    if (!find("System_GetCountryCode_ISO2", exports.System_GetCountryCode_ISO2)) {
        return "System_GetCountryCode_ISO2";
    }
    if (!find("System_Read_LocalTime", exports.System_Read_LocalTime)) {
        return "System_Read_LocalTime";
    }
    if (!find("System_Read_VolumeLevel", exports.System_Read_VolumeLevel)) {
        return "System_Read_VolumeLevel";
    }
    if (!find("System_Read_TabletMode", exports.System_Read_TabletMode)) {
        return "System_Read_TabletMode";
    }
    if (!find("GetApplist_x64", exports.GetApplist_x64)) {
        return "GetApplist_x64";
    }
    if (!find("GetApplist_x86", exports.GetApplist_x86)) {
        return "GetApplist_x86";
    }
    if (!find("GetApplist_UWP", exports.GetApplist_UWP)) {
        return "GetApplist_UWP";
    }
    if (!find("App_Get_UWPApp", exports.App_Get_UWPApp)) {
        return "App_Get_UWPApp";
    }
    if (!find("App_Get_Win32App", exports.App_Get_Win32App)) {
        return "App_Get_Win32App";
    }
    if (!find("App_Get_Win32WOW6432App", exports.App_Get_Win32WOW6432App)) {
        return "App_Get_Win32WOW6432App";
    }
    if (!find("GetInfVersion", exports.GetInfVersion)) {
        return "GetInfVersion";
    }
    if (!find("GetUWPVersion", exports.GetUWPVersion)) {
        return "GetUWPVersion";
    }
    if (!find("AppList_OpenWindows", exports.AppList_OpenWindows)) {
        return "AppList_OpenWindows";
    }
    if (!find("AppList_CpuUsage", exports.AppList_CpuUsage)) {
        return "AppList_CpuUsage";
    }
    if (!find("AppList_MemUsage", exports.AppList_MemUsage)) {
        return "AppList_MemUsage";
    }
    if (!find("AppList_HardwareConfig", exports.AppList_HardwareConfig)) {
        return "AppList_HardwareConfig";
    }
    return nullptr;
}

} // namespace detail
} // namespace vesk

#endif
