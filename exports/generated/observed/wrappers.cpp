// Generated from exports/exports.json by exports/generate.py.
// The exports of the observed library: each one delimits its call for the observer and calls the export.
#include "observer/export_call.h"

#include "vesk_sondrel.h"

using observer::ExportArgument;
using observer::ExportCall;

// Two exports return a string object of C++ under a plain name, on purpose.
#if defined(__clang__)
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#endif

extern "C" {

VESK_API int32_t VeskObserved_InitializeSondrel() {
    ExportCall scope(0, "InitializeSondrel");
    return scope.Returns(InitializeSondrel());
}

VESK_API void VeskObserved_ShutdownSondrel() {
    ExportCall scope(1, "ShutdownSondrel");
    ShutdownSondrel();
}

VESK_API uint32_t VeskObserved_GetDriverVersion() {
    ExportCall scope(2, "GetDriverVersion");
    return scope.Returns(GetDriverVersion());
}

VESK_API uint32_t VeskObserved_GetRefCount() {
    ExportCall scope(3, "GetRefCount");
    return scope.Returns(GetRefCount());
}

VESK_API uint32_t VeskObserved_GetIoDllVersion() {
    ExportCall scope(4, "GetIoDllVersion");
    return scope.Returns(GetIoDllVersion());
}

VESK_API uint32_t VeskObserved_EC_ReadEcFwRev() {
    ExportCall scope(5, "EC_ReadEcFwRev");
    return scope.Returns(EC_ReadEcFwRev());
}

VESK_API uint32_t VeskObserved_EC_ReadEcChipId() {
    ExportCall scope(6, "EC_ReadEcChipId");
    return scope.Returns(EC_ReadEcChipId());
}

VESK_API uint32_t VeskObserved_EC_ReadEcChipName() {
    ExportCall scope(7, "EC_ReadEcChipName");
    return scope.Returns(EC_ReadEcChipName());
}

VESK_API uint32_t VeskObserved_Battery_Read_DesignedCapacity() {
    ExportCall scope(8, "Battery_Read_DesignedCapacity");
    return scope.Returns(Battery_Read_DesignedCapacity());
}

VESK_API uint32_t VeskObserved_Battery_Read_FullChargedCapcity() {
    ExportCall scope(9, "Battery_Read_FullChargedCapcity");
    return scope.Returns(Battery_Read_FullChargedCapcity());
}

VESK_API uint32_t VeskObserved_Battery_Read_Capacity() {
    ExportCall scope(10, "Battery_Read_Capacity");
    return scope.Returns(Battery_Read_Capacity());
}

VESK_API uint32_t VeskObserved_Battery_Read_DesignVoltage() {
    ExportCall scope(11, "Battery_Read_DesignVoltage");
    return scope.Returns(Battery_Read_DesignVoltage());
}

VESK_API float VeskObserved_Battery_Read_ASOC() {
    ExportCall scope(12, "Battery_Read_ASOC");
    return scope.Returns(Battery_Read_ASOC());
}

VESK_API uint32_t VeskObserved_Battery_Read_CapacityPercentage() {
    ExportCall scope(13, "Battery_Read_CapacityPercentage");
    return scope.Returns(Battery_Read_CapacityPercentage());
}

VESK_API uint32_t VeskObserved_Battery_Read_CycleCount() {
    ExportCall scope(14, "Battery_Read_CycleCount");
    return scope.Returns(Battery_Read_CycleCount());
}

VESK_API uint32_t VeskObserved_Battery_Get_LidStatus() {
    ExportCall scope(15, "Battery_Get_LidStatus");
    return scope.Returns(Battery_Get_LidStatus());
}

VESK_API uint32_t VeskObserved_Battery_Read_ChargingVoltage() {
    ExportCall scope(16, "Battery_Read_ChargingVoltage");
    return scope.Returns(Battery_Read_ChargingVoltage());
}

VESK_API uint32_t VeskObserved_Battery_Read_PackageVoltage() {
    ExportCall scope(17, "Battery_Read_PackageVoltage");
    return scope.Returns(Battery_Read_PackageVoltage());
}

VESK_API uint32_t VeskObserved_Battery_Read_Temperature() {
    ExportCall scope(18, "Battery_Read_Temperature");
    return scope.Returns(Battery_Read_Temperature());
}

VESK_API int32_t VeskObserved_Battery_Read_Current() {
    ExportCall scope(19, "Battery_Read_Current");
    return scope.Returns(Battery_Read_Current());
}

VESK_API void VeskObserved_Battery_Read_CellVoltage(char* out) {
    const ExportArgument arguments[] = {ExportArgument::OutText("out", out, 44)};
    ExportCall scope(20, "Battery_Read_CellVoltage", arguments);
    Battery_Read_CellVoltage(out);
}

VESK_API void VeskObserved_Battery_Read_ManufactureDate(char* out) {
    const ExportArgument arguments[] = {ExportArgument::OutText("out", out, 11)};
    ExportCall scope(21, "Battery_Read_ManufactureDate", arguments);
    Battery_Read_ManufactureDate(out);
}

VESK_API void VeskObserved_Battery_Read_ManufactureName(char* out) {
    const ExportArgument arguments[] = {ExportArgument::OutText("out", out, 11)};
    ExportCall scope(22, "Battery_Read_ManufactureName", arguments);
    Battery_Read_ManufactureName(out);
}

VESK_API uint32_t VeskObserved_Thermal_Read_Cpu_Temperature() {
    ExportCall scope(23, "Thermal_Read_Cpu_Temperature");
    return scope.Returns(Thermal_Read_Cpu_Temperature());
}

VESK_API uint32_t VeskObserved_Thermal_Read_BoardTS0L_Temperature() {
    ExportCall scope(24, "Thermal_Read_BoardTS0L_Temperature");
    return scope.Returns(Thermal_Read_BoardTS0L_Temperature());
}

VESK_API uint32_t VeskObserved_Thermal_Read_BoardTS0R_Temperature() {
    ExportCall scope(25, "Thermal_Read_BoardTS0R_Temperature");
    return scope.Returns(Thermal_Read_BoardTS0R_Temperature());
}

VESK_API uint32_t VeskObserved_Thermal_Read_GpuTS1L_Temperature() {
    ExportCall scope(26, "Thermal_Read_GpuTS1L_Temperature");
    return scope.Returns(Thermal_Read_GpuTS1L_Temperature());
}

VESK_API uint32_t VeskObserved_Thermal_Read_GpuTS1R_Temperature() {
    ExportCall scope(27, "Thermal_Read_GpuTS1R_Temperature");
    return scope.Returns(Thermal_Read_GpuTS1R_Temperature());
}

VESK_API uint32_t VeskObserved_Thermal_Read_BatteryConnector_Temperature() {
    ExportCall scope(28, "Thermal_Read_BatteryConnector_Temperature");
    return scope.Returns(Thermal_Read_BatteryConnector_Temperature());
}

VESK_API uint32_t VeskObserved_Thermal_Read_ACFET_Temperature() {
    ExportCall scope(29, "Thermal_Read_ACFET_Temperature");
    return scope.Returns(Thermal_Read_ACFET_Temperature());
}

VESK_API uint32_t VeskObserved_Thermal_Read_ChargerChoke_Temperature() {
    ExportCall scope(30, "Thermal_Read_ChargerChoke_Temperature");
    return scope.Returns(Thermal_Read_ChargerChoke_Temperature());
}

VESK_API uint32_t VeskObserved_Thermal_Read_GpuVrm_Temperature() {
    ExportCall scope(31, "Thermal_Read_GpuVrm_Temperature");
    return scope.Returns(Thermal_Read_GpuVrm_Temperature());
}

VESK_API uint32_t VeskObserved_Thermal_Read_UpCpu_Temperature() {
    ExportCall scope(32, "Thermal_Read_UpCpu_Temperature");
    return scope.Returns(Thermal_Read_UpCpu_Temperature());
}

VESK_API uint32_t VeskObserved_Thermal_Read_GpuVram_Temperature() {
    ExportCall scope(33, "Thermal_Read_GpuVram_Temperature");
    return scope.Returns(Thermal_Read_GpuVram_Temperature());
}

VESK_API void VeskObserved_Thermal_Read_Fan(char* out) {
    const ExportArgument arguments[] = {ExportArgument::OutText("out", out, 44)};
    ExportCall scope(34, "Thermal_Read_Fan", arguments);
    Thermal_Read_Fan(out);
}

VESK_API double VeskObserved_CPU_ReadCPUUsage() {
    ExportCall scope(35, "CPU_ReadCPUUsage");
    return scope.Returns(CPU_ReadCPUUsage());
}

VESK_API void VeskObserved_CPU_ReadCpuId(uint32_t leaf, uint32_t* eax, uint32_t* ebx, uint32_t* ecx, uint32_t* edx) {
    const ExportArgument arguments[] = {ExportArgument::InUint32("leaf", leaf), ExportArgument::OutUint32("eax", eax, 4), ExportArgument::OutUint32("ebx", ebx, 4), ExportArgument::OutUint32("ecx", ecx, 4), ExportArgument::OutUint32("edx", edx, 4)};
    ExportCall scope(36, "CPU_ReadCpuId", arguments);
    CPU_ReadCpuId(leaf, eax, ebx, ecx, edx);
}

VESK_API uint32_t VeskObserved_Thermal_Read_CpuPackagePower() {
    ExportCall scope(37, "Thermal_Read_CpuPackagePower");
    return scope.Returns(Thermal_Read_CpuPackagePower());
}

VESK_API uint32_t VeskObserved_Thermal_Read_CpuDptf_PowerLimit1() {
    ExportCall scope(38, "Thermal_Read_CpuDptf_PowerLimit1");
    return scope.Returns(Thermal_Read_CpuDptf_PowerLimit1());
}

VESK_API uint32_t VeskObserved_Thermal_Read_CpuDptf_PowerLimit2() {
    ExportCall scope(39, "Thermal_Read_CpuDptf_PowerLimit2");
    return scope.Returns(Thermal_Read_CpuDptf_PowerLimit2());
}

VESK_API uint32_t VeskObserved_Power_Read_ACDCMode() {
    ExportCall scope(40, "Power_Read_ACDCMode");
    return scope.Returns(Power_Read_ACDCMode());
}

VESK_API void VeskObserved_GetEEPROM_Data(VeskChar16* out) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 65536)};
    ExportCall scope(41, "GetEEPROM_Data", arguments);
    GetEEPROM_Data(out);
}

VESK_API void VeskObserved_GetSENSOR_WMI_Data(VeskChar16* out) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 26)};
    ExportCall scope(42, "GetSENSOR_WMI_Data", arguments);
    GetSENSOR_WMI_Data(out);
}

VESK_API uint32_t VeskObserved_GPNV_Get_RandomUUID(uint8_t* out) {
    const ExportArgument arguments[] = {ExportArgument::OutBytes("out", out, 16)};
    ExportCall scope(43, "GPNV_Get_RandomUUID", arguments);
    return scope.Returns(GPNV_Get_RandomUUID(out));
}

VESK_API uint32_t VeskObserved_GPNV_Get_ActivatedTime(uint8_t* out) {
    const ExportArgument arguments[] = {ExportArgument::OutBytes("out", out, 19)};
    ExportCall scope(44, "GPNV_Get_ActivatedTime", arguments);
    return scope.Returns(GPNV_Get_ActivatedTime(out));
}

VESK_API uint32_t VeskObserved_GPNV_Get_ManufacturedTime(uint8_t* out) {
    const ExportArgument arguments[] = {ExportArgument::OutBytes("out", out, 23)};
    ExportCall scope(45, "GPNV_Get_ManufacturedTime", arguments);
    return scope.Returns(GPNV_Get_ManufacturedTime(out));
}

VESK_API uint32_t VeskObserved_GPNV_Set_RandomUUID(const uint8_t* bytes) {
    const ExportArgument arguments[] = {ExportArgument::InBytes("bytes", bytes, 16)};
    ExportCall scope(46, "GPNV_Set_RandomUUID", arguments);
    return scope.Returns(GPNV_Set_RandomUUID(bytes));
}

VESK_API uint32_t VeskObserved_GPNV_Set_ActivatedTime(const uint8_t* bytes) {
    const ExportArgument arguments[] = {ExportArgument::InBytes("bytes", bytes, 19)};
    ExportCall scope(47, "GPNV_Set_ActivatedTime", arguments);
    return scope.Returns(GPNV_Set_ActivatedTime(bytes));
}

VESK_API uint32_t VeskObserved_GPNV_Set_ManufacturedTime(const uint8_t* bytes) {
    const ExportArgument arguments[] = {ExportArgument::InBytes("bytes", bytes, 23)};
    ExportCall scope(48, "GPNV_Set_ManufacturedTime", arguments);
    return scope.Returns(GPNV_Set_ManufacturedTime(bytes));
}

VESK_API int32_t VeskObserved_WMICheckBatteryHealthSupport(uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(49, "WMICheckBatteryHealthSupport", arguments);
    return scope.Returns(WMICheckBatteryHealthSupport(initCom));
}

VESK_API int32_t VeskObserved_WMICheckQuietFanSupport(uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(50, "WMICheckQuietFanSupport", arguments);
    return scope.Returns(WMICheckQuietFanSupport(initCom));
}

VESK_API int32_t VeskObserved_WMIGetBatteryHealth(uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(51, "WMIGetBatteryHealth", arguments);
    return scope.Returns(WMIGetBatteryHealth(initCom));
}

VESK_API int32_t VeskObserved_WMIGetQuietFan(uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(52, "WMIGetQuietFan", arguments);
    return scope.Returns(WMIGetQuietFan(initCom));
}

VESK_API int32_t VeskObserved_WMISetBatteryHealth(int32_t value, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::InInt32("value", value), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(53, "WMISetBatteryHealth", arguments);
    return scope.Returns(WMISetBatteryHealth(value, initCom));
}

VESK_API int32_t VeskObserved_WMISetQuietFan(uint8_t value, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::InUint8("value", value), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(54, "WMISetQuietFan", arguments);
    return scope.Returns(WMISetQuietFan(value, initCom));
}

VESK_API int32_t VeskObserved_WMISetAppPath(const VeskChar16* path, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::InWideText("path", path), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(55, "WMISetAppPath", arguments);
    return scope.Returns(WMISetAppPath(path, initCom));
}

VESK_API void VeskObserved_WMIGet90Number(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(56, "WMIGet90Number", arguments);
    WMIGet90Number(out, initCom);
}

VESK_API void VeskObserved_WMIGetBiosManufacture(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(57, "WMIGetBiosManufacture", arguments);
    WMIGetBiosManufacture(out, initCom);
}

VESK_API void VeskObserved_WMIGetBiosReleaseDate(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 9), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(58, "WMIGetBiosReleaseDate", arguments);
    WMIGetBiosReleaseDate(out, initCom);
}

VESK_API void VeskObserved_WMIGetBiosVersion(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(59, "WMIGetBiosVersion", arguments);
    WMIGetBiosVersion(out, initCom);
}

VESK_API void VeskObserved_WMIGetBoardUUID(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(60, "WMIGetBoardUUID", arguments);
    WMIGetBoardUUID(out, initCom);
}

VESK_API void VeskObserved_WMIGetCPUInfo(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(61, "WMIGetCPUInfo", arguments);
    WMIGetCPUInfo(out, initCom);
}

VESK_API int32_t VeskObserved_WMIGetCPUUsg(uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(62, "WMIGetCPUUsg", arguments);
    return scope.Returns(WMIGetCPUUsg(initCom));
}

VESK_API void VeskObserved_WMIGetComputerFamilyName(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(63, "WMIGetComputerFamilyName", arguments);
    WMIGetComputerFamilyName(out, initCom);
}

VESK_API int32_t VeskObserved_WMIGetExternMonitorNum(uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(64, "WMIGetExternMonitorNum", arguments);
    return scope.Returns(WMIGetExternMonitorNum(initCom));
}

VESK_API void VeskObserved_WMIGetGPUInfo(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(65, "WMIGetGPUInfo", arguments);
    WMIGetGPUInfo(out, initCom);
}

VESK_API void VeskObserved_WMIGetHDDCaption(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(66, "WMIGetHDDCaption", arguments);
    WMIGetHDDCaption(out, initCom);
}

VESK_API void VeskObserved_WMIGetHDDInfo(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(67, "WMIGetHDDInfo", arguments);
    WMIGetHDDInfo(out, initCom);
}

VESK_API void VeskObserved_WMIGetHDDModel(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(68, "WMIGetHDDModel", arguments);
    WMIGetHDDModel(out, initCom);
}

VESK_API void VeskObserved_WMIGetHDDSize(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(69, "WMIGetHDDSize", arguments);
    WMIGetHDDSize(out, initCom);
}

VESK_API void VeskObserved_WMIGetHDDTemp(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 1200), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(70, "WMIGetHDDTemp", arguments);
    WMIGetHDDTemp(out, initCom);
}

VESK_API void VeskObserved_WMIGetLCDModel(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(71, "WMIGetLCDModel", arguments);
    WMIGetLCDModel(out, initCom);
}

VESK_API void VeskObserved_WMIGetMacAddress(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(72, "WMIGetMacAddress", arguments);
    WMIGetMacAddress(out, initCom);
}

VESK_API void VeskObserved_WMIGetMemManufacture(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(73, "WMIGetMemManufacture", arguments);
    WMIGetMemManufacture(out, initCom);
}

VESK_API void VeskObserved_WMIGetMemModel(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(74, "WMIGetMemModel", arguments);
    WMIGetMemModel(out, initCom);
}

VESK_API void VeskObserved_WMIGetMemSize(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(75, "WMIGetMemSize", arguments);
    WMIGetMemSize(out, initCom);
}

VESK_API void VeskObserved_WMIGetModelName(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(76, "WMIGetModelName", arguments);
    WMIGetModelName(out, initCom);
}

VESK_API int32_t VeskObserved_WMIGetMonitorBrightness(uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(77, "WMIGetMonitorBrightness", arguments);
    return scope.Returns(WMIGetMonitorBrightness(initCom));
}

VESK_API void VeskObserved_WMIGetOSCountryCode(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(78, "WMIGetOSCountryCode", arguments);
    WMIGetOSCountryCode(out, initCom);
}

VESK_API void VeskObserved_WMIGetOSInfo(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(79, "WMIGetOSInfo", arguments);
    WMIGetOSInfo(out, initCom);
}

VESK_API void VeskObserved_WMIGetProductName(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(80, "WMIGetProductName", arguments);
    WMIGetProductName(out, initCom);
}

VESK_API void VeskObserved_WMIGetSN(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(81, "WMIGetSN", arguments);
    WMIGetSN(out, initCom);
}

VESK_API void VeskObserved_WMIGetSSDModel(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(82, "WMIGetSSDModel", arguments);
    WMIGetSSDModel(out, initCom);
}

VESK_API void VeskObserved_WMIGetSystemChassisTypes(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 11), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(83, "WMIGetSystemChassisTypes", arguments);
    WMIGetSystemChassisTypes(out, initCom);
}

VESK_API uint32_t VeskObserved_wmiadd(uint32_t value) {
    const ExportArgument arguments[] = {ExportArgument::InUint32("value", value)};
    ExportCall scope(84, "wmiadd", arguments);
    return scope.Returns(wmiadd(value));
}

VESK_API void VeskObserved_WMIGetWiFiCardName(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 1024), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(85, "WMIGetWiFiCardName", arguments);
    WMIGetWiFiCardName(out, initCom);
}

VESK_API void VeskObserved_WMIGetWiFiBytesPersec(VeskChar16* out, uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 64), ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(86, "WMIGetWiFiBytesPersec", arguments);
    WMIGetWiFiBytesPersec(out, initCom);
}

VESK_API int32_t VeskObserved_RF_WiFiIsConnected() {
    ExportCall scope(87, "RF_WiFiIsConnected");
    return scope.Returns(RF_WiFiIsConnected());
}

VESK_API void VeskObserved_RF_WiFiCardName(VeskChar16* out) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 257)};
    ExportCall scope(88, "RF_WiFiCardName", arguments);
    RF_WiFiCardName(out);
}

VESK_API int32_t VeskObserved_RF_WiFiRssi() {
    ExportCall scope(89, "RF_WiFiRssi");
    return scope.Returns(RF_WiFiRssi());
}

VESK_API int32_t VeskObserved_RF_WiFiChannel() {
    ExportCall scope(90, "RF_WiFiChannel");
    return scope.Returns(RF_WiFiChannel());
}

VESK_API void VeskObserved_RF_AP_MAC(char* out) {
    const ExportArgument arguments[] = {ExportArgument::OutText("out", out, 13)};
    ExportCall scope(91, "RF_AP_MAC", arguments);
    RF_AP_MAC(out);
}

VESK_API int32_t VeskObserved_RF_WiFiMaxRate() {
    ExportCall scope(92, "RF_WiFiMaxRate");
    return scope.Returns(RF_WiFiMaxRate());
}

VESK_API std::string VeskObserved_RF_PhyMode() {
    ExportCall scope(93, "RF_PhyMode");
    return scope.Returns(RF_PhyMode());
}

VESK_API int32_t VeskObserved_RF_BTIsUsed() {
    ExportCall scope(94, "RF_BTIsUsed");
    return scope.Returns(RF_BTIsUsed());
}

VESK_API int32_t VeskObserved_RF_BTConnectedNum() {
    ExportCall scope(95, "RF_BTConnectedNum");
    return scope.Returns(RF_BTConnectedNum());
}

VESK_API std::string VeskObserved_RF_BTConnectedType() {
    ExportCall scope(96, "RF_BTConnectedType");
    return scope.Returns(RF_BTConnectedType());
}

VESK_API int32_t VeskObserved_System_Check_S_Mode() {
    ExportCall scope(97, "System_Check_S_Mode");
    return scope.Returns(System_Check_S_Mode());
}

VESK_API void VeskObserved_System_GetCountryCode_ISO2(VeskChar16* out) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 11)};
    ExportCall scope(98, "System_GetCountryCode_ISO2", arguments);
    System_GetCountryCode_ISO2(out);
}

VESK_API void VeskObserved_System_Read_LocalTime(char* out) {
    const ExportArgument arguments[] = {ExportArgument::OutText("out", out, 20)};
    ExportCall scope(99, "System_Read_LocalTime", arguments);
    System_Read_LocalTime(out);
}

VESK_API int32_t VeskObserved_System_Read_VolumeLevel(uint8_t initCom) {
    const ExportArgument arguments[] = {ExportArgument::InUint8("initCom", initCom)};
    ExportCall scope(100, "System_Read_VolumeLevel", arguments);
    return scope.Returns(System_Read_VolumeLevel(initCom));
}

VESK_API uint32_t VeskObserved_System_Read_TabletMode() {
    ExportCall scope(101, "System_Read_TabletMode");
    return scope.Returns(System_Read_TabletMode());
}

VESK_API void VeskObserved_GetApplist_x64(VeskChar16* out) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 524288)};
    ExportCall scope(102, "GetApplist_x64", arguments);
    GetApplist_x64(out);
}

VESK_API void VeskObserved_GetApplist_x86(VeskChar16* out) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 524288)};
    ExportCall scope(103, "GetApplist_x86", arguments);
    GetApplist_x86(out);
}

VESK_API void VeskObserved_GetApplist_UWP(VeskChar16* out) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 524288)};
    ExportCall scope(104, "GetApplist_UWP", arguments);
    GetApplist_UWP(out);
}

VESK_API void VeskObserved_App_Get_UWPApp(VeskChar16* out) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 524288)};
    ExportCall scope(105, "App_Get_UWPApp", arguments);
    App_Get_UWPApp(out);
}

VESK_API void VeskObserved_App_Get_Win32App(VeskChar16* out) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 524288)};
    ExportCall scope(106, "App_Get_Win32App", arguments);
    App_Get_Win32App(out);
}

VESK_API void VeskObserved_App_Get_Win32WOW6432App(VeskChar16* out) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 524288)};
    ExportCall scope(107, "App_Get_Win32WOW6432App", arguments);
    App_Get_Win32WOW6432App(out);
}

VESK_API void VeskObserved_GetInfVersion(VeskChar16* out) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 512)};
    ExportCall scope(108, "GetInfVersion", arguments);
    GetInfVersion(out);
}

VESK_API void VeskObserved_GetUWPVersion(VeskChar16* out) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 128)};
    ExportCall scope(109, "GetUWPVersion", arguments);
    GetUWPVersion(out);
}

VESK_API void VeskObserved_AppList_OpenWindows(VeskChar16* out) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 2048)};
    ExportCall scope(110, "AppList_OpenWindows", arguments);
    AppList_OpenWindows(out);
}

VESK_API void VeskObserved_AppList_CpuUsage(VeskChar16* out) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096)};
    ExportCall scope(111, "AppList_CpuUsage", arguments);
    AppList_CpuUsage(out);
}

VESK_API void VeskObserved_AppList_MemUsage(VeskChar16* out) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 4096)};
    ExportCall scope(112, "AppList_MemUsage", arguments);
    AppList_MemUsage(out);
}

VESK_API void VeskObserved_AppList_HardwareConfig(VeskChar16* out) {
    const ExportArgument arguments[] = {ExportArgument::OutWideText("out", out, 64)};
    ExportCall scope(113, "AppList_HardwareConfig", arguments);
    AppList_HardwareConfig(out);
}

} // extern "C"
