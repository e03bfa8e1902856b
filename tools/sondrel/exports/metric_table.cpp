#include "exports/metric_table.h"

#include <algorithm>
#include <iterator>

namespace tool {
namespace {

constexpr Conversion AsItIs{};
constexpr Conversion Thousandths{.divisor = 1000};
constexpr Conversion Percent{.divisor = 100};
constexpr Conversion MilliwattHours{.factor = 36, .divisor = 10};               // to joules
constexpr Conversion Decikelvin{.factor = 1, .offset = -2731.5, .divisor = 10}; // to degrees Celsius
constexpr Conversion Megabits{.factor = 1'000'000};

constexpr std::string_view Temperature = "sondrel_temperature_celsius";
constexpr std::string_view TemperatureHelp = "Temperature of a part of the machine.";

// clang-format off
constexpr Metric Metrics[] = {
    {"InitializeSondrel", "sondrel_session_open", "1 if the driver session could be opened.", AsItIs},
    {"GetRefCount", "sondrel_driver_references", "The I/O driver's own reference count.", AsItIs},

    {"Battery_Read_DesignedCapacity", "sondrel_battery_design_capacity_joules", "Energy that the battery was made for.", MilliwattHours},
    {"Battery_Read_FullChargedCapcity", "sondrel_battery_full_capacity_joules", "Energy of the full battery as it is now.", MilliwattHours},
    {"Battery_Read_Capacity", "sondrel_battery_charge_joules", "Energy that is left in the battery.", MilliwattHours},
    {"Battery_Read_CapacityPercentage", "sondrel_battery_charge_ratio", "Charge that is left, rounded to tenths.", Percent},
    {"Battery_Read_ASOC", "sondrel_battery_health_ratio", "Full capacity as a fraction of the capacity it was made for.", AsItIs},
    {"Battery_Read_DesignVoltage", "sondrel_battery_volts", "Present voltage as the system's battery device tells it.", Thousandths},
    {"Battery_Read_ChargingVoltage", "sondrel_battery_charging_volts", "Charging voltage; the EC's word taken as millivolts.", Thousandths},
    {"Battery_Read_PackageVoltage", "sondrel_battery_package_volts", "Voltage of the pack; the EC's word taken as millivolts.", Thousandths},
    {"Battery_Read_CellVoltage", "sondrel_battery_cell_volts", "Voltage of a cell; the EC's word taken as millivolts.", Thousandths, "cell"},
    {"Battery_Read_Current", "sondrel_battery_current_amperes", "Current, negative on discharge; the EC's word taken as milliamperes.", Thousandths},
    {"Battery_Read_Temperature", "sondrel_battery_temperature_celsius", "Temperature of the battery; the EC's word taken as tenths of a kelvin.", Decikelvin},
    {"Battery_Read_CycleCount", "sondrel_battery_cycles_total", "Charge cycles so far.", AsItIs, {}, {}, MetricType::Counter},
    {"Battery_Get_LidStatus", "sondrel_lid_status", "Lid byte of the EC.", AsItIs},

    {"Thermal_Read_Cpu_Temperature", Temperature, TemperatureHelp, AsItIs, "sensor", "cpu"},
    {"Thermal_Read_BoardTS0L_Temperature", Temperature, TemperatureHelp, AsItIs, "sensor", "board_local"},
    {"Thermal_Read_BoardTS0R_Temperature", Temperature, TemperatureHelp, AsItIs, "sensor", "board_remote"},
    {"Thermal_Read_GpuTS1L_Temperature", Temperature, TemperatureHelp, AsItIs, "sensor", "gpu_local"},
    {"Thermal_Read_GpuTS1R_Temperature", Temperature, TemperatureHelp, AsItIs, "sensor", "gpu_remote"},
    {"Thermal_Read_BatteryConnector_Temperature", Temperature, TemperatureHelp, AsItIs, "sensor", "battery_connector"},
    {"Thermal_Read_ACFET_Temperature", Temperature, TemperatureHelp, AsItIs, "sensor", "ac_fet"},
    {"Thermal_Read_ChargerChoke_Temperature", Temperature, TemperatureHelp, AsItIs, "sensor", "charger_choke"},
    {"Thermal_Read_GpuVrm_Temperature", Temperature, TemperatureHelp, AsItIs, "sensor", "gpu_vrm"},
    {"Thermal_Read_UpCpu_Temperature", Temperature, TemperatureHelp, AsItIs, "sensor", "upper_cpu"},
    {"Thermal_Read_GpuVram_Temperature", Temperature, TemperatureHelp, AsItIs, "sensor", "gpu_vram"},
    {"Thermal_Read_Fan", "sondrel_fan_speed_rpm", "Speed of a fan in revolutions per minute.", AsItIs, "fan"},

    {"Thermal_Read_CpuPackagePower", "sondrel_cpu_package_power_raw", "Power of the processor package in the driver's own unit.", AsItIs},
    {"Thermal_Read_CpuDptf_PowerLimit1", "sondrel_cpu_power_limit_raw", "Power limit in the driver's own unit.", AsItIs, "limit", "1"},
    {"Thermal_Read_CpuDptf_PowerLimit2", "sondrel_cpu_power_limit_raw", "Power limit in the driver's own unit.", AsItIs, "limit", "2"},
    {"CPU_ReadCPUUsage", "sondrel_cpu_usage_ratio", "Busy fraction of all processors over one second.", AsItIs},
    {"WMIGetCPUUsg", "sondrel_cpu_load_ratio", "Load of the last processor as WMI tells it.", Percent},
    {"Power_Read_ACDCMode", "sondrel_on_ac_power", "1 on AC power, 0 on battery.", AsItIs},

    {"WMIGetBatteryHealth", "sondrel_battery_health_setting_ratio", "Battery Health as last stored.", Percent},
    {"WMIGetQuietFan", "sondrel_quiet_fan_setting", "Quiet Fan as last stored.", AsItIs},

    {"WMIGetHDDTemp", "sondrel_disk_temperature_celsius", "Temperature of a disk that tells one.", AsItIs, "disk"},
    {"WMIGetHDDSize", "sondrel_disk_size_bytes", "Size of a fixed disk.", AsItIs, "disk"},
    {"WMIGetMemSize", "sondrel_memory_module_size_bytes", "Size of a memory module.", AsItIs, "module"},
    {"WMIGetMonitorBrightness", "sondrel_display_brightness_ratio", "Brightness of the display.", Percent},
    {"WMIGetExternMonitorNum", "sondrel_external_displays", "External displays.", AsItIs},

    {"WMIGetWiFiBytesPersec", "sondrel_wifi_traffic_bytes_per_second", "Traffic of the Wi-Fi adapter.", AsItIs, "direction", "received,sent"},
    {"RF_WiFiIsConnected", "sondrel_wifi_connected", "1 if Wi-Fi is connected.", AsItIs},
    {"RF_WiFiRssi", "sondrel_wifi_signal_dbm", "Signal of the access point.", AsItIs},
    {"RF_WiFiChannel", "sondrel_wifi_channel", "Channel of the connection.", AsItIs},
    {"RF_WiFiMaxRate", "sondrel_wifi_max_rate_bits_per_second", "Highest link rate of the access point.", Megabits},
    {"RF_BTIsUsed", "sondrel_bluetooth_connected", "1 if a Bluetooth device is connected.", AsItIs},
    {"RF_BTConnectedNum", "sondrel_bluetooth_devices", "Connected Bluetooth devices.", AsItIs},

    {"System_Read_TabletMode", "sondrel_tablet_mode", "Tablet mode byte of the EC.", AsItIs},
    {"System_Check_S_Mode", "sondrel_s_mode", "1 if Windows runs in S mode.", AsItIs},
    {"System_Read_VolumeLevel", "sondrel_volume_ratio", "Master volume.", Percent},
};

constexpr Identity Identities[] = {
    {"WMIGetSN", "serial_number"},          {"WMIGetProductName", "product"},
    {"WMIGetComputerFamilyName", "family"}, {"WMIGetModelName", "board"},
    {"WMIGetBoardUUID", "uuid"},            {"WMIGet90Number", "makers_number"},
    {"WMIGetBiosVersion", "bios_version"},  {"WMIGetBiosReleaseDate", "bios_date"},
    {"WMIGetCPUInfo", "cpu"},               {"WMIGetOSInfo", "os"},
    {"GetInfVersion", "driver_package"},    {"GetUWPVersion", "assistant_package"},
};
// clang-format on

} // namespace

std::span<const Metric> AllMetrics() {
    return Metrics;
}

std::span<const Identity> AllIdentities() {
    return Identities;
}

std::string_view PlaceNameOf(std::string_view exportName) {
    const auto* const found = std::ranges::find(Metrics, exportName, &Metric::exportName);
    return found != std::end(Metrics) && !found->label.empty() ? found->label : "place";
}

} // namespace tool
