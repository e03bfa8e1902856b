/**
 * @file
 * The readings by group. Generated from exports/exports.json by scripts/generate_bindings. Include vesk_sondrel.hpp.
 */
// clang-format off
#ifndef VESK_SONDREL_GENERATED_READINGS_HPP
#define VESK_SONDREL_GENERATED_READINGS_HPP

#include "../call.hpp"

namespace vesk {
namespace detail {

inline constexpr Answer answers_of_InitializeSondrel[] = {
    {Match::number, 1, "", {State::ok}, "the session is open"},
    {Match::number, 0, "", {State::failed}, "the driver's device is missing or refused to open"},
};
inline constexpr Answer answers_of_GetDriverVersion[] = {
    {Match::number, 0, "", {State::failed, State::no_session}, "no session is open, or the driver refused"},
};
inline constexpr Answer answers_of_EC_ReadEcFwRev[] = {
    {Match::number, 2147483647, "", {State::failed, State::no_session}, "an EC command failed, or no session is open"},
};
inline constexpr Answer answers_of_Battery_Read_DesignedCapacity[] = {
    {Match::number, 0, "", {State::absent, State::failed}, "no battery, or the device does not give this value"},
};
inline constexpr Answer answers_of_Battery_Read_CapacityPercentage[] = {
    {Match::number, 0, "", {State::ok, State::absent, State::failed}, "empty, or no battery"},
};
inline constexpr Answer answers_of_Battery_Read_CycleCount[] = {
    {Match::number, 2147483647, "", {State::failed, State::no_session}, "an EC command failed, or no session is open"},
    {Match::number, 0, "", {State::ok, State::absent, State::failed, State::no_session}, "no cycles, or this machine does not count them"},
};
inline constexpr Answer answers_of_Battery_Get_LidStatus[] = {
    {Match::number, 2147483647, "", {State::failed, State::no_session}, "an EC command failed, or no session is open"},
    {Match::number, 0, "", {State::ok, State::absent, State::no_session}, "the byte is 0, or no such reading on this machine"},
};
inline constexpr Answer answers_of_Battery_Read_ChargingVoltage[] = {
    {Match::number, 2147483647, "", {State::failed, State::no_session}, "an EC command failed, or no session is open"},
    {Match::number, 0, "", {State::absent, State::no_session, State::ok}, "no such reading on this machine, or the EC cannot be identified"},
};
inline constexpr Answer answers_of_Battery_Read_Current[] = {
    {Match::number, -1, "", {State::failed, State::no_session, State::ok}, "an EC command failed, or no session is open"},
    {Match::number, 0, "", {State::ok, State::absent, State::no_session}, "no current, or no such reading on this machine"},
};
inline constexpr Answer answers_of_Battery_Read_CellVoltage[] = {
    {Match::element, 2147483647, "", {State::failed, State::no_session}, "an EC command failed, or no session is open"},
    {Match::element, 0, "", {State::absent, State::no_session, State::ok}, "no such cell on this machine, or the EC cannot be identified"},
};
inline constexpr Answer answers_of_Battery_Read_ManufactureDate[] = {
    {Match::string, 0, "1980-01-01", {State::absent, State::failed, State::no_session}, "the battery gives no date, or an EC command failed"},
};
inline constexpr Answer answers_of_Battery_Read_ManufactureName[] = {
    {Match::string, 0, "0x7FFFFFFF", {State::absent, State::failed, State::no_session}, "the battery gives no name, or an EC command failed"},
};
inline constexpr Answer answers_of_Thermal_Read_BatteryConnector_Temperature[] = {
    {Match::number, 2147483647, "", {State::failed, State::no_session}, "an EC command failed, or no session is open"},
    {Match::number, 0, "", {State::absent, State::not_ready, State::no_session, State::ok}, "no such reading on this machine, or the sensor is not ready"},
};
inline constexpr Answer answers_of_Thermal_Read_Fan[] = {
    {Match::element, 2147483647, "", {State::failed, State::no_session}, "an EC command failed, or no session is open"},
    {Match::element, 0, "", {State::ok, State::absent, State::no_session}, "the fan does not turn, or this machine does not have it"},
};
inline constexpr Answer answers_of_CPU_ReadCPUUsage[] = {
    {Match::number, 0, "", {State::ok, State::failed}, "idle, or a sample failed"},
};
inline constexpr Answer answers_of_CPU_ReadCpuId[] = {
    {Match::untouched, 0, "", {State::no_session}, "no session is open"},
    {Match::zeros, 0, "", {State::failed, State::ok}, "the driver refused"},
};
inline constexpr Answer answers_of_Thermal_Read_CpuPackagePower[] = {
    {Match::number, 0, "", {State::absent, State::failed, State::no_session}, "no session is open, or the processor has no such value"},
};
inline constexpr Answer answers_of_Power_Read_ACDCMode[] = {
    {Match::number, 0, "", {State::ok}, "on battery"},
    {Match::number, 1, "", {State::ok}, "on AC power"},
    {Match::number, 255, "", {State::failed, State::absent}, "the system does not know"},
};
inline constexpr Answer answers_of_GetEEPROM_Data[] = {
    {Match::string, 0, "{\"version\":\"\",\"register_count\":\"\",\"register\":[\"\"],\"event\":[]}", {State::failed, State::absent}, "the firmware's device does not answer"},
};
inline constexpr Answer answers_of_GetSENSOR_WMI_Data[] = {
    {Match::string, 0, "{\"p_sensor\":\"\"}", {State::failed, State::absent}, "the sensor could not be read"},
};
inline constexpr Answer answers_of_GPNV_Get_RandomUUID[] = {
    {Match::untouched, 0, "", {State::failed}, "the firmware variable cannot be read"},
    {Match::error_code, 0, "", {State::failed}, "the system's error code of the failed read"},
};
inline constexpr Answer answers_of_GPNV_Get_ActivatedTime[] = {
    {Match::untouched, 0, "", {State::failed}, "the firmware variable cannot be read"},
};
inline constexpr Answer answers_of_GPNV_Set_RandomUUID[] = {
    {Match::number, 0, "", {State::ok, State::failed}, "written, or the variable could not be read and was left as it is"},
    {Match::number, 13, "", {State::failed}, "the variable ends before the field; or the system's code of the failed write"},
    {Match::other, 0, "", {State::failed}, "the system's error code of the failed write"},
};
inline constexpr Answer answers_of_WMICheckBatteryHealthSupport[] = {
    {Match::number, 1, "", {State::ok}, "supported"},
    {Match::number, 0, "", {State::ok, State::failed}, "not supported, or the firmware did not answer"},
};
inline constexpr Answer answers_of_WMICheckQuietFanSupport[] = {
    {Match::number, 0, "", {State::ok}, "supported, off"},
    {Match::number, 1, "", {State::ok}, "supported, on"},
    {Match::number, -1, "", {State::absent, State::failed}, "not supported, or the firmware did not answer"},
};
inline constexpr Answer answers_of_WMIGetBatteryHealth[] = {
    {Match::number, 100, "", {State::ok, State::absent, State::failed}, "also the default where nothing is stored"},
};
inline constexpr Answer answers_of_WMIGetQuietFan[] = {
    {Match::number, 0, "", {State::ok, State::absent, State::failed}, "off, or nothing is stored"},
};
inline constexpr Answer answers_of_WMISetBatteryHealth[] = {
    {Match::number, 1, "", {State::ok}, "the firmware accepted the value"},
    {Match::number, 0, "", {State::failed, State::absent}, "the firmware did not accept the value, or does not have the feature"},
};
inline constexpr Answer answers_of_WMISetAppPath[] = {
    {Match::number, 1, "", {State::ok}, "stored"},
    {Match::number, 0, "", {State::failed}, "not stored"},
};
inline constexpr Answer answers_of_WMIGet90Number[] = {
    {Match::string, 0, "", {State::failed, State::absent}, "the WMI query failed or found nothing"},
};
inline constexpr Answer answers_of_WMIGetCPUUsg[] = {
    {Match::number, -1, "", {State::failed, State::absent}, "the WMI query failed or found nothing"},
};
inline constexpr Answer answers_of_WMIGetExternMonitorNum[] = {
    {Match::number, -1, "", {State::failed}, "the WMI query failed"},
    {Match::number, 0, "", {State::ok, State::failed}, "none, or WMI gave no row"},
};
inline constexpr Answer answers_of_WMIGetHDDModel[] = {
    {Match::string, 0, "", {State::absent, State::failed}, "no such disk, or the WMI query failed"},
};
inline constexpr Answer answers_of_WMIGetHDDTemp[] = {
    {Match::string, 0, "", {State::absent, State::failed}, "no disk reports a temperature, or the WMI query failed"},
};
inline constexpr Answer answers_of_WMIGetMonitorBrightness[] = {
    {Match::number, -1, "", {State::failed, State::absent}, "the WMI query failed, or no display reports its brightness"},
};
inline constexpr Answer answers_of_WMIGetSystemChassisTypes[] = {
    {Match::string, 0, "unknown", {State::failed, State::absent}, "the WMI query failed, or the kind has no name"},
};
inline constexpr Answer answers_of_WMIGetWiFiCardName[] = {
    {Match::string, 0, "", {State::absent, State::failed}, "no Wi-Fi adapter, or the WMI query failed"},
    {Match::untouched, 0, "", {State::absent, State::failed}, "the system lists no network adapters"},
};
inline constexpr Answer answers_of_WMIGetWiFiBytesPersec[] = {
    {Match::string, 0, "", {State::failed, State::absent}, "the WMI query failed or found nothing"},
    {Match::string, 0, "0;0", {State::ok, State::absent}, "no traffic, or no counter of this adapter"},
};
inline constexpr Answer answers_of_RF_WiFiIsConnected[] = {
    {Match::number, 0, "", {State::ok}, "not connected"},
    {Match::number, 1, "", {State::ok}, "connected"},
    {Match::number, 2147483647, "", {State::failed}, "the radio could not be read"},
    {Match::number, -1000, "", {State::not_read}, "no Wi-Fi adapter"},
};
inline constexpr Answer answers_of_RF_WiFiCardName[] = {
    {Match::string, 0, "error_string", {State::failed}, "the radio could not be read"},
    {Match::string, 0, "init_string", {State::not_read}, "no adapter, or no connection"},
};
inline constexpr Answer answers_of_RF_WiFiRssi[] = {
    {Match::number, 2147483647, "", {State::failed}, "the radio could not be read"},
    {Match::number, -1000, "", {State::not_read}, "no adapter, or no connection"},
};
inline constexpr Answer answers_of_RF_BTIsUsed[] = {
    {Match::number, 0, "", {State::ok}, "no device is connected"},
    {Match::number, 1, "", {State::ok}, "a device is connected"},
    {Match::number, 2147483647, "", {State::failed}, "the radio could not be read"},
    {Match::number, -1000, "", {State::not_read}, "no Bluetooth radio"},
};
inline constexpr Answer answers_of_System_Check_S_Mode[] = {
    {Match::number, 0, "", {State::ok, State::failed}, "not in S mode, or the system did not answer"},
    {Match::number, 1, "", {State::ok}, "in S mode"},
};
inline constexpr Answer answers_of_System_GetCountryCode_ISO2[] = {
    {Match::string, 0, "", {State::failed, State::absent}, "the user has no country set"},
};
inline constexpr Answer answers_of_System_Read_LocalTime[] = {
    {Match::string, 0, "", {State::failed}, "the time cannot be converted to local time"},
};
inline constexpr Answer answers_of_System_Read_VolumeLevel[] = {
    {Match::number, -1, "", {State::failed, State::absent}, "no audio device, or it does not report its volume"},
};
inline constexpr Answer answers_of_GetApplist_x64[] = {
    {Match::string, 0, "[{\"machine\":[]},{\"user\":[]}]", {State::ok, State::failed}, "no such applications, or the registry keys cannot be read"},
};
inline constexpr Answer answers_of_GetApplist_UWP[] = {
    {Match::string, 0, "[]", {State::ok, State::failed}, "no packages, or the package store cannot be read"},
};
inline constexpr Answer answers_of_App_Get_UWPApp[] = {
    {Match::string, 0, "", {State::absent, State::failed}, "no such applications, or the registry key cannot be read"},
};
inline constexpr Answer answers_of_GetInfVersion[] = {
    {Match::string, 0, "", {State::absent, State::failed}, "the driver package is not installed, or its version cannot be read"},
};
inline constexpr Answer answers_of_GetUWPVersion[] = {
    {Match::untouched, 0, "", {State::absent, State::failed}, "the assistant package is not installed"},
};
inline constexpr Answer answers_of_AppList_OpenWindows[] = {
    {Match::string, 0, "[]", {State::ok, State::failed}, "no window counts, or the windows cannot be listed"},
};
inline constexpr Answer answers_of_AppList_CpuUsage[] = {
    {Match::string, 0, "", {State::failed}, "the WMI query failed"},
    {Match::string, 0, "[]", {State::ok}, "no process uses any"},
};
inline constexpr Answer answers_of_AppList_HardwareConfig[] = {
    {Match::string, 0, "{\"brightness\":\"\",\"volume\":\"\"}", {State::failed, State::absent}, "neither value could be read"},
};

inline constexpr Entry opening{
    {"session", "initialize", "InitializeSondrel", "Opens the driver session, or adds one reference to it", ""},
    answers_of_InitializeSondrel, sizeof answers_of_InitializeSondrel / sizeof *answers_of_InitializeSondrel};
inline constexpr Entry entry_of_GetDriverVersion{
    {"session", "driver_version", "GetDriverVersion", "Version word of the I/O driver", ""},
    answers_of_GetDriverVersion, sizeof answers_of_GetDriverVersion / sizeof *answers_of_GetDriverVersion};
inline constexpr Entry entry_of_GetRefCount{
    {"session", "driver_references", "GetRefCount", "Reference count of the I/O driver", ""},
    answers_of_GetDriverVersion, sizeof answers_of_GetDriverVersion / sizeof *answers_of_GetDriverVersion};
inline constexpr Entry entry_of_GetIoDllVersion{
    {"session", "io_version", "GetIoDllVersion", "Version of the I/O interface, a constant", ""},
    nullptr, 0};
inline constexpr Entry entry_of_EC_ReadEcFwRev{
    {"identity", "firmware_revision", "EC_ReadEcFwRev", "Firmware revision code of the EC: two letters", ""},
    answers_of_EC_ReadEcFwRev, sizeof answers_of_EC_ReadEcFwRev / sizeof *answers_of_EC_ReadEcFwRev};
inline constexpr Entry entry_of_EC_ReadEcChipId{
    {"identity", "chip_id", "EC_ReadEcChipId", "Chip id of the EC, which distinguishes variants of one revision code", ""},
    answers_of_EC_ReadEcFwRev, sizeof answers_of_EC_ReadEcFwRev / sizeof *answers_of_EC_ReadEcFwRev};
inline constexpr Entry entry_of_EC_ReadEcChipName{
    {"identity", "chip_name", "EC_ReadEcChipName", "Chip name of the EC: four characters", ""},
    answers_of_EC_ReadEcFwRev, sizeof answers_of_EC_ReadEcFwRev / sizeof *answers_of_EC_ReadEcFwRev};
inline constexpr Entry entry_of_Battery_Read_DesignedCapacity{
    {"battery", "designed_capacity", "Battery_Read_DesignedCapacity", "Capacity that the battery was designed for", "mWh"},
    answers_of_Battery_Read_DesignedCapacity, sizeof answers_of_Battery_Read_DesignedCapacity / sizeof *answers_of_Battery_Read_DesignedCapacity};
inline constexpr Entry entry_of_Battery_Read_FullChargedCapcity{
    {"battery", "full_charged_capacity", "Battery_Read_FullChargedCapcity", "Capacity of the full battery at present", "mWh"},
    answers_of_Battery_Read_DesignedCapacity, sizeof answers_of_Battery_Read_DesignedCapacity / sizeof *answers_of_Battery_Read_DesignedCapacity};
inline constexpr Entry entry_of_Battery_Read_Capacity{
    {"battery", "capacity", "Battery_Read_Capacity", "Remaining charge", "mWh"},
    answers_of_Battery_Read_DesignedCapacity, sizeof answers_of_Battery_Read_DesignedCapacity / sizeof *answers_of_Battery_Read_DesignedCapacity};
inline constexpr Entry entry_of_Battery_Read_DesignVoltage{
    {"battery", "present_voltage", "Battery_Read_DesignVoltage", "Present voltage, from the system's battery device", "mV"},
    answers_of_Battery_Read_DesignedCapacity, sizeof answers_of_Battery_Read_DesignedCapacity / sizeof *answers_of_Battery_Read_DesignedCapacity};
inline constexpr Entry entry_of_Battery_Read_ASOC{
    {"battery", "health", "Battery_Read_ASOC", "Full capacity as a fraction of the designed capacity", "fraction"},
    answers_of_Battery_Read_DesignedCapacity, sizeof answers_of_Battery_Read_DesignedCapacity / sizeof *answers_of_Battery_Read_DesignedCapacity};
inline constexpr Entry entry_of_Battery_Read_CapacityPercentage{
    {"battery", "charge", "Battery_Read_CapacityPercentage", "Remaining charge, rounded to a multiple of ten", "%"},
    answers_of_Battery_Read_CapacityPercentage, sizeof answers_of_Battery_Read_CapacityPercentage / sizeof *answers_of_Battery_Read_CapacityPercentage};
inline constexpr Entry entry_of_Battery_Read_CycleCount{
    {"battery_ec", "cycle_count", "Battery_Read_CycleCount", "Charge cycles so far", "cycles"},
    answers_of_Battery_Read_CycleCount, sizeof answers_of_Battery_Read_CycleCount / sizeof *answers_of_Battery_Read_CycleCount};
inline constexpr Entry entry_of_Battery_Get_LidStatus{
    {"battery_ec", "lid_status", "Battery_Get_LidStatus", "Lid byte of the EC", ""},
    answers_of_Battery_Get_LidStatus, sizeof answers_of_Battery_Get_LidStatus / sizeof *answers_of_Battery_Get_LidStatus};
inline constexpr Entry entry_of_Battery_Read_ChargingVoltage{
    {"battery_ec", "charging_voltage", "Battery_Read_ChargingVoltage", "Charging voltage, in the EC's own unit", "raw"},
    answers_of_Battery_Read_ChargingVoltage, sizeof answers_of_Battery_Read_ChargingVoltage / sizeof *answers_of_Battery_Read_ChargingVoltage};
inline constexpr Entry entry_of_Battery_Read_PackageVoltage{
    {"battery_ec", "package_voltage", "Battery_Read_PackageVoltage", "Voltage of the battery pack, in the EC's own unit", "raw"},
    answers_of_Battery_Read_ChargingVoltage, sizeof answers_of_Battery_Read_ChargingVoltage / sizeof *answers_of_Battery_Read_ChargingVoltage};
inline constexpr Entry entry_of_Battery_Read_Temperature{
    {"battery_ec", "temperature", "Battery_Read_Temperature", "Temperature of the battery pack, in the EC's own unit", "raw"},
    answers_of_Battery_Read_ChargingVoltage, sizeof answers_of_Battery_Read_ChargingVoltage / sizeof *answers_of_Battery_Read_ChargingVoltage};
inline constexpr Entry entry_of_Battery_Read_Current{
    {"battery_ec", "current", "Battery_Read_Current", "Battery current, in the EC's own unit", "raw"},
    answers_of_Battery_Read_Current, sizeof answers_of_Battery_Read_Current / sizeof *answers_of_Battery_Read_Current};
inline constexpr Entry entry_of_Battery_Read_CellVoltage{
    {"battery_ec", "cell_voltages", "Battery_Read_CellVoltage", "Voltages of cells 0 to 3, in the EC's own unit", "raw"},
    answers_of_Battery_Read_CellVoltage, sizeof answers_of_Battery_Read_CellVoltage / sizeof *answers_of_Battery_Read_CellVoltage};
inline constexpr Entry entry_of_Battery_Read_ManufactureDate{
    {"battery_ec", "manufacture_date", "Battery_Read_ManufactureDate", "Date of manufacture of the battery: year-month-day", ""},
    answers_of_Battery_Read_ManufactureDate, sizeof answers_of_Battery_Read_ManufactureDate / sizeof *answers_of_Battery_Read_ManufactureDate};
inline constexpr Entry entry_of_Battery_Read_ManufactureName{
    {"battery_ec", "manufacture_name", "Battery_Read_ManufactureName", "Manufacturer of the battery", ""},
    answers_of_Battery_Read_ManufactureName, sizeof answers_of_Battery_Read_ManufactureName / sizeof *answers_of_Battery_Read_ManufactureName};
inline constexpr Entry entry_of_Thermal_Read_Cpu_Temperature{
    {"thermal", "cpu_temperature", "Thermal_Read_Cpu_Temperature", "Processor", "\xC2" "\xB0" "C"},
    answers_of_Battery_Read_ChargingVoltage, sizeof answers_of_Battery_Read_ChargingVoltage / sizeof *answers_of_Battery_Read_ChargingVoltage};
inline constexpr Entry entry_of_Thermal_Read_BoardTS0L_Temperature{
    {"thermal", "board_local_temperature", "Thermal_Read_BoardTS0L_Temperature", "Board, sensor TS0 local", "\xC2" "\xB0" "C"},
    answers_of_Battery_Read_ChargingVoltage, sizeof answers_of_Battery_Read_ChargingVoltage / sizeof *answers_of_Battery_Read_ChargingVoltage};
inline constexpr Entry entry_of_Thermal_Read_BoardTS0R_Temperature{
    {"thermal", "board_remote_temperature", "Thermal_Read_BoardTS0R_Temperature", "Board, sensor TS0 remote", "\xC2" "\xB0" "C"},
    answers_of_Battery_Read_ChargingVoltage, sizeof answers_of_Battery_Read_ChargingVoltage / sizeof *answers_of_Battery_Read_ChargingVoltage};
inline constexpr Entry entry_of_Thermal_Read_GpuTS1L_Temperature{
    {"thermal", "gpu_local_temperature", "Thermal_Read_GpuTS1L_Temperature", "Graphics processor, sensor TS1 local", "\xC2" "\xB0" "C"},
    answers_of_Battery_Read_ChargingVoltage, sizeof answers_of_Battery_Read_ChargingVoltage / sizeof *answers_of_Battery_Read_ChargingVoltage};
inline constexpr Entry entry_of_Thermal_Read_GpuTS1R_Temperature{
    {"thermal", "gpu_remote_temperature", "Thermal_Read_GpuTS1R_Temperature", "Graphics processor, sensor TS1 remote", "\xC2" "\xB0" "C"},
    answers_of_Battery_Read_ChargingVoltage, sizeof answers_of_Battery_Read_ChargingVoltage / sizeof *answers_of_Battery_Read_ChargingVoltage};
inline constexpr Entry entry_of_Thermal_Read_BatteryConnector_Temperature{
    {"thermal", "battery_connector_temperature", "Thermal_Read_BatteryConnector_Temperature", "Battery connector", "\xC2" "\xB0" "C"},
    answers_of_Thermal_Read_BatteryConnector_Temperature, sizeof answers_of_Thermal_Read_BatteryConnector_Temperature / sizeof *answers_of_Thermal_Read_BatteryConnector_Temperature};
inline constexpr Entry entry_of_Thermal_Read_ACFET_Temperature{
    {"thermal", "ac_fet_temperature", "Thermal_Read_ACFET_Temperature", "Transistor of the AC input", "\xC2" "\xB0" "C"},
    answers_of_Thermal_Read_BatteryConnector_Temperature, sizeof answers_of_Thermal_Read_BatteryConnector_Temperature / sizeof *answers_of_Thermal_Read_BatteryConnector_Temperature};
inline constexpr Entry entry_of_Thermal_Read_ChargerChoke_Temperature{
    {"thermal", "charger_choke_temperature", "Thermal_Read_ChargerChoke_Temperature", "Choke of the charger", "\xC2" "\xB0" "C"},
    answers_of_Thermal_Read_BatteryConnector_Temperature, sizeof answers_of_Thermal_Read_BatteryConnector_Temperature / sizeof *answers_of_Thermal_Read_BatteryConnector_Temperature};
inline constexpr Entry entry_of_Thermal_Read_GpuVrm_Temperature{
    {"thermal", "gpu_vrm_temperature", "Thermal_Read_GpuVrm_Temperature", "Voltage regulator of the graphics processor", "\xC2" "\xB0" "C"},
    answers_of_Thermal_Read_BatteryConnector_Temperature, sizeof answers_of_Thermal_Read_BatteryConnector_Temperature / sizeof *answers_of_Thermal_Read_BatteryConnector_Temperature};
inline constexpr Entry entry_of_Thermal_Read_UpCpu_Temperature{
    {"thermal", "upper_cpu_temperature", "Thermal_Read_UpCpu_Temperature", "Above the processor", "\xC2" "\xB0" "C"},
    answers_of_Thermal_Read_BatteryConnector_Temperature, sizeof answers_of_Thermal_Read_BatteryConnector_Temperature / sizeof *answers_of_Thermal_Read_BatteryConnector_Temperature};
inline constexpr Entry entry_of_Thermal_Read_GpuVram_Temperature{
    {"thermal", "gpu_vram_temperature", "Thermal_Read_GpuVram_Temperature", "Graphics memory", "\xC2" "\xB0" "C"},
    answers_of_Thermal_Read_BatteryConnector_Temperature, sizeof answers_of_Thermal_Read_BatteryConnector_Temperature / sizeof *answers_of_Thermal_Read_BatteryConnector_Temperature};
inline constexpr Entry entry_of_Thermal_Read_Fan{
    {"thermal", "fan_speeds", "Thermal_Read_Fan", "Speeds of fans 0 to 3", "rpm"},
    answers_of_Thermal_Read_Fan, sizeof answers_of_Thermal_Read_Fan / sizeof *answers_of_Thermal_Read_Fan};
inline constexpr Entry entry_of_CPU_ReadCPUUsage{
    {"processor", "usage", "CPU_ReadCPUUsage", "Busy fraction of all processors together, measured for one second", "fraction"},
    answers_of_CPU_ReadCPUUsage, sizeof answers_of_CPU_ReadCPUUsage / sizeof *answers_of_CPU_ReadCPUUsage};
inline constexpr Entry entry_of_CPU_ReadCpuId{
    {"processor", "cpuid", "CPU_ReadCpuId", "CPUID leaf: EAX EBX ECX EDX", ""},
    answers_of_CPU_ReadCpuId, sizeof answers_of_CPU_ReadCpuId / sizeof *answers_of_CPU_ReadCpuId};
inline constexpr Entry entry_of_Thermal_Read_CpuPackagePower{
    {"processor", "package_power", "Thermal_Read_CpuPackagePower", "Power of the processor package, in the driver's own unit", "raw"},
    answers_of_Thermal_Read_CpuPackagePower, sizeof answers_of_Thermal_Read_CpuPackagePower / sizeof *answers_of_Thermal_Read_CpuPackagePower};
inline constexpr Entry entry_of_Thermal_Read_CpuDptf_PowerLimit1{
    {"processor", "power_limit_1", "Thermal_Read_CpuDptf_PowerLimit1", "Power limit 1, in the driver's own unit", "raw"},
    answers_of_Thermal_Read_CpuPackagePower, sizeof answers_of_Thermal_Read_CpuPackagePower / sizeof *answers_of_Thermal_Read_CpuPackagePower};
inline constexpr Entry entry_of_Thermal_Read_CpuDptf_PowerLimit2{
    {"processor", "power_limit_2", "Thermal_Read_CpuDptf_PowerLimit2", "Power limit 2, in the driver's own unit", "raw"},
    answers_of_Thermal_Read_CpuPackagePower, sizeof answers_of_Thermal_Read_CpuPackagePower / sizeof *answers_of_Thermal_Read_CpuPackagePower};
inline constexpr Entry entry_of_Power_Read_ACDCMode{
    {"processor", "power_source", "Power_Read_ACDCMode", "Battery or AC power", ""},
    answers_of_Power_Read_ACDCMode, sizeof answers_of_Power_Read_ACDCMode / sizeof *answers_of_Power_Read_ACDCMode};
inline constexpr Entry entry_of_GetEEPROM_Data{
    {"firmware_log", "event_store", "GetEEPROM_Data", "Version, registers and event log of the firmware's store", ""},
    answers_of_GetEEPROM_Data, sizeof answers_of_GetEEPROM_Data / sizeof *answers_of_GetEEPROM_Data};
inline constexpr Entry entry_of_GetSENSOR_WMI_Data{
    {"firmware_log", "proximity_sensor", "GetSENSOR_WMI_Data", "Status of the proximity sensor", ""},
    answers_of_GetSENSOR_WMI_Data, sizeof answers_of_GetSENSOR_WMI_Data / sizeof *answers_of_GetSENSOR_WMI_Data};
inline constexpr Entry entry_of_GPNV_Get_RandomUUID{
    {"firmware_variables", "random_uuid", "GPNV_Get_RandomUUID", "Random UUID of the machine", ""},
    answers_of_GPNV_Get_RandomUUID, sizeof answers_of_GPNV_Get_RandomUUID / sizeof *answers_of_GPNV_Get_RandomUUID};
inline constexpr Entry entry_of_GPNV_Get_ActivatedTime{
    {"firmware_variables", "activated_time", "GPNV_Get_ActivatedTime", "When the machine was activated", ""},
    answers_of_GPNV_Get_ActivatedTime, sizeof answers_of_GPNV_Get_ActivatedTime / sizeof *answers_of_GPNV_Get_ActivatedTime};
inline constexpr Entry entry_of_GPNV_Get_ManufacturedTime{
    {"firmware_variables", "manufactured_time", "GPNV_Get_ManufacturedTime", "When the machine was manufactured", ""},
    answers_of_GPNV_Get_RandomUUID, sizeof answers_of_GPNV_Get_RandomUUID / sizeof *answers_of_GPNV_Get_RandomUUID};
inline constexpr Entry entry_of_GPNV_Set_RandomUUID{
    {"firmware_variables", "set_random_uuid", "GPNV_Set_RandomUUID", "Stores the random UUID of the machine: 16 bytes", ""},
    answers_of_GPNV_Set_RandomUUID, sizeof answers_of_GPNV_Set_RandomUUID / sizeof *answers_of_GPNV_Set_RandomUUID};
inline constexpr Entry entry_of_GPNV_Set_ActivatedTime{
    {"firmware_variables", "set_activated_time", "GPNV_Set_ActivatedTime", "Stores when the machine was activated: 19 bytes", ""},
    answers_of_GPNV_Set_RandomUUID, sizeof answers_of_GPNV_Set_RandomUUID / sizeof *answers_of_GPNV_Set_RandomUUID};
inline constexpr Entry entry_of_GPNV_Set_ManufacturedTime{
    {"firmware_variables", "set_manufactured_time", "GPNV_Set_ManufacturedTime", "Stores when the machine was manufactured: 23 bytes", ""},
    answers_of_GPNV_Set_RandomUUID, sizeof answers_of_GPNV_Set_RandomUUID / sizeof *answers_of_GPNV_Set_RandomUUID};
inline constexpr Entry entry_of_WMICheckBatteryHealthSupport{
    {"features", "battery_health_support", "WMICheckBatteryHealthSupport", "Whether the firmware has Battery Health", ""},
    answers_of_WMICheckBatteryHealthSupport, sizeof answers_of_WMICheckBatteryHealthSupport / sizeof *answers_of_WMICheckBatteryHealthSupport};
inline constexpr Entry entry_of_WMICheckQuietFanSupport{
    {"features", "quiet_fan_support", "WMICheckQuietFanSupport", "Whether the firmware has Quiet Fan, and its state", ""},
    answers_of_WMICheckQuietFanSupport, sizeof answers_of_WMICheckQuietFanSupport / sizeof *answers_of_WMICheckQuietFanSupport};
inline constexpr Entry entry_of_WMIGetBatteryHealth{
    {"features", "battery_health", "WMIGetBatteryHealth", "Battery Health as last set", "%"},
    answers_of_WMIGetBatteryHealth, sizeof answers_of_WMIGetBatteryHealth / sizeof *answers_of_WMIGetBatteryHealth};
inline constexpr Entry entry_of_WMIGetQuietFan{
    {"features", "quiet_fan", "WMIGetQuietFan", "Quiet Fan as last set: 1, 2 or 3", ""},
    answers_of_WMIGetQuietFan, sizeof answers_of_WMIGetQuietFan / sizeof *answers_of_WMIGetQuietFan};
inline constexpr Entry entry_of_WMISetBatteryHealth{
    {"features", "set_battery_health", "WMISetBatteryHealth", "Sets Battery Health and stores the value", ""},
    answers_of_WMISetBatteryHealth, sizeof answers_of_WMISetBatteryHealth / sizeof *answers_of_WMISetBatteryHealth};
inline constexpr Entry entry_of_WMISetQuietFan{
    {"features", "set_quiet_fan", "WMISetQuietFan", "Sets Quiet Fan (0 off, 1 to 3 on) and stores the value", ""},
    answers_of_WMISetBatteryHealth, sizeof answers_of_WMISetBatteryHealth / sizeof *answers_of_WMISetBatteryHealth};
inline constexpr Entry entry_of_WMISetAppPath{
    {"features", "set_app_path", "WMISetAppPath", "Stores the directory of this user's settings files", ""},
    answers_of_WMISetAppPath, sizeof answers_of_WMISetAppPath / sizeof *answers_of_WMISetAppPath};
inline constexpr Entry entry_of_WMIGet90Number{
    {"inventory", "makers_number", "WMIGet90Number", "The maker's number of the machine: its fifth OEM string", ""},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetBiosManufacture{
    {"inventory", "board_maker", "WMIGetBiosManufacture", "Manufacturer of the base board", ""},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetBiosReleaseDate{
    {"inventory", "bios_release_date", "WMIGetBiosReleaseDate", "Release date of the BIOS: year, month, day", ""},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetBiosVersion{
    {"inventory", "bios_version", "WMIGetBiosVersion", "Version of the BIOS", ""},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetBoardUUID{
    {"inventory", "machine_uuid", "WMIGetBoardUUID", "UUID of the machine", ""},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetCPUInfo{
    {"inventory", "cpu_names", "WMIGetCPUInfo", "Name of each processor", ""},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetCPUUsg{
    {"inventory", "cpu_load", "WMIGetCPUUsg", "Load of the last processor that reports one", "%"},
    answers_of_WMIGetCPUUsg, sizeof answers_of_WMIGetCPUUsg / sizeof *answers_of_WMIGetCPUUsg};
inline constexpr Entry entry_of_WMIGetComputerFamilyName{
    {"inventory", "product_family", "WMIGetComputerFamilyName", "Product family of the machine", ""},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetExternMonitorNum{
    {"inventory", "external_displays", "WMIGetExternMonitorNum", "Number of external displays", ""},
    answers_of_WMIGetExternMonitorNum, sizeof answers_of_WMIGetExternMonitorNum / sizeof *answers_of_WMIGetExternMonitorNum};
inline constexpr Entry entry_of_WMIGetGPUInfo{
    {"inventory", "gpu_names", "WMIGetGPUInfo", "Name of each graphics adapter", ""},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetHDDCaption{
    {"inventory", "disk_captions", "WMIGetHDDCaption", "Name of each fixed disk", ""},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetHDDInfo{
    {"inventory", "disks", "WMIGetHDDInfo", "Model, size in bytes and media type (3 hard disk, 4 SSD) of each disk", ""},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetHDDModel{
    {"inventory", "hard_disk_models", "WMIGetHDDModel", "Model of each hard disk", ""},
    answers_of_WMIGetHDDModel, sizeof answers_of_WMIGetHDDModel / sizeof *answers_of_WMIGetHDDModel};
inline constexpr Entry entry_of_WMIGetHDDSize{
    {"inventory", "disk_sizes", "WMIGetHDDSize", "Size of each fixed disk", "bytes"},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetHDDTemp{
    {"inventory", "disk_temperatures", "WMIGetHDDTemp", "Temperature of each disk that reports one", "\xC2" "\xB0" "C"},
    answers_of_WMIGetHDDTemp, sizeof answers_of_WMIGetHDDTemp / sizeof *answers_of_WMIGetHDDTemp};
inline constexpr Entry entry_of_WMIGetLCDModel{
    {"inventory", "display_models", "WMIGetLCDModel", "Name of each monitor", ""},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetMacAddress{
    {"inventory", "mac_addresses", "WMIGetMacAddress", "Address of each physical network adapter", ""},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetMemManufacture{
    {"inventory", "memory_makers", "WMIGetMemManufacture", "Manufacturer of each memory module", ""},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetMemModel{
    {"inventory", "memory_models", "WMIGetMemModel", "Part number of each memory module", ""},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetMemSize{
    {"inventory", "memory_sizes", "WMIGetMemSize", "Size of each memory module", "bytes"},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetModelName{
    {"inventory", "board_name", "WMIGetModelName", "Product name of the base board", ""},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetMonitorBrightness{
    {"inventory", "brightness", "WMIGetMonitorBrightness", "Brightness of the display", "%"},
    answers_of_WMIGetMonitorBrightness, sizeof answers_of_WMIGetMonitorBrightness / sizeof *answers_of_WMIGetMonitorBrightness};
inline constexpr Entry entry_of_WMIGetOSCountryCode{
    {"inventory", "os_country_code", "WMIGetOSCountryCode", "Country code of the operating system", ""},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetOSInfo{
    {"inventory", "os", "WMIGetOSInfo", "Name, architecture and version of the operating system", ""},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetProductName{
    {"inventory", "product_name", "WMIGetProductName", "Product name of the machine", ""},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetSN{
    {"inventory", "serial_number", "WMIGetSN", "Serial number of the machine", ""},
    answers_of_WMIGet90Number, sizeof answers_of_WMIGet90Number / sizeof *answers_of_WMIGet90Number};
inline constexpr Entry entry_of_WMIGetSSDModel{
    {"inventory", "ssd_models", "WMIGetSSDModel", "Model of each SSD", ""},
    answers_of_WMIGetHDDModel, sizeof answers_of_WMIGetHDDModel / sizeof *answers_of_WMIGetHDDModel};
inline constexpr Entry entry_of_WMIGetSystemChassisTypes{
    {"inventory", "chassis", "WMIGetSystemChassisTypes", "Kind of machine: Desktop, Notebook or All in One", ""},
    answers_of_WMIGetSystemChassisTypes, sizeof answers_of_WMIGetSystemChassisTypes / sizeof *answers_of_WMIGetSystemChassisTypes};
inline constexpr Entry entry_of_wmiadd{
    {"inventory", "add_one", "wmiadd", "The given number plus one: shows that the library answers", ""},
    nullptr, 0};
inline constexpr Entry entry_of_WMIGetWiFiCardName{
    {"adapters", "wifi_cards", "WMIGetWiFiCardName", "Name of each Wi-Fi adapter", ""},
    answers_of_WMIGetWiFiCardName, sizeof answers_of_WMIGetWiFiCardName / sizeof *answers_of_WMIGetWiFiCardName};
inline constexpr Entry entry_of_WMIGetWiFiBytesPersec{
    {"adapters", "wifi_traffic", "WMIGetWiFiBytesPersec", "Traffic of the Wi-Fi adapter: received, sent", "bytes/s"},
    answers_of_WMIGetWiFiBytesPersec, sizeof answers_of_WMIGetWiFiBytesPersec / sizeof *answers_of_WMIGetWiFiBytesPersec};
inline constexpr Entry entry_of_RF_WiFiIsConnected{
    {"wifi", "connected", "RF_WiFiIsConnected", "Whether Wi-Fi is connected", ""},
    answers_of_RF_WiFiIsConnected, sizeof answers_of_RF_WiFiIsConnected / sizeof *answers_of_RF_WiFiIsConnected};
inline constexpr Entry entry_of_RF_WiFiCardName{
    {"wifi", "card_name", "RF_WiFiCardName", "Name of the Wi-Fi adapter", ""},
    answers_of_RF_WiFiCardName, sizeof answers_of_RF_WiFiCardName / sizeof *answers_of_RF_WiFiCardName};
inline constexpr Entry entry_of_RF_WiFiRssi{
    {"wifi", "signal", "RF_WiFiRssi", "Signal of the access point", "dBm"},
    answers_of_RF_WiFiRssi, sizeof answers_of_RF_WiFiRssi / sizeof *answers_of_RF_WiFiRssi};
inline constexpr Entry entry_of_RF_WiFiChannel{
    {"wifi", "channel", "RF_WiFiChannel", "Channel number", ""},
    answers_of_RF_WiFiRssi, sizeof answers_of_RF_WiFiRssi / sizeof *answers_of_RF_WiFiRssi};
inline constexpr Entry entry_of_RF_AP_MAC{
    {"wifi", "access_point_prefix", "RF_AP_MAC", "First three octets of the access point's address", ""},
    answers_of_RF_WiFiCardName, sizeof answers_of_RF_WiFiCardName / sizeof *answers_of_RF_WiFiCardName};
inline constexpr Entry entry_of_RF_WiFiMaxRate{
    {"wifi", "max_rate", "RF_WiFiMaxRate", "Highest link rate of the access point", "Mbit/s"},
    answers_of_RF_WiFiRssi, sizeof answers_of_RF_WiFiRssi / sizeof *answers_of_RF_WiFiRssi};
inline constexpr Entry entry_of_RF_PhyMode{
    {"wifi", "phy_mode", "RF_PhyMode", "Radio standard of the connection", ""},
    answers_of_RF_WiFiCardName, sizeof answers_of_RF_WiFiCardName / sizeof *answers_of_RF_WiFiCardName};
inline constexpr Entry entry_of_RF_BTIsUsed{
    {"bluetooth", "connected", "RF_BTIsUsed", "Whether a Bluetooth device is connected", ""},
    answers_of_RF_BTIsUsed, sizeof answers_of_RF_BTIsUsed / sizeof *answers_of_RF_BTIsUsed};
inline constexpr Entry entry_of_RF_BTConnectedNum{
    {"bluetooth", "device_count", "RF_BTConnectedNum", "Number of connected Bluetooth devices", ""},
    answers_of_RF_WiFiRssi, sizeof answers_of_RF_WiFiRssi / sizeof *answers_of_RF_WiFiRssi};
inline constexpr Entry entry_of_RF_BTConnectedType{
    {"bluetooth", "device_types", "RF_BTConnectedType", "Kind of each connected Bluetooth device", ""},
    answers_of_RF_WiFiCardName, sizeof answers_of_RF_WiFiCardName / sizeof *answers_of_RF_WiFiCardName};
inline constexpr Entry entry_of_System_Check_S_Mode{
    {"system", "s_mode", "System_Check_S_Mode", "Whether Windows runs in S mode", ""},
    answers_of_System_Check_S_Mode, sizeof answers_of_System_Check_S_Mode / sizeof *answers_of_System_Check_S_Mode};
inline constexpr Entry entry_of_System_GetCountryCode_ISO2{
    {"system", "country", "System_GetCountryCode_ISO2", "The user's country, two letters", ""},
    answers_of_System_GetCountryCode_ISO2, sizeof answers_of_System_GetCountryCode_ISO2 / sizeof *answers_of_System_GetCountryCode_ISO2};
inline constexpr Entry entry_of_System_Read_LocalTime{
    {"system", "local_time", "System_Read_LocalTime", "Local date and time", ""},
    answers_of_System_Read_LocalTime, sizeof answers_of_System_Read_LocalTime / sizeof *answers_of_System_Read_LocalTime};
inline constexpr Entry entry_of_System_Read_VolumeLevel{
    {"system", "volume", "System_Read_VolumeLevel", "Master volume, muted or not", "%"},
    answers_of_System_Read_VolumeLevel, sizeof answers_of_System_Read_VolumeLevel / sizeof *answers_of_System_Read_VolumeLevel};
inline constexpr Entry entry_of_System_Read_TabletMode{
    {"system", "tablet_mode", "System_Read_TabletMode", "Tablet mode byte of the EC", ""},
    answers_of_EC_ReadEcFwRev, sizeof answers_of_EC_ReadEcFwRev / sizeof *answers_of_EC_ReadEcFwRev};
inline constexpr Entry entry_of_GetApplist_x64{
    {"applications", "applications_64", "GetApplist_x64", "Installed 64-bit applications with versions", ""},
    answers_of_GetApplist_x64, sizeof answers_of_GetApplist_x64 / sizeof *answers_of_GetApplist_x64};
inline constexpr Entry entry_of_GetApplist_x86{
    {"applications", "applications_32", "GetApplist_x86", "Installed 32-bit applications with versions", ""},
    answers_of_GetApplist_x64, sizeof answers_of_GetApplist_x64 / sizeof *answers_of_GetApplist_x64};
inline constexpr Entry entry_of_GetApplist_UWP{
    {"applications", "packages", "GetApplist_UWP", "Installed packages with their display names", ""},
    answers_of_GetApplist_UWP, sizeof answers_of_GetApplist_UWP / sizeof *answers_of_GetApplist_UWP};
inline constexpr Entry entry_of_App_Get_UWPApp{
    {"applications", "package_names", "App_Get_UWPApp", "Names of installed packages", ""},
    answers_of_App_Get_UWPApp, sizeof answers_of_App_Get_UWPApp / sizeof *answers_of_App_Get_UWPApp};
inline constexpr Entry entry_of_App_Get_Win32App{
    {"applications", "application_names_64", "App_Get_Win32App", "Names of installed 64-bit applications", ""},
    answers_of_App_Get_UWPApp, sizeof answers_of_App_Get_UWPApp / sizeof *answers_of_App_Get_UWPApp};
inline constexpr Entry entry_of_App_Get_Win32WOW6432App{
    {"applications", "application_names_32", "App_Get_Win32WOW6432App", "Names of installed 32-bit applications", ""},
    answers_of_App_Get_UWPApp, sizeof answers_of_App_Get_UWPApp / sizeof *answers_of_App_Get_UWPApp};
inline constexpr Entry entry_of_GetInfVersion{
    {"versions", "driver_package", "GetInfVersion", "Version of the maker's driver package", ""},
    answers_of_GetInfVersion, sizeof answers_of_GetInfVersion / sizeof *answers_of_GetInfVersion};
inline constexpr Entry entry_of_GetUWPVersion{
    {"versions", "assistant_package", "GetUWPVersion", "Version of the maker's assistant package", ""},
    answers_of_GetUWPVersion, sizeof answers_of_GetUWPVersion / sizeof *answers_of_GetUWPVersion};
inline constexpr Entry entry_of_AppList_OpenWindows{
    {"usage", "open_windows", "AppList_OpenWindows", "Up to five uppermost windows; measures for one second each", ""},
    answers_of_AppList_OpenWindows, sizeof answers_of_AppList_OpenWindows / sizeof *answers_of_AppList_OpenWindows};
inline constexpr Entry entry_of_AppList_CpuUsage{
    {"usage", "busiest_processes", "AppList_CpuUsage", "The five busiest processes", ""},
    answers_of_AppList_CpuUsage, sizeof answers_of_AppList_CpuUsage / sizeof *answers_of_AppList_CpuUsage};
inline constexpr Entry entry_of_AppList_MemUsage{
    {"usage", "largest_processes", "AppList_MemUsage", "The ten largest processes", ""},
    answers_of_AppList_CpuUsage, sizeof answers_of_AppList_CpuUsage / sizeof *answers_of_AppList_CpuUsage};
inline constexpr Entry entry_of_AppList_HardwareConfig{
    {"usage", "settings", "AppList_HardwareConfig", "Brightness and volume", ""},
    answers_of_AppList_HardwareConfig, sizeof answers_of_AppList_HardwareConfig / sizeof *answers_of_AppList_HardwareConfig};

} // namespace detail

/// Battery or AC power.
enum class PowerSource : std::uint32_t {
    battery = 0, ///< on battery
    ac = 1, ///< on AC power
};

/// Whether the firmware has Quiet Fan, and its state.
enum class QuietFanSupport : std::int32_t {
    off = 0, ///< supported, off
    on = 1, ///< supported, on
};

/// Model, size in bytes and media type (3 hard disk, 4 SSD) of each disk.
struct Disk {
    String model;
    Result<Quantity<unit::bytes, std::int64_t>> size;
    Result<std::int64_t> media_type;

    static Disk from(const detail::Module& module, const detail::Entry& entry,
                     const std::array<StringView, 3>& fields) {
        return {
            detail::element_of<String>(module, entry, fields[0]),
            detail::element_of<Result<Quantity<unit::bytes, std::int64_t>>>(module, entry, fields[1]),
            detail::element_of<Result<std::int64_t>>(module, entry, fields[2]),
        };
    }
};

/// Session and versions.
class SessionReadings : public detail::Group {
public:
    using Group::Group;

    /// Version word of the I/O driver.
    /// Failed or no session: no session is open, or the driver refused.
    /// Needs a session.
    /// Export: GetDriverVersion.
    [[nodiscard]] Result<std::uint32_t> driver_version() const {
        return detail::read_number<std::uint32_t>(module(), detail::entry_of_GetDriverVersion, exports().GetDriverVersion());
    }

    /// Reference count of the I/O driver.
    /// Failed or no session: no session is open, or the driver refused.
    /// Needs a session.
    /// Export: GetRefCount.
    [[nodiscard]] Result<std::uint32_t> driver_references() const {
        return detail::read_number<std::uint32_t>(module(), detail::entry_of_GetRefCount, exports().GetRefCount());
    }

    /// Version of the I/O interface, a constant.
    /// Export: GetIoDllVersion.
    [[nodiscard]] Result<std::uint32_t> io_version() const {
        return detail::read_number<std::uint32_t>(module(), detail::entry_of_GetIoDllVersion, exports().GetIoDllVersion());
    }
};

/// Embedded controller: identity.
class IdentityReadings : public detail::Group {
public:
    using Group::Group;

    /// Firmware revision code of the EC: two letters.
    /// The letters that the export packs into a number.
    /// Failed or no session: an EC command failed, or no session is open.
    /// Needs a session while the value is not cached in the registry.
    /// The first value that was read is cached in the registry permanently.
    /// Export: EC_ReadEcFwRev.
    [[nodiscard]] Result<std::string> firmware_revision() const {
        return detail::read_number<std::string>(module(), detail::entry_of_EC_ReadEcFwRev, exports().EC_ReadEcFwRev());
    }

    /// Chip id of the EC, which distinguishes variants of one revision code.
    /// Range: 0 to 255.
    /// Failed or no session: an EC command failed, or no session is open.
    /// Needs a session while the value is not cached in the registry.
    /// The first value that was read is cached in the registry permanently.
    /// Export: EC_ReadEcChipId.
    [[nodiscard]] Result<std::uint32_t> chip_id() const {
        return detail::read_number<std::uint32_t>(module(), detail::entry_of_EC_ReadEcChipId, exports().EC_ReadEcChipId());
    }

    /// Chip name of the EC: four characters.
    /// The letters that the export packs into a number.
    /// Failed or no session: an EC command failed, or no session is open.
    /// Needs a session while the value is not cached in the registry.
    /// The first value that was read is cached in the registry permanently.
    /// Export: EC_ReadEcChipName.
    [[nodiscard]] Result<std::string> chip_name() const {
        return detail::read_number<std::string>(module(), detail::entry_of_EC_ReadEcChipName, exports().EC_ReadEcChipName());
    }
};

/// Battery: from the system's battery device.
class BatteryReadings : public detail::Group {
public:
    using Group::Group;

    /// Capacity that the battery was designed for.
    /// Unit: milliwatt hours (mWh).
    /// Absent or failed: no battery, or the device does not give this value.
    /// Export: Battery_Read_DesignedCapacity.
    [[nodiscard]] Result<Quantity<unit::milliwatt_hours, std::uint32_t>> designed_capacity() const {
        return detail::read_number<Quantity<unit::milliwatt_hours, std::uint32_t>>(module(), detail::entry_of_Battery_Read_DesignedCapacity, exports().Battery_Read_DesignedCapacity());
    }

    /// Capacity of the full battery at present.
    /// Unit: milliwatt hours (mWh).
    /// Absent or failed: no battery, or the device does not give this value.
    /// Export: Battery_Read_FullChargedCapcity.
    [[nodiscard]] Result<Quantity<unit::milliwatt_hours, std::uint32_t>> full_charged_capacity() const {
        return detail::read_number<Quantity<unit::milliwatt_hours, std::uint32_t>>(module(), detail::entry_of_Battery_Read_FullChargedCapcity, exports().Battery_Read_FullChargedCapcity());
    }

    /// Remaining charge.
    /// Unit: milliwatt hours (mWh).
    /// Absent or failed: no battery, or the device does not give this value.
    /// Export: Battery_Read_Capacity.
    [[nodiscard]] Result<Quantity<unit::milliwatt_hours, std::uint32_t>> capacity() const {
        return detail::read_number<Quantity<unit::milliwatt_hours, std::uint32_t>>(module(), detail::entry_of_Battery_Read_Capacity, exports().Battery_Read_Capacity());
    }

    /// Present voltage, from the system's battery device.
    /// Unit: millivolts (mV).
    /// Absent or failed: no battery, or the device does not give this value.
    /// Export: Battery_Read_DesignVoltage.
    [[nodiscard]] Result<Quantity<unit::millivolts, std::uint32_t>> present_voltage() const {
        return detail::read_number<Quantity<unit::millivolts, std::uint32_t>>(module(), detail::entry_of_Battery_Read_DesignVoltage, exports().Battery_Read_DesignVoltage());
    }

    /// Full capacity as a fraction of the designed capacity.
    /// A fraction: 1 is the whole.
    /// Absent or failed: no battery, or the device does not give this value.
    /// Export: Battery_Read_ASOC.
    [[nodiscard]] Result<Quantity<unit::fraction, float>> health() const {
        return detail::read_number<Quantity<unit::fraction, float>>(module(), detail::entry_of_Battery_Read_ASOC, exports().Battery_Read_ASOC());
    }

    /// Remaining charge, rounded to a multiple of ten.
    /// Unit: percent (%), 0 to 4294967290.
    /// 0 can mean: empty, or no battery.
    /// Export: Battery_Read_CapacityPercentage.
    [[nodiscard]] Result<Quantity<unit::percent, std::uint32_t>> charge() const {
        return detail::read_number<Quantity<unit::percent, std::uint32_t>>(module(), detail::entry_of_Battery_Read_CapacityPercentage, exports().Battery_Read_CapacityPercentage());
    }
};

/// Battery: from the embedded controller.
class BatteryEcReadings : public detail::Group {
public:
    using Group::Group;

    /// Charge cycles so far.
    /// Unit: cycles.
    /// Failed or no session: an EC command failed, or no session is open.
    /// 0 can mean: no cycles, or this machine does not count them.
    /// Needs a session on machines with some firmware revision codes.
    /// Export: Battery_Read_CycleCount.
    [[nodiscard]] Result<Quantity<unit::cycles, std::uint32_t>> cycle_count() const {
        return detail::read_number<Quantity<unit::cycles, std::uint32_t>>(module(), detail::entry_of_Battery_Read_CycleCount, exports().Battery_Read_CycleCount());
    }

    /// Lid byte of the EC.
    /// Range: 0 to 255.
    /// Failed or no session: an EC command failed, or no session is open.
    /// 0 can mean: the byte is 0, or no such reading on this machine.
    /// Needs a session.
    /// Export: Battery_Get_LidStatus.
    [[nodiscard]] Result<std::uint32_t> lid_status() const {
        return detail::read_number<std::uint32_t>(module(), detail::entry_of_Battery_Get_LidStatus, exports().Battery_Get_LidStatus());
    }

    /// Charging voltage, in the EC's own unit.
    /// Unit: the firmware's or the driver's own unit, which is not documented, 0 to 65535.
    /// Failed or no session: an EC command failed, or no session is open.
    /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
    /// Needs a session.
    /// Export: Battery_Read_ChargingVoltage.
    [[nodiscard]] Result<Quantity<unit::raw_units, std::uint32_t>> charging_voltage() const {
        return detail::read_number<Quantity<unit::raw_units, std::uint32_t>>(module(), detail::entry_of_Battery_Read_ChargingVoltage, exports().Battery_Read_ChargingVoltage());
    }

    /// Voltage of the battery pack, in the EC's own unit.
    /// Unit: the firmware's or the driver's own unit, which is not documented, 0 to 65535.
    /// Failed or no session: an EC command failed, or no session is open.
    /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
    /// Needs a session.
    /// Export: Battery_Read_PackageVoltage.
    [[nodiscard]] Result<Quantity<unit::raw_units, std::uint32_t>> package_voltage() const {
        return detail::read_number<Quantity<unit::raw_units, std::uint32_t>>(module(), detail::entry_of_Battery_Read_PackageVoltage, exports().Battery_Read_PackageVoltage());
    }

    /// Temperature of the battery pack, in the EC's own unit.
    /// Unit: the firmware's or the driver's own unit, which is not documented, 0 to 65535.
    /// Failed or no session: an EC command failed, or no session is open.
    /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
    /// Needs a session.
    /// Export: Battery_Read_Temperature.
    [[nodiscard]] Result<Quantity<unit::raw_units, std::uint32_t>> temperature() const {
        return detail::read_number<Quantity<unit::raw_units, std::uint32_t>>(module(), detail::entry_of_Battery_Read_Temperature, exports().Battery_Read_Temperature());
    }

    /// Battery current, in the EC's own unit.
    /// Unit: the firmware's or the driver's own unit, which is not documented, -32768 to 32767.
    /// Failed or no session: an EC command failed, or no session is open; can also be an ordinary value.
    /// 0 can mean: no current, or no such reading on this machine.
    /// Needs a session.
    /// Export: Battery_Read_Current.
    [[nodiscard]] Result<Quantity<unit::raw_units, std::int32_t>> current() const {
        return detail::read_number<Quantity<unit::raw_units, std::int32_t>>(module(), detail::entry_of_Battery_Read_Current, exports().Battery_Read_Current());
    }

    /// Voltages of cells 0 to 3, in the EC's own unit.
    /// Unit: the firmware's or the driver's own unit, which is not documented, 0 to 65535.
    /// Failed or no session (one element): an EC command failed, or no session is open.
    /// Absent or no session (one element): no such cell on this machine, or the EC cannot be identified; can also be an ordinary value.
    /// Needs a session.
    /// Waits 0 to 120 ms.
    /// Threads: no other call may use meanwhile: the EC.
    /// Export: Battery_Read_CellVoltage.
    [[nodiscard]] Result<std::vector<Result<Quantity<unit::raw_units, std::int64_t>>>> cell_voltages() const {
        return detail::read_list<Result<Quantity<unit::raw_units, std::int64_t>>, char, 44>(module(), detail::entry_of_Battery_Read_CellVoltage, false, [&](char* out) { exports().Battery_Read_CellVoltage(out); });
    }

    /// Date of manufacture of the battery: year-month-day.
    /// Absent or failed or no session: the battery gives no date, or an EC command failed.
    /// Needs a session.
    /// Waits 0 to 30 ms.
    /// Threads: no other call may use meanwhile: the EC.
    /// Export: Battery_Read_ManufactureDate.
    [[nodiscard]] Result<std::string> manufacture_date() const {
        return detail::read_narrow<11>(module(), detail::entry_of_Battery_Read_ManufactureDate, [&](char* out) { exports().Battery_Read_ManufactureDate(out); });
    }

    /// Manufacturer of the battery.
    /// Absent or failed or no session: the battery gives no name, or an EC command failed.
    /// Needs a session.
    /// Export: Battery_Read_ManufactureName.
    [[nodiscard]] Result<std::string> manufacture_name() const {
        return detail::read_narrow<11>(module(), detail::entry_of_Battery_Read_ManufactureName, [&](char* out) { exports().Battery_Read_ManufactureName(out); });
    }
};

/// Temperatures and fans.
class ThermalReadings : public detail::Group {
public:
    using Group::Group;

    /// Processor.
    /// Unit: degrees Celsius (°C), 0 to 255.
    /// Failed or no session: an EC command failed, or no session is open.
    /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
    /// Needs a session.
    /// Export: Thermal_Read_Cpu_Temperature.
    [[nodiscard]] Result<Quantity<unit::degrees_celsius, std::uint32_t>> cpu_temperature() const {
        return detail::read_number<Quantity<unit::degrees_celsius, std::uint32_t>>(module(), detail::entry_of_Thermal_Read_Cpu_Temperature, exports().Thermal_Read_Cpu_Temperature());
    }

    /// Board, sensor TS0 local.
    /// Unit: degrees Celsius (°C), 0 to 255.
    /// Failed or no session: an EC command failed, or no session is open.
    /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
    /// Needs a session.
    /// Export: Thermal_Read_BoardTS0L_Temperature.
    [[nodiscard]] Result<Quantity<unit::degrees_celsius, std::uint32_t>> board_local_temperature() const {
        return detail::read_number<Quantity<unit::degrees_celsius, std::uint32_t>>(module(), detail::entry_of_Thermal_Read_BoardTS0L_Temperature, exports().Thermal_Read_BoardTS0L_Temperature());
    }

    /// Board, sensor TS0 remote.
    /// Unit: degrees Celsius (°C), 0 to 255.
    /// Failed or no session: an EC command failed, or no session is open.
    /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
    /// Needs a session.
    /// Export: Thermal_Read_BoardTS0R_Temperature.
    [[nodiscard]] Result<Quantity<unit::degrees_celsius, std::uint32_t>> board_remote_temperature() const {
        return detail::read_number<Quantity<unit::degrees_celsius, std::uint32_t>>(module(), detail::entry_of_Thermal_Read_BoardTS0R_Temperature, exports().Thermal_Read_BoardTS0R_Temperature());
    }

    /// Graphics processor, sensor TS1 local.
    /// Unit: degrees Celsius (°C), 0 to 255.
    /// Failed or no session: an EC command failed, or no session is open.
    /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
    /// Needs a session.
    /// Export: Thermal_Read_GpuTS1L_Temperature.
    [[nodiscard]] Result<Quantity<unit::degrees_celsius, std::uint32_t>> gpu_local_temperature() const {
        return detail::read_number<Quantity<unit::degrees_celsius, std::uint32_t>>(module(), detail::entry_of_Thermal_Read_GpuTS1L_Temperature, exports().Thermal_Read_GpuTS1L_Temperature());
    }

    /// Graphics processor, sensor TS1 remote.
    /// Unit: degrees Celsius (°C), 0 to 255.
    /// Failed or no session: an EC command failed, or no session is open.
    /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
    /// Needs a session.
    /// Export: Thermal_Read_GpuTS1R_Temperature.
    [[nodiscard]] Result<Quantity<unit::degrees_celsius, std::uint32_t>> gpu_remote_temperature() const {
        return detail::read_number<Quantity<unit::degrees_celsius, std::uint32_t>>(module(), detail::entry_of_Thermal_Read_GpuTS1R_Temperature, exports().Thermal_Read_GpuTS1R_Temperature());
    }

    /// Battery connector.
    /// Unit: degrees Celsius (°C), 0 to 255.
    /// Failed or no session: an EC command failed, or no session is open.
    /// Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
    /// Needs a session.
    /// Export: Thermal_Read_BatteryConnector_Temperature.
    [[nodiscard]] Result<Quantity<unit::degrees_celsius, std::uint32_t>> battery_connector_temperature() const {
        return detail::read_number<Quantity<unit::degrees_celsius, std::uint32_t>>(module(), detail::entry_of_Thermal_Read_BatteryConnector_Temperature, exports().Thermal_Read_BatteryConnector_Temperature());
    }

    /// Transistor of the AC input.
    /// Unit: degrees Celsius (°C), 0 to 255.
    /// Failed or no session: an EC command failed, or no session is open.
    /// Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
    /// Needs a session.
    /// Export: Thermal_Read_ACFET_Temperature.
    [[nodiscard]] Result<Quantity<unit::degrees_celsius, std::uint32_t>> ac_fet_temperature() const {
        return detail::read_number<Quantity<unit::degrees_celsius, std::uint32_t>>(module(), detail::entry_of_Thermal_Read_ACFET_Temperature, exports().Thermal_Read_ACFET_Temperature());
    }

    /// Choke of the charger.
    /// Unit: degrees Celsius (°C), 0 to 255.
    /// Failed or no session: an EC command failed, or no session is open.
    /// Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
    /// Needs a session.
    /// Export: Thermal_Read_ChargerChoke_Temperature.
    [[nodiscard]] Result<Quantity<unit::degrees_celsius, std::uint32_t>> charger_choke_temperature() const {
        return detail::read_number<Quantity<unit::degrees_celsius, std::uint32_t>>(module(), detail::entry_of_Thermal_Read_ChargerChoke_Temperature, exports().Thermal_Read_ChargerChoke_Temperature());
    }

    /// Voltage regulator of the graphics processor.
    /// Unit: degrees Celsius (°C), 0 to 255.
    /// Failed or no session: an EC command failed, or no session is open.
    /// Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
    /// Needs a session.
    /// Export: Thermal_Read_GpuVrm_Temperature.
    [[nodiscard]] Result<Quantity<unit::degrees_celsius, std::uint32_t>> gpu_vrm_temperature() const {
        return detail::read_number<Quantity<unit::degrees_celsius, std::uint32_t>>(module(), detail::entry_of_Thermal_Read_GpuVrm_Temperature, exports().Thermal_Read_GpuVrm_Temperature());
    }

    /// Above the processor.
    /// Unit: degrees Celsius (°C), 0 to 255.
    /// Failed or no session: an EC command failed, or no session is open.
    /// Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
    /// Needs a session.
    /// Export: Thermal_Read_UpCpu_Temperature.
    [[nodiscard]] Result<Quantity<unit::degrees_celsius, std::uint32_t>> upper_cpu_temperature() const {
        return detail::read_number<Quantity<unit::degrees_celsius, std::uint32_t>>(module(), detail::entry_of_Thermal_Read_UpCpu_Temperature, exports().Thermal_Read_UpCpu_Temperature());
    }

    /// Graphics memory.
    /// Unit: degrees Celsius (°C), 0 to 255.
    /// Failed or no session: an EC command failed, or no session is open.
    /// Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
    /// Needs a session.
    /// Export: Thermal_Read_GpuVram_Temperature.
    [[nodiscard]] Result<Quantity<unit::degrees_celsius, std::uint32_t>> gpu_vram_temperature() const {
        return detail::read_number<Quantity<unit::degrees_celsius, std::uint32_t>>(module(), detail::entry_of_Thermal_Read_GpuVram_Temperature, exports().Thermal_Read_GpuVram_Temperature());
    }

    /// Speeds of fans 0 to 3.
    /// Unit: revolutions per minute (rpm), 0 to 2156250.
    /// Failed or no session (one element): an EC command failed, or no session is open.
    /// 0 (one element) can mean: the fan does not turn, or this machine does not have it.
    /// Needs a session.
    /// Waits 0 to 30 ms.
    /// Threads: no other call may use meanwhile: the EC.
    /// Export: Thermal_Read_Fan.
    [[nodiscard]] Result<std::vector<Result<Quantity<unit::revolutions_per_minute, std::int64_t>>>> fan_speeds() const {
        return detail::read_list<Result<Quantity<unit::revolutions_per_minute, std::int64_t>>, char, 44>(module(), detail::entry_of_Thermal_Read_Fan, false, [&](char* out) { exports().Thermal_Read_Fan(out); });
    }
};

/// Processor and power.
class ProcessorReadings : public detail::Group {
public:
    using Group::Group;

    /// Busy fraction of all processors together, measured for one second.
    /// A fraction: 1 is the whole.
    /// 0 can mean: idle, or a sample failed.
    /// Waits 1000 ms.
    /// Export: CPU_ReadCPUUsage.
    [[nodiscard]] Result<Quantity<unit::fraction, double>> usage() const {
        return detail::read_number<Quantity<unit::fraction, double>>(module(), detail::entry_of_CPU_ReadCPUUsage, exports().CPU_ReadCPUUsage());
    }

    /// CPUID leaf: EAX EBX ECX EDX.
    /// leaf: the leaf.
    /// No session: no session is open.
    /// Failed: the driver refused; can also be an ordinary value.
    /// Needs a session.
    /// Export: CPU_ReadCpuId.
    [[nodiscard]] Result<Registers> cpuid(std::uint32_t leaf) const {
        return detail::read_registers(module(), detail::entry_of_CPU_ReadCpuId, [&](Registers& words) { exports().CPU_ReadCpuId(leaf, &words.eax, &words.ebx, &words.ecx, &words.edx); });
    }

    /// Power of the processor package, in the driver's own unit.
    /// Unit: the firmware's or the driver's own unit, which is not documented.
    /// Absent or failed or no session: no session is open, or the processor has no such value.
    /// Needs a session.
    /// Export: Thermal_Read_CpuPackagePower.
    [[nodiscard]] Result<Quantity<unit::raw_units, std::uint32_t>> package_power() const {
        return detail::read_number<Quantity<unit::raw_units, std::uint32_t>>(module(), detail::entry_of_Thermal_Read_CpuPackagePower, exports().Thermal_Read_CpuPackagePower());
    }

    /// Power limit 1, in the driver's own unit.
    /// Unit: the firmware's or the driver's own unit, which is not documented.
    /// Absent or failed or no session: no session is open, or the processor has no such value.
    /// Needs a session.
    /// Export: Thermal_Read_CpuDptf_PowerLimit1.
    [[nodiscard]] Result<Quantity<unit::raw_units, std::uint32_t>> power_limit_1() const {
        return detail::read_number<Quantity<unit::raw_units, std::uint32_t>>(module(), detail::entry_of_Thermal_Read_CpuDptf_PowerLimit1, exports().Thermal_Read_CpuDptf_PowerLimit1());
    }

    /// Power limit 2, in the driver's own unit.
    /// Unit: the firmware's or the driver's own unit, which is not documented.
    /// Absent or failed or no session: no session is open, or the processor has no such value.
    /// Needs a session.
    /// Export: Thermal_Read_CpuDptf_PowerLimit2.
    [[nodiscard]] Result<Quantity<unit::raw_units, std::uint32_t>> power_limit_2() const {
        return detail::read_number<Quantity<unit::raw_units, std::uint32_t>>(module(), detail::entry_of_Thermal_Read_CpuDptf_PowerLimit2, exports().Thermal_Read_CpuDptf_PowerLimit2());
    }

    /// Battery or AC power.
    /// Failed or absent: the system does not know.
    /// Export: Power_Read_ACDCMode.
    [[nodiscard]] Result<PowerSource> power_source() const {
        return detail::read_number<PowerSource>(module(), detail::entry_of_Power_Read_ACDCMode, exports().Power_Read_ACDCMode());
    }
};

/// Firmware: event log and sensor.
class FirmwareLogReadings : public detail::Group {
public:
    using Group::Group;

    /// Version, registers and event log of the firmware's store.
    /// JSON in which nothing is escaped, so that a name can make it ill-formed.
    /// Failed or absent: the firmware's device does not answer.
    /// Threads: no other call may use meanwhile: the one handle of the firmware's device; the firmware's position in its event log.
    /// characters: the size of the buffer; the library does not know it, and 65536 is enough for known machines.
    /// Export: GetEEPROM_Data.
    [[nodiscard]] Result<String> event_store(std::size_t characters = 65536) const {
        return detail::read_wide(module(), detail::entry_of_GetEEPROM_Data, characters, [&](VeskChar16* out) { exports().GetEEPROM_Data(out); });
    }

    /// Status of the proximity sensor.
    /// JSON in which nothing is escaped, so that a name can make it ill-formed.
    /// Failed or absent: the sensor could not be read.
    /// Threads: no other call may use meanwhile: the one handle of the firmware's device.
    /// Export: GetSENSOR_WMI_Data.
    [[nodiscard]] Result<String> proximity_sensor() const {
        return detail::read_wide(module(), detail::entry_of_GetSENSOR_WMI_Data, 26, [&](VeskChar16* out) { exports().GetSENSOR_WMI_Data(out); });
    }
};

/// Firmware: variables.
class FirmwareVariablesReadings : public detail::Group {
public:
    using Group::Group;

    /// Random UUID of the machine.
    /// Failed: the firmware variable cannot be read.
    /// Failed: the system's error code of the failed read.
    /// Export: GPNV_Get_RandomUUID.
    [[nodiscard]] Result<std::array<std::uint8_t, 16>> random_uuid() const {
        return detail::read_bytes<16>(module(), detail::entry_of_GPNV_Get_RandomUUID, exports().GPNV_Get_RandomUUID);
    }

    /// When the machine was activated.
    /// Failed: the firmware variable cannot be read.
    /// Export: GPNV_Get_ActivatedTime.
    [[nodiscard]] Result<std::array<std::uint8_t, 19>> activated_time() const {
        return detail::read_bytes<19>(module(), detail::entry_of_GPNV_Get_ActivatedTime, exports().GPNV_Get_ActivatedTime);
    }

    /// When the machine was manufactured.
    /// Failed: the firmware variable cannot be read.
    /// Failed: the system's error code of the failed read.
    /// Export: GPNV_Get_ManufacturedTime.
    [[nodiscard]] Result<std::array<std::uint8_t, 23>> manufactured_time() const {
        return detail::read_bytes<23>(module(), detail::entry_of_GPNV_Get_ManufacturedTime, exports().GPNV_Get_ManufacturedTime);
    }

    /// Stores the random UUID of the machine: 16 bytes.
    /// bytes: the new bytes.
    /// 0 can mean: written, or the variable could not be read and was left as it is.
    /// Failed: the variable ends before the field; or the system's code of the failed write.
    /// Failed: the system's error code of the failed write.
    /// Threads: no other call may use meanwhile: the UEFI variables.
    /// Export: GPNV_Set_RandomUUID.
    [[nodiscard]] Result<void> set_random_uuid(const std::array<std::uint8_t, 16>& bytes) const {
        return detail::done(detail::entry_of_GPNV_Set_RandomUUID, exports().GPNV_Set_RandomUUID(bytes.data()));
    }

    /// Stores when the machine was activated: 19 bytes.
    /// bytes: the new bytes.
    /// 0 can mean: written, or the variable could not be read and was left as it is.
    /// Failed: the variable ends before the field; or the system's code of the failed write.
    /// Failed: the system's error code of the failed write.
    /// Threads: no other call may use meanwhile: the UEFI variables.
    /// Export: GPNV_Set_ActivatedTime.
    [[nodiscard]] Result<void> set_activated_time(const std::array<std::uint8_t, 19>& bytes) const {
        return detail::done(detail::entry_of_GPNV_Set_ActivatedTime, exports().GPNV_Set_ActivatedTime(bytes.data()));
    }

    /// Stores when the machine was manufactured: 23 bytes.
    /// bytes: the new bytes.
    /// 0 can mean: written, or the variable could not be read and was left as it is.
    /// Failed: the variable ends before the field; or the system's code of the failed write.
    /// Failed: the system's error code of the failed write.
    /// Threads: no other call may use meanwhile: the UEFI variables.
    /// Export: GPNV_Set_ManufacturedTime.
    [[nodiscard]] Result<void> set_manufactured_time(const std::array<std::uint8_t, 23>& bytes) const {
        return detail::done(detail::entry_of_GPNV_Set_ManufacturedTime, exports().GPNV_Set_ManufacturedTime(bytes.data()));
    }
};

/// Firmware: Battery Health and Quiet Fan.
class FeaturesReadings : public detail::Group {
public:
    using Group::Group;

    /// Whether the firmware has Battery Health.
    /// 0 can mean: not supported, or the firmware did not answer.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMICheckBatteryHealthSupport.
    [[nodiscard]] Result<bool> battery_health_support(Com com = Com::enter) const {
        return detail::read_number<bool>(module(), detail::entry_of_WMICheckBatteryHealthSupport, exports().WMICheckBatteryHealthSupport(static_cast<std::uint8_t>(com)));
    }

    /// Whether the firmware has Quiet Fan, and its state.
    /// Absent or failed: not supported, or the firmware did not answer.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMICheckQuietFanSupport.
    [[nodiscard]] Result<QuietFanSupport> quiet_fan_support(Com com = Com::enter) const {
        return detail::read_number<QuietFanSupport>(module(), detail::entry_of_WMICheckQuietFanSupport, exports().WMICheckQuietFanSupport(static_cast<std::uint8_t>(com)));
    }

    /// Battery Health as last set.
    /// Unit: percent (%).
    /// 100 can mean: also the default where nothing is stored.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetBatteryHealth.
    [[nodiscard]] Result<Quantity<unit::percent, std::int32_t>> battery_health(Com com = Com::enter) const {
        return detail::read_number<Quantity<unit::percent, std::int32_t>>(module(), detail::entry_of_WMIGetBatteryHealth, exports().WMIGetBatteryHealth(static_cast<std::uint8_t>(com)));
    }

    /// Quiet Fan as last set: 1, 2 or 3.
    /// Range: 0 to 3.
    /// 0 can mean: off, or nothing is stored.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetQuietFan.
    [[nodiscard]] Result<std::int32_t> quiet_fan(Com com = Com::enter) const {
        return detail::read_number<std::int32_t>(module(), detail::entry_of_WMIGetQuietFan, exports().WMIGetQuietFan(static_cast<std::uint8_t>(com)));
    }

    /// Sets Battery Health and stores the value.
    /// value: any number.
    /// Failed or absent: the firmware did not accept the value, or does not have the feature.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Threads: no other call may use meanwhile: the firmware's Battery Health and its settings file.
    /// Export: WMISetBatteryHealth.
    [[nodiscard]] Result<void> set_battery_health(std::int32_t value, Com com = Com::enter) const {
        return detail::done(detail::entry_of_WMISetBatteryHealth, exports().WMISetBatteryHealth(value, static_cast<std::uint8_t>(com)));
    }

    /// Sets Quiet Fan (0 off, 1 to 3 on) and stores the value.
    /// value: 0 off, any other value on; 1 to 3 can be read back.
    /// Failed or absent: the firmware did not accept the value, or does not have the feature.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Threads: no other call may use meanwhile: the firmware's Quiet Fan and its settings file.
    /// Export: WMISetQuietFan.
    [[nodiscard]] Result<void> set_quiet_fan(std::uint8_t value, Com com = Com::enter) const {
        return detail::done(detail::entry_of_WMISetQuietFan, exports().WMISetQuietFan(value, static_cast<std::uint8_t>(com)));
    }

    /// Stores the directory of this user's settings files.
    /// path: the directory, without a trailing backslash.
    /// Failed: not stored.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Threads: no other call may use meanwhile: the registry value with the directory of this user's settings.
    /// Export: WMISetAppPath.
    [[nodiscard]] Result<void> set_app_path(const VeskChar16* path, Com com = Com::enter) const {
        return detail::done(detail::entry_of_WMISetAppPath, exports().WMISetAppPath(path, static_cast<std::uint8_t>(com)));
    }
};

/// Inventory.
class InventoryReadings : public detail::Group {
public:
    using Group::Group;

    /// The maker's number of the machine: its fifth OEM string.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGet90Number.
    [[nodiscard]] Result<String> makers_number(Com com = Com::enter) const {
        return detail::read_wide(module(), detail::entry_of_WMIGet90Number, 4096, [&](VeskChar16* out) { exports().WMIGet90Number(out, static_cast<std::uint8_t>(com)); });
    }

    /// Manufacturer of the base board.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetBiosManufacture.
    [[nodiscard]] Result<std::vector<String>> board_maker(Com com = Com::enter) const {
        return detail::read_list<String, VeskChar16, 4096>(module(), detail::entry_of_WMIGetBiosManufacture, false, [&](VeskChar16* out) { exports().WMIGetBiosManufacture(out, static_cast<std::uint8_t>(com)); });
    }

    /// Release date of the BIOS: year, month, day.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetBiosReleaseDate.
    [[nodiscard]] Result<String> bios_release_date(Com com = Com::enter) const {
        return detail::read_wide(module(), detail::entry_of_WMIGetBiosReleaseDate, 9, [&](VeskChar16* out) { exports().WMIGetBiosReleaseDate(out, static_cast<std::uint8_t>(com)); });
    }

    /// Version of the BIOS.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetBiosVersion.
    [[nodiscard]] Result<std::vector<String>> bios_version(Com com = Com::enter) const {
        return detail::read_list<String, VeskChar16, 4096>(module(), detail::entry_of_WMIGetBiosVersion, false, [&](VeskChar16* out) { exports().WMIGetBiosVersion(out, static_cast<std::uint8_t>(com)); });
    }

    /// UUID of the machine.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetBoardUUID.
    [[nodiscard]] Result<std::vector<String>> machine_uuid(Com com = Com::enter) const {
        return detail::read_list<String, VeskChar16, 4096>(module(), detail::entry_of_WMIGetBoardUUID, false, [&](VeskChar16* out) { exports().WMIGetBoardUUID(out, static_cast<std::uint8_t>(com)); });
    }

    /// Name of each processor.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetCPUInfo.
    [[nodiscard]] Result<std::vector<String>> cpu_names(Com com = Com::enter) const {
        return detail::read_list<String, VeskChar16, 4096>(module(), detail::entry_of_WMIGetCPUInfo, false, [&](VeskChar16* out) { exports().WMIGetCPUInfo(out, static_cast<std::uint8_t>(com)); });
    }

    /// Load of the last processor that reports one.
    /// Unit: percent (%), 0 to 100.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetCPUUsg.
    [[nodiscard]] Result<Quantity<unit::percent, std::int32_t>> cpu_load(Com com = Com::enter) const {
        return detail::read_number<Quantity<unit::percent, std::int32_t>>(module(), detail::entry_of_WMIGetCPUUsg, exports().WMIGetCPUUsg(static_cast<std::uint8_t>(com)));
    }

    /// Product family of the machine.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetComputerFamilyName.
    [[nodiscard]] Result<std::vector<String>> product_family(Com com = Com::enter) const {
        return detail::read_list<String, VeskChar16, 4096>(module(), detail::entry_of_WMIGetComputerFamilyName, false, [&](VeskChar16* out) { exports().WMIGetComputerFamilyName(out, static_cast<std::uint8_t>(com)); });
    }

    /// Number of external displays.
    /// Failed: the WMI query failed.
    /// 0 can mean: none, or WMI gave no row.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetExternMonitorNum.
    [[nodiscard]] Result<std::int32_t> external_displays(Com com = Com::enter) const {
        return detail::read_number<std::int32_t>(module(), detail::entry_of_WMIGetExternMonitorNum, exports().WMIGetExternMonitorNum(static_cast<std::uint8_t>(com)));
    }

    /// Name of each graphics adapter.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetGPUInfo.
    [[nodiscard]] Result<std::vector<String>> gpu_names(Com com = Com::enter) const {
        return detail::read_list<String, VeskChar16, 4096>(module(), detail::entry_of_WMIGetGPUInfo, false, [&](VeskChar16* out) { exports().WMIGetGPUInfo(out, static_cast<std::uint8_t>(com)); });
    }

    /// Name of each fixed disk.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetHDDCaption.
    [[nodiscard]] Result<std::vector<String>> disk_captions(Com com = Com::enter) const {
        return detail::read_list<String, VeskChar16, 4096>(module(), detail::entry_of_WMIGetHDDCaption, false, [&](VeskChar16* out) { exports().WMIGetHDDCaption(out, static_cast<std::uint8_t>(com)); });
    }

    /// Model, size in bytes and media type (3 hard disk, 4 SSD) of each disk.
    /// One record for each; an element that cannot be read as a number is absent from its record.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetHDDInfo.
    [[nodiscard]] Result<std::vector<Disk>> disks(Com com = Com::enter) const {
        return detail::read_records<Disk, 3, 4096>(module(), detail::entry_of_WMIGetHDDInfo, [&](VeskChar16* out) { exports().WMIGetHDDInfo(out, static_cast<std::uint8_t>(com)); });
    }

    /// Model of each hard disk.
    /// Absent or failed: no such disk, or the WMI query failed.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetHDDModel.
    [[nodiscard]] Result<std::vector<String>> hard_disk_models(Com com = Com::enter) const {
        return detail::read_list<String, VeskChar16, 4096>(module(), detail::entry_of_WMIGetHDDModel, false, [&](VeskChar16* out) { exports().WMIGetHDDModel(out, static_cast<std::uint8_t>(com)); });
    }

    /// Size of each fixed disk.
    /// Unit: bytes.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetHDDSize.
    [[nodiscard]] Result<std::vector<Result<Quantity<unit::bytes, std::int64_t>>>> disk_sizes(Com com = Com::enter) const {
        return detail::read_list<Result<Quantity<unit::bytes, std::int64_t>>, VeskChar16, 4096>(module(), detail::entry_of_WMIGetHDDSize, false, [&](VeskChar16* out) { exports().WMIGetHDDSize(out, static_cast<std::uint8_t>(com)); });
    }

    /// Temperature of each disk that reports one.
    /// Unit: degrees Celsius (°C), 0 to 255.
    /// Absent or failed: no disk reports a temperature, or the WMI query failed.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// A failed read repeats the previous answer.
    /// Threads: no other call may use meanwhile: the SMART table.
    /// Export: WMIGetHDDTemp.
    [[nodiscard]] Result<std::vector<Result<Quantity<unit::degrees_celsius, std::int64_t>>>> disk_temperatures(Com com = Com::enter) const {
        return detail::read_list<Result<Quantity<unit::degrees_celsius, std::int64_t>>, VeskChar16, 1200>(module(), detail::entry_of_WMIGetHDDTemp, false, [&](VeskChar16* out) { exports().WMIGetHDDTemp(out, static_cast<std::uint8_t>(com)); });
    }

    /// Name of each monitor.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetLCDModel.
    [[nodiscard]] Result<std::vector<String>> display_models(Com com = Com::enter) const {
        return detail::read_list<String, VeskChar16, 4096>(module(), detail::entry_of_WMIGetLCDModel, false, [&](VeskChar16* out) { exports().WMIGetLCDModel(out, static_cast<std::uint8_t>(com)); });
    }

    /// Address of each physical network adapter.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetMacAddress.
    [[nodiscard]] Result<std::vector<String>> mac_addresses(Com com = Com::enter) const {
        return detail::read_list<String, VeskChar16, 4096>(module(), detail::entry_of_WMIGetMacAddress, false, [&](VeskChar16* out) { exports().WMIGetMacAddress(out, static_cast<std::uint8_t>(com)); });
    }

    /// Manufacturer of each memory module.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetMemManufacture.
    [[nodiscard]] Result<std::vector<String>> memory_makers(Com com = Com::enter) const {
        return detail::read_list<String, VeskChar16, 4096>(module(), detail::entry_of_WMIGetMemManufacture, false, [&](VeskChar16* out) { exports().WMIGetMemManufacture(out, static_cast<std::uint8_t>(com)); });
    }

    /// Part number of each memory module.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetMemModel.
    [[nodiscard]] Result<std::vector<String>> memory_models(Com com = Com::enter) const {
        return detail::read_list<String, VeskChar16, 4096>(module(), detail::entry_of_WMIGetMemModel, false, [&](VeskChar16* out) { exports().WMIGetMemModel(out, static_cast<std::uint8_t>(com)); });
    }

    /// Size of each memory module.
    /// Unit: bytes.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetMemSize.
    [[nodiscard]] Result<std::vector<Result<Quantity<unit::bytes, std::int64_t>>>> memory_sizes(Com com = Com::enter) const {
        return detail::read_list<Result<Quantity<unit::bytes, std::int64_t>>, VeskChar16, 4096>(module(), detail::entry_of_WMIGetMemSize, false, [&](VeskChar16* out) { exports().WMIGetMemSize(out, static_cast<std::uint8_t>(com)); });
    }

    /// Product name of the base board.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetModelName.
    [[nodiscard]] Result<std::vector<String>> board_name(Com com = Com::enter) const {
        return detail::read_list<String, VeskChar16, 4096>(module(), detail::entry_of_WMIGetModelName, false, [&](VeskChar16* out) { exports().WMIGetModelName(out, static_cast<std::uint8_t>(com)); });
    }

    /// Brightness of the display.
    /// Unit: percent (%), 0 to 100.
    /// Failed or absent: the WMI query failed, or no display reports its brightness.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetMonitorBrightness.
    [[nodiscard]] Result<Quantity<unit::percent, std::int32_t>> brightness(Com com = Com::enter) const {
        return detail::read_number<Quantity<unit::percent, std::int32_t>>(module(), detail::entry_of_WMIGetMonitorBrightness, exports().WMIGetMonitorBrightness(static_cast<std::uint8_t>(com)));
    }

    /// Country code of the operating system.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetOSCountryCode.
    [[nodiscard]] Result<std::vector<String>> os_country_code(Com com = Com::enter) const {
        return detail::read_list<String, VeskChar16, 4096>(module(), detail::entry_of_WMIGetOSCountryCode, false, [&](VeskChar16* out) { exports().WMIGetOSCountryCode(out, static_cast<std::uint8_t>(com)); });
    }

    /// Name, architecture and version of the operating system.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetOSInfo.
    [[nodiscard]] Result<String> os(Com com = Com::enter) const {
        return detail::read_wide(module(), detail::entry_of_WMIGetOSInfo, 4096, [&](VeskChar16* out) { exports().WMIGetOSInfo(out, static_cast<std::uint8_t>(com)); });
    }

    /// Product name of the machine.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetProductName.
    [[nodiscard]] Result<std::vector<String>> product_name(Com com = Com::enter) const {
        return detail::read_list<String, VeskChar16, 4096>(module(), detail::entry_of_WMIGetProductName, false, [&](VeskChar16* out) { exports().WMIGetProductName(out, static_cast<std::uint8_t>(com)); });
    }

    /// Serial number of the machine.
    /// Failed or absent: the WMI query failed or found nothing.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetSN.
    [[nodiscard]] Result<std::vector<String>> serial_number(Com com = Com::enter) const {
        return detail::read_list<String, VeskChar16, 4096>(module(), detail::entry_of_WMIGetSN, false, [&](VeskChar16* out) { exports().WMIGetSN(out, static_cast<std::uint8_t>(com)); });
    }

    /// Model of each SSD.
    /// Absent or failed: no such disk, or the WMI query failed.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetSSDModel.
    [[nodiscard]] Result<std::vector<String>> ssd_models(Com com = Com::enter) const {
        return detail::read_list<String, VeskChar16, 4096>(module(), detail::entry_of_WMIGetSSDModel, false, [&](VeskChar16* out) { exports().WMIGetSSDModel(out, static_cast<std::uint8_t>(com)); });
    }

    /// Kind of machine: Desktop, Notebook or All in One.
    /// Failed or absent: the WMI query failed, or the kind has no name.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetSystemChassisTypes.
    [[nodiscard]] Result<String> chassis(Com com = Com::enter) const {
        return detail::read_wide(module(), detail::entry_of_WMIGetSystemChassisTypes, 11, [&](VeskChar16* out) { exports().WMIGetSystemChassisTypes(out, static_cast<std::uint8_t>(com)); });
    }

    /// The given number plus one: shows that the library answers.
    /// value: any number; 4294967295 gives 0.
    /// Export: wmiadd.
    [[nodiscard]] Result<std::uint32_t> add_one(std::uint32_t value) const {
        return detail::read_number<std::uint32_t>(module(), detail::entry_of_wmiadd, exports().wmiadd(value));
    }
};

/// Network adapters.
class AdaptersReadings : public detail::Group {
public:
    using Group::Group;

    /// Name of each Wi-Fi adapter.
    /// Absent or failed: no Wi-Fi adapter, or the WMI query failed.
    /// Absent or failed: the system lists no network adapters.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetWiFiCardName.
    [[nodiscard]] Result<std::vector<String>> wifi_cards(Com com = Com::enter) const {
        return detail::read_list<String, VeskChar16, 1024>(module(), detail::entry_of_WMIGetWiFiCardName, true, [&](VeskChar16* out) { exports().WMIGetWiFiCardName(out, static_cast<std::uint8_t>(com)); });
    }

    /// Traffic of the Wi-Fi adapter: received, sent.
    /// Unit: bytes per second (bytes/s).
    /// Failed or absent: the WMI query failed or found nothing.
    /// "0;0" can mean: no traffic, or no counter of this adapter.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: WMIGetWiFiBytesPersec.
    [[nodiscard]] Result<std::vector<Result<Quantity<unit::bytes_per_second, std::int64_t>>>> wifi_traffic(Com com = Com::enter) const {
        return detail::read_list<Result<Quantity<unit::bytes_per_second, std::int64_t>>, VeskChar16, 64>(module(), detail::entry_of_WMIGetWiFiBytesPersec, false, [&](VeskChar16* out) { exports().WMIGetWiFiBytesPersec(out, static_cast<std::uint8_t>(com)); });
    }
};

/// Wi-Fi.
class WifiReadings : public detail::Group {
public:
    using Group::Group;

    /// Whether Wi-Fi is connected.
    /// Failed: the radio could not be read.
    /// Not read: no Wi-Fi adapter.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// The first successful read is cached to the end of the process.
    /// Export: RF_WiFiIsConnected.
    [[nodiscard]] Result<bool> connected() const {
        return detail::read_number<bool>(module(), detail::entry_of_RF_WiFiIsConnected, exports().RF_WiFiIsConnected());
    }

    /// Name of the Wi-Fi adapter.
    /// Failed: the radio could not be read.
    /// Not read: no adapter, or no connection.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// The first successful read is cached to the end of the process.
    /// Export: RF_WiFiCardName.
    [[nodiscard]] Result<String> card_name() const {
        return detail::read_wide(module(), detail::entry_of_RF_WiFiCardName, 257, [&](VeskChar16* out) { exports().RF_WiFiCardName(out); });
    }

    /// Signal of the access point.
    /// Unit: decibel milliwatts (dBm).
    /// Failed: the radio could not be read.
    /// Not read: no adapter, or no connection.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// The first successful read is cached to the end of the process.
    /// Export: RF_WiFiRssi.
    [[nodiscard]] Result<Quantity<unit::decibel_milliwatts, std::int32_t>> signal() const {
        return detail::read_number<Quantity<unit::decibel_milliwatts, std::int32_t>>(module(), detail::entry_of_RF_WiFiRssi, exports().RF_WiFiRssi());
    }

    /// Channel number.
    /// Failed: the radio could not be read.
    /// Not read: no adapter, or no connection.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// The first successful read is cached to the end of the process.
    /// Export: RF_WiFiChannel.
    [[nodiscard]] Result<std::int32_t> channel() const {
        return detail::read_number<std::int32_t>(module(), detail::entry_of_RF_WiFiChannel, exports().RF_WiFiChannel());
    }

    /// First three octets of the access point's address.
    /// Failed: the radio could not be read.
    /// Not read: no adapter, or no connection.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// The first successful read is cached to the end of the process.
    /// Export: RF_AP_MAC.
    [[nodiscard]] Result<std::string> access_point_prefix() const {
        return detail::read_narrow<13>(module(), detail::entry_of_RF_AP_MAC, [&](char* out) { exports().RF_AP_MAC(out); });
    }

    /// Highest link rate of the access point.
    /// Unit: megabits per second (Mbit/s).
    /// Failed: the radio could not be read.
    /// Not read: no adapter, or no connection.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// The first successful read is cached to the end of the process.
    /// Export: RF_WiFiMaxRate.
    [[nodiscard]] Result<Quantity<unit::megabits_per_second, std::int32_t>> max_rate() const {
        return detail::read_number<Quantity<unit::megabits_per_second, std::int32_t>>(module(), detail::entry_of_RF_WiFiMaxRate, exports().RF_WiFiMaxRate());
    }

    /// Radio standard of the connection.
    /// Failed: the radio could not be read.
    /// Not read: no adapter, or no connection.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// The first successful read is cached to the end of the process.
    /// Export: RF_PhyMode.
    [[nodiscard]] Result<std::string> phy_mode() const {
        return detail::read_string(module(), detail::entry_of_RF_PhyMode, exports().RF_PhyMode);
    }
};

/// Bluetooth.
class BluetoothReadings : public detail::Group {
public:
    using Group::Group;

    /// Whether a Bluetooth device is connected.
    /// Failed: the radio could not be read.
    /// Not read: no Bluetooth radio.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// The first successful read is cached to the end of the process.
    /// Export: RF_BTIsUsed.
    [[nodiscard]] Result<bool> connected() const {
        return detail::read_number<bool>(module(), detail::entry_of_RF_BTIsUsed, exports().RF_BTIsUsed());
    }

    /// Number of connected Bluetooth devices.
    /// Failed: the radio could not be read.
    /// Not read: no adapter, or no connection.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// The first successful read is cached to the end of the process.
    /// Export: RF_BTConnectedNum.
    [[nodiscard]] Result<std::int32_t> device_count() const {
        return detail::read_number<std::int32_t>(module(), detail::entry_of_RF_BTConnectedNum, exports().RF_BTConnectedNum());
    }

    /// Kind of each connected Bluetooth device.
    /// Failed: the radio could not be read.
    /// Not read: no adapter, or no connection.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// The first successful read is cached to the end of the process.
    /// Export: RF_BTConnectedType.
    [[nodiscard]] Result<std::vector<std::string>> device_types() const {
        return detail::read_string_list<std::string>(module(), detail::entry_of_RF_BTConnectedType, true, exports().RF_BTConnectedType);
    }
};

/// System.
class SystemReadings : public detail::Group {
public:
    using Group::Group;

    /// Whether Windows runs in S mode.
    /// 0 can mean: not in S mode, or the system did not answer.
    /// Export: System_Check_S_Mode.
    [[nodiscard]] Result<bool> s_mode() const {
        return detail::read_number<bool>(module(), detail::entry_of_System_Check_S_Mode, exports().System_Check_S_Mode());
    }

    /// The user's country, two letters.
    /// Failed or absent: the user has no country set.
    /// Export: System_GetCountryCode_ISO2.
    [[nodiscard]] Result<String> country() const {
        return detail::read_wide(module(), detail::entry_of_System_GetCountryCode_ISO2, 11, [&](VeskChar16* out) { exports().System_GetCountryCode_ISO2(out); });
    }

    /// Local date and time.
    /// Failed: the time cannot be converted to local time.
    /// Export: System_Read_LocalTime.
    [[nodiscard]] Result<std::string> local_time() const {
        return detail::read_narrow<20>(module(), detail::entry_of_System_Read_LocalTime, [&](char* out) { exports().System_Read_LocalTime(out); });
    }

    /// Master volume, muted or not.
    /// Unit: percent (%), 0 to 100.
    /// Failed or absent: no audio device, or it does not report its volume.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: System_Read_VolumeLevel.
    [[nodiscard]] Result<Quantity<unit::percent, std::int32_t>> volume(Com com = Com::enter) const {
        return detail::read_number<Quantity<unit::percent, std::int32_t>>(module(), detail::entry_of_System_Read_VolumeLevel, exports().System_Read_VolumeLevel(static_cast<std::uint8_t>(com)));
    }

    /// Tablet mode byte of the EC.
    /// Range: 0 to 255.
    /// Failed or no session: an EC command failed, or no session is open.
    /// Needs a session.
    /// Export: System_Read_TabletMode.
    [[nodiscard]] Result<std::uint32_t> tablet_mode() const {
        return detail::read_number<std::uint32_t>(module(), detail::entry_of_System_Read_TabletMode, exports().System_Read_TabletMode());
    }
};

/// Installed applications.
class ApplicationsReadings : public detail::Group {
public:
    using Group::Group;

    /// Installed 64-bit applications with versions.
    /// JSON in which nothing is escaped, so that a name can make it ill-formed.
    /// "[{"machine":[]},{"user":[]}]" can mean: no such applications, or the registry keys cannot be read.
    /// characters: the size of the buffer; the library does not know it, and 524288 is enough for known machines.
    /// Export: GetApplist_x64.
    [[nodiscard]] Result<String> applications_64(std::size_t characters = 524288) const {
        return detail::read_wide(module(), detail::entry_of_GetApplist_x64, characters, [&](VeskChar16* out) { exports().GetApplist_x64(out); });
    }

    /// Installed 32-bit applications with versions.
    /// JSON in which nothing is escaped, so that a name can make it ill-formed.
    /// "[{"machine":[]},{"user":[]}]" can mean: no such applications, or the registry keys cannot be read.
    /// characters: the size of the buffer; the library does not know it, and 524288 is enough for known machines.
    /// Export: GetApplist_x86.
    [[nodiscard]] Result<String> applications_32(std::size_t characters = 524288) const {
        return detail::read_wide(module(), detail::entry_of_GetApplist_x86, characters, [&](VeskChar16* out) { exports().GetApplist_x86(out); });
    }

    /// Installed packages with their display names.
    /// JSON in which nothing is escaped, so that a name can make it ill-formed.
    /// "[]" can mean: no packages, or the package store cannot be read.
    /// characters: the size of the buffer; the library does not know it, and 524288 is enough for known machines.
    /// Export: GetApplist_UWP.
    [[nodiscard]] Result<String> packages(std::size_t characters = 524288) const {
        return detail::read_wide(module(), detail::entry_of_GetApplist_UWP, characters, [&](VeskChar16* out) { exports().GetApplist_UWP(out); });
    }

    /// Names of installed packages.
    /// Absent or failed: no such applications, or the registry key cannot be read.
    /// characters: the size of the buffer; the library does not know it, and 524288 is enough for known machines.
    /// Export: App_Get_UWPApp.
    [[nodiscard]] Result<std::vector<String>> package_names(std::size_t characters = 524288) const {
        return detail::read_long_list<String>(module(), detail::entry_of_App_Get_UWPApp, true, characters, [&](VeskChar16* out) { exports().App_Get_UWPApp(out); });
    }

    /// Names of installed 64-bit applications.
    /// Absent or failed: no such applications, or the registry key cannot be read.
    /// characters: the size of the buffer; the library does not know it, and 524288 is enough for known machines.
    /// Export: App_Get_Win32App.
    [[nodiscard]] Result<std::vector<String>> application_names_64(std::size_t characters = 524288) const {
        return detail::read_long_list<String>(module(), detail::entry_of_App_Get_Win32App, true, characters, [&](VeskChar16* out) { exports().App_Get_Win32App(out); });
    }

    /// Names of installed 32-bit applications.
    /// Absent or failed: no such applications, or the registry key cannot be read.
    /// characters: the size of the buffer; the library does not know it, and 524288 is enough for known machines.
    /// Export: App_Get_Win32WOW6432App.
    [[nodiscard]] Result<std::vector<String>> application_names_32(std::size_t characters = 524288) const {
        return detail::read_long_list<String>(module(), detail::entry_of_App_Get_Win32WOW6432App, true, characters, [&](VeskChar16* out) { exports().App_Get_Win32WOW6432App(out); });
    }
};

/// Versions of the maker's software.
class VersionsReadings : public detail::Group {
public:
    using Group::Group;

    /// Version of the maker's driver package.
    /// Absent or failed: the driver package is not installed, or its version cannot be read.
    /// Export: GetInfVersion.
    [[nodiscard]] Result<String> driver_package() const {
        return detail::read_wide(module(), detail::entry_of_GetInfVersion, 512, [&](VeskChar16* out) { exports().GetInfVersion(out); });
    }

    /// Version of the maker's assistant package.
    /// Absent or failed: the assistant package is not installed.
    /// Export: GetUWPVersion.
    [[nodiscard]] Result<String> assistant_package() const {
        return detail::read_wide(module(), detail::entry_of_GetUWPVersion, 128, [&](VeskChar16* out) { exports().GetUWPVersion(out); });
    }
};

/// Usage.
class UsageReadings : public detail::Group {
public:
    using Group::Group;

    /// Up to five uppermost windows; measures for one second each.
    /// JSON in which nothing is escaped, so that a name can make it ill-formed.
    /// "[]" can mean: no window counts, or the windows cannot be listed.
    /// Waits 0 to 5000 ms.
    /// Export: AppList_OpenWindows.
    [[nodiscard]] Result<String> open_windows() const {
        return detail::read_wide(module(), detail::entry_of_AppList_OpenWindows, 2048, [&](VeskChar16* out) { exports().AppList_OpenWindows(out); });
    }

    /// The five busiest processes.
    /// JSON in which nothing is escaped, so that a name can make it ill-formed.
    /// Failed: the WMI query failed.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: AppList_CpuUsage.
    [[nodiscard]] Result<String> busiest_processes() const {
        return detail::read_wide(module(), detail::entry_of_AppList_CpuUsage, 4096, [&](VeskChar16* out) { exports().AppList_CpuUsage(out); });
    }

    /// The ten largest processes.
    /// JSON in which nothing is escaped, so that a name can make it ill-formed.
    /// Failed: the WMI query failed.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: AppList_MemUsage.
    [[nodiscard]] Result<String> largest_processes() const {
        return detail::read_wide(module(), detail::entry_of_AppList_MemUsage, 4096, [&](VeskChar16* out) { exports().AppList_MemUsage(out); });
    }

    /// Brightness and volume.
    /// JSON in which nothing is escaped, so that a name can make it ill-formed.
    /// Failed or absent: neither value could be read.
    /// Waits for a service of the system without a limit; the call cannot be cancelled.
    /// Export: AppList_HardwareConfig.
    [[nodiscard]] Result<String> settings() const {
        return detail::read_wide(module(), detail::entry_of_AppList_HardwareConfig, 64, [&](VeskChar16* out) { exports().AppList_HardwareConfig(out); });
    }
};

/// All groups. Of a Library or a Session.
class Readings {
public:
    /// Session and versions.
    [[nodiscard]] SessionReadings session() const noexcept { return SessionReadings(*m_module); }
    /// Embedded controller: identity.
    [[nodiscard]] IdentityReadings identity() const noexcept { return IdentityReadings(*m_module); }
    /// Battery: from the system's battery device.
    [[nodiscard]] BatteryReadings battery() const noexcept { return BatteryReadings(*m_module); }
    /// Battery: from the embedded controller.
    [[nodiscard]] BatteryEcReadings battery_ec() const noexcept { return BatteryEcReadings(*m_module); }
    /// Temperatures and fans.
    [[nodiscard]] ThermalReadings thermal() const noexcept { return ThermalReadings(*m_module); }
    /// Processor and power.
    [[nodiscard]] ProcessorReadings processor() const noexcept { return ProcessorReadings(*m_module); }
    /// Firmware: event log and sensor.
    [[nodiscard]] FirmwareLogReadings firmware_log() const noexcept { return FirmwareLogReadings(*m_module); }
    /// Firmware: variables.
    [[nodiscard]] FirmwareVariablesReadings firmware_variables() const noexcept { return FirmwareVariablesReadings(*m_module); }
    /// Firmware: Battery Health and Quiet Fan.
    [[nodiscard]] FeaturesReadings features() const noexcept { return FeaturesReadings(*m_module); }
    /// Inventory.
    [[nodiscard]] InventoryReadings inventory() const noexcept { return InventoryReadings(*m_module); }
    /// Network adapters.
    [[nodiscard]] AdaptersReadings adapters() const noexcept { return AdaptersReadings(*m_module); }
    /// Wi-Fi.
    [[nodiscard]] WifiReadings wifi() const noexcept { return WifiReadings(*m_module); }
    /// Bluetooth.
    [[nodiscard]] BluetoothReadings bluetooth() const noexcept { return BluetoothReadings(*m_module); }
    /// System.
    [[nodiscard]] SystemReadings system() const noexcept { return SystemReadings(*m_module); }
    /// Installed applications.
    [[nodiscard]] ApplicationsReadings applications() const noexcept { return ApplicationsReadings(*m_module); }
    /// Versions of the maker's software.
    [[nodiscard]] VersionsReadings versions() const noexcept { return VersionsReadings(*m_module); }
    /// Usage.
    [[nodiscard]] UsageReadings usage() const noexcept { return UsageReadings(*m_module); }

    /// The exports as they are.
    [[nodiscard]] const Exports& exports() const noexcept { return m_module->exports; }

protected:
    explicit Readings(std::shared_ptr<detail::Module> module) noexcept : m_module(std::move(module)) {}

    std::shared_ptr<detail::Module> m_module;
};

/// Makes each reading that takes no argument, in the order of vesk_sondrel.h: visit(const ReadingInfo&, Result<...>).
template <class Visitor>
void for_each_reading(const Readings& readings, Visitor&& visit, Com com = Com::enter) {
    visit(detail::entry_of_GetDriverVersion.info, readings.session().driver_version());
    visit(detail::entry_of_GetRefCount.info, readings.session().driver_references());
    visit(detail::entry_of_GetIoDllVersion.info, readings.session().io_version());
    visit(detail::entry_of_EC_ReadEcFwRev.info, readings.identity().firmware_revision());
    visit(detail::entry_of_EC_ReadEcChipId.info, readings.identity().chip_id());
    visit(detail::entry_of_EC_ReadEcChipName.info, readings.identity().chip_name());
    visit(detail::entry_of_Battery_Read_DesignedCapacity.info, readings.battery().designed_capacity());
    visit(detail::entry_of_Battery_Read_FullChargedCapcity.info, readings.battery().full_charged_capacity());
    visit(detail::entry_of_Battery_Read_Capacity.info, readings.battery().capacity());
    visit(detail::entry_of_Battery_Read_DesignVoltage.info, readings.battery().present_voltage());
    visit(detail::entry_of_Battery_Read_ASOC.info, readings.battery().health());
    visit(detail::entry_of_Battery_Read_CapacityPercentage.info, readings.battery().charge());
    visit(detail::entry_of_Battery_Read_CycleCount.info, readings.battery_ec().cycle_count());
    visit(detail::entry_of_Battery_Get_LidStatus.info, readings.battery_ec().lid_status());
    visit(detail::entry_of_Battery_Read_ChargingVoltage.info, readings.battery_ec().charging_voltage());
    visit(detail::entry_of_Battery_Read_PackageVoltage.info, readings.battery_ec().package_voltage());
    visit(detail::entry_of_Battery_Read_Temperature.info, readings.battery_ec().temperature());
    visit(detail::entry_of_Battery_Read_Current.info, readings.battery_ec().current());
    visit(detail::entry_of_Battery_Read_CellVoltage.info, readings.battery_ec().cell_voltages());
    visit(detail::entry_of_Battery_Read_ManufactureDate.info, readings.battery_ec().manufacture_date());
    visit(detail::entry_of_Battery_Read_ManufactureName.info, readings.battery_ec().manufacture_name());
    visit(detail::entry_of_Thermal_Read_Cpu_Temperature.info, readings.thermal().cpu_temperature());
    visit(detail::entry_of_Thermal_Read_BoardTS0L_Temperature.info, readings.thermal().board_local_temperature());
    visit(detail::entry_of_Thermal_Read_BoardTS0R_Temperature.info, readings.thermal().board_remote_temperature());
    visit(detail::entry_of_Thermal_Read_GpuTS1L_Temperature.info, readings.thermal().gpu_local_temperature());
    visit(detail::entry_of_Thermal_Read_GpuTS1R_Temperature.info, readings.thermal().gpu_remote_temperature());
    visit(detail::entry_of_Thermal_Read_BatteryConnector_Temperature.info, readings.thermal().battery_connector_temperature());
    visit(detail::entry_of_Thermal_Read_ACFET_Temperature.info, readings.thermal().ac_fet_temperature());
    visit(detail::entry_of_Thermal_Read_ChargerChoke_Temperature.info, readings.thermal().charger_choke_temperature());
    visit(detail::entry_of_Thermal_Read_GpuVrm_Temperature.info, readings.thermal().gpu_vrm_temperature());
    visit(detail::entry_of_Thermal_Read_UpCpu_Temperature.info, readings.thermal().upper_cpu_temperature());
    visit(detail::entry_of_Thermal_Read_GpuVram_Temperature.info, readings.thermal().gpu_vram_temperature());
    visit(detail::entry_of_Thermal_Read_Fan.info, readings.thermal().fan_speeds());
    visit(detail::entry_of_CPU_ReadCPUUsage.info, readings.processor().usage());
    visit(detail::entry_of_Thermal_Read_CpuPackagePower.info, readings.processor().package_power());
    visit(detail::entry_of_Thermal_Read_CpuDptf_PowerLimit1.info, readings.processor().power_limit_1());
    visit(detail::entry_of_Thermal_Read_CpuDptf_PowerLimit2.info, readings.processor().power_limit_2());
    visit(detail::entry_of_Power_Read_ACDCMode.info, readings.processor().power_source());
    visit(detail::entry_of_GetEEPROM_Data.info, readings.firmware_log().event_store());
    visit(detail::entry_of_GetSENSOR_WMI_Data.info, readings.firmware_log().proximity_sensor());
    visit(detail::entry_of_GPNV_Get_RandomUUID.info, readings.firmware_variables().random_uuid());
    visit(detail::entry_of_GPNV_Get_ActivatedTime.info, readings.firmware_variables().activated_time());
    visit(detail::entry_of_GPNV_Get_ManufacturedTime.info, readings.firmware_variables().manufactured_time());
    visit(detail::entry_of_WMICheckBatteryHealthSupport.info, readings.features().battery_health_support(com));
    visit(detail::entry_of_WMICheckQuietFanSupport.info, readings.features().quiet_fan_support(com));
    visit(detail::entry_of_WMIGetBatteryHealth.info, readings.features().battery_health(com));
    visit(detail::entry_of_WMIGetQuietFan.info, readings.features().quiet_fan(com));
    visit(detail::entry_of_WMIGet90Number.info, readings.inventory().makers_number(com));
    visit(detail::entry_of_WMIGetBiosManufacture.info, readings.inventory().board_maker(com));
    visit(detail::entry_of_WMIGetBiosReleaseDate.info, readings.inventory().bios_release_date(com));
    visit(detail::entry_of_WMIGetBiosVersion.info, readings.inventory().bios_version(com));
    visit(detail::entry_of_WMIGetBoardUUID.info, readings.inventory().machine_uuid(com));
    visit(detail::entry_of_WMIGetCPUInfo.info, readings.inventory().cpu_names(com));
    visit(detail::entry_of_WMIGetCPUUsg.info, readings.inventory().cpu_load(com));
    visit(detail::entry_of_WMIGetComputerFamilyName.info, readings.inventory().product_family(com));
    visit(detail::entry_of_WMIGetExternMonitorNum.info, readings.inventory().external_displays(com));
    visit(detail::entry_of_WMIGetGPUInfo.info, readings.inventory().gpu_names(com));
    visit(detail::entry_of_WMIGetHDDCaption.info, readings.inventory().disk_captions(com));
    visit(detail::entry_of_WMIGetHDDInfo.info, readings.inventory().disks(com));
    visit(detail::entry_of_WMIGetHDDModel.info, readings.inventory().hard_disk_models(com));
    visit(detail::entry_of_WMIGetHDDSize.info, readings.inventory().disk_sizes(com));
    visit(detail::entry_of_WMIGetHDDTemp.info, readings.inventory().disk_temperatures(com));
    visit(detail::entry_of_WMIGetLCDModel.info, readings.inventory().display_models(com));
    visit(detail::entry_of_WMIGetMacAddress.info, readings.inventory().mac_addresses(com));
    visit(detail::entry_of_WMIGetMemManufacture.info, readings.inventory().memory_makers(com));
    visit(detail::entry_of_WMIGetMemModel.info, readings.inventory().memory_models(com));
    visit(detail::entry_of_WMIGetMemSize.info, readings.inventory().memory_sizes(com));
    visit(detail::entry_of_WMIGetModelName.info, readings.inventory().board_name(com));
    visit(detail::entry_of_WMIGetMonitorBrightness.info, readings.inventory().brightness(com));
    visit(detail::entry_of_WMIGetOSCountryCode.info, readings.inventory().os_country_code(com));
    visit(detail::entry_of_WMIGetOSInfo.info, readings.inventory().os(com));
    visit(detail::entry_of_WMIGetProductName.info, readings.inventory().product_name(com));
    visit(detail::entry_of_WMIGetSN.info, readings.inventory().serial_number(com));
    visit(detail::entry_of_WMIGetSSDModel.info, readings.inventory().ssd_models(com));
    visit(detail::entry_of_WMIGetSystemChassisTypes.info, readings.inventory().chassis(com));
    visit(detail::entry_of_WMIGetWiFiCardName.info, readings.adapters().wifi_cards(com));
    visit(detail::entry_of_WMIGetWiFiBytesPersec.info, readings.adapters().wifi_traffic(com));
    visit(detail::entry_of_RF_WiFiIsConnected.info, readings.wifi().connected());
    visit(detail::entry_of_RF_WiFiCardName.info, readings.wifi().card_name());
    visit(detail::entry_of_RF_WiFiRssi.info, readings.wifi().signal());
    visit(detail::entry_of_RF_WiFiChannel.info, readings.wifi().channel());
    visit(detail::entry_of_RF_AP_MAC.info, readings.wifi().access_point_prefix());
    visit(detail::entry_of_RF_WiFiMaxRate.info, readings.wifi().max_rate());
    visit(detail::entry_of_RF_PhyMode.info, readings.wifi().phy_mode());
    visit(detail::entry_of_RF_BTIsUsed.info, readings.bluetooth().connected());
    visit(detail::entry_of_RF_BTConnectedNum.info, readings.bluetooth().device_count());
    visit(detail::entry_of_RF_BTConnectedType.info, readings.bluetooth().device_types());
    visit(detail::entry_of_System_Check_S_Mode.info, readings.system().s_mode());
    visit(detail::entry_of_System_GetCountryCode_ISO2.info, readings.system().country());
    visit(detail::entry_of_System_Read_LocalTime.info, readings.system().local_time());
    visit(detail::entry_of_System_Read_VolumeLevel.info, readings.system().volume(com));
    visit(detail::entry_of_System_Read_TabletMode.info, readings.system().tablet_mode());
    visit(detail::entry_of_GetApplist_x64.info, readings.applications().applications_64());
    visit(detail::entry_of_GetApplist_x86.info, readings.applications().applications_32());
    visit(detail::entry_of_GetApplist_UWP.info, readings.applications().packages());
    visit(detail::entry_of_App_Get_UWPApp.info, readings.applications().package_names());
    visit(detail::entry_of_App_Get_Win32App.info, readings.applications().application_names_64());
    visit(detail::entry_of_App_Get_Win32WOW6432App.info, readings.applications().application_names_32());
    visit(detail::entry_of_GetInfVersion.info, readings.versions().driver_package());
    visit(detail::entry_of_GetUWPVersion.info, readings.versions().assistant_package());
    visit(detail::entry_of_AppList_OpenWindows.info, readings.usage().open_windows());
    visit(detail::entry_of_AppList_CpuUsage.info, readings.usage().busiest_processes());
    visit(detail::entry_of_AppList_MemUsage.info, readings.usage().largest_processes());
    visit(detail::entry_of_AppList_HardwareConfig.info, readings.usage().settings());
}

} // namespace vesk

#endif
