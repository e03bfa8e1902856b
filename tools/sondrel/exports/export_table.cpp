#include "exports/export_table.h"

#include <algorithm>

namespace tool {
namespace {

using enum Status;

// What single values of the readings mean. A value that is not here is an ordinary one.

constexpr Meaning SessionResult[] = {{"1", Ok, "the session is open"},
                                     {"0", Failed, "the driver's device is missing or refused to open"}};
constexpr Meaning DriverNumber[] = {{"0", Failed, "no session is open, or the driver refused"}};
constexpr Meaning EcOnly[] = {{"2147483647", Failed, "an EC command failed, or no session is open"}};
constexpr Meaning EcReading[] = {{"2147483647", Failed, "an EC command failed, or no session is open"},
                                 {"0", Absent, "no such reading on this machine"}};
constexpr Meaning EcSensor[] = {{"2147483647", Failed, "an EC command failed, or no session is open"},
                                {"0", Absent, "no such reading on this machine, or the sensor is not ready"}};
constexpr Meaning EcCurrent[] = {{"-1", Failed, "an EC command failed, or no session is open"}};
constexpr Meaning EcDate[] = {{"1980-01-01", Absent, "the battery tells no date"}};
constexpr Meaning EcName[] = {{"0x7FFFFFFF", Absent, "the battery tells no name"}};
constexpr Meaning BatteryDevice[] = {{"0", Absent, "no battery, or it does not tell"}};
constexpr Meaning PowerValue[] = {{"0", Absent, "no session is open, or no such value on this processor"}};
constexpr Meaning ProcessorWords[] = {{BufferUntouched, Failed, "no session is open"},
                                      {"00000000 00000000 00000000 00000000", Failed, "the driver refused"}};
constexpr Meaning PowerSource[] = {
    {"0", Ok, "on battery"}, {"1", Ok, "on AC power"}, {"255", Failed, "the system does not know"}};
constexpr Meaning Field[] = {{BufferUntouched, Failed, "the firmware variable cannot be read"}};
constexpr Meaning FieldSet[] = {
    {"0", Ok, "no error on writing; a variable that cannot be read is left alone"},
    {"*", Failed, "the system's error code on writing"}};
constexpr Meaning SetByFirmware[] = {{"1", Ok, "the firmware took it"},
                                     {"0", Failed, "the firmware did not take it"}};
constexpr Meaning PathStored[] = {{"1", Ok, "stored"}, {"0", Failed, "not stored"}};
constexpr Meaning HealthSupport[] = {{"1", Ok, "supported"}, {"0", Ok, "not supported"}};
constexpr Meaning QuietFanSupport[] = {
    {"0", Ok, "supported, off"}, {"1", Ok, "supported, on"}, {"-1", Absent, "not supported"}};
constexpr Meaning QuietFanSetting[] = {{"0", Ok, "off, or nothing stored"}};
constexpr Meaning DiskTemperature[] = {{"", Absent, "no disk tells a temperature, or WMI failed"}};
constexpr Meaning WmiText[] = {{"", Failed, "the WMI read failed, or found nothing"}};
constexpr Meaning WmiDisks[] = {{"", Absent, "no such disk, or the WMI read failed"}};
constexpr Meaning WmiNumber[] = {{"-1", Failed, "the WMI read failed"}};
constexpr Meaning WmiBrightness[] = {{"-1", Failed, "the WMI read failed: no panel tells its brightness"}};
constexpr Meaning Chassis[] = {{"unknown", Failed, "the WMI read failed, or the kind has no word"}};
constexpr Meaning WiFiCards[] = {{"", Absent, "no Wi-Fi adapter"},
                                 {BufferUntouched, Absent, "no network adapters"}};
constexpr Meaning RadioNumber[] = {{"2147483647", Failed, "the radio could not be read"},
                                   {"-1000", NotRead, "no adapter, or no connection"}};
constexpr Meaning RadioText[] = {{"error_string", Failed, "the radio could not be read"},
                                 {"init_string", NotRead, "no adapter, or no connection"}};
constexpr Meaning WiFiState[] = {{"0", Ok, "not connected"},
                                 {"1", Ok, "connected"},
                                 {"2147483647", Failed, "the radio could not be read"},
                                 {"-1000", NotRead, "no Wi-Fi adapter"}};
constexpr Meaning BluetoothState[] = {{"0", Ok, "nothing connected"},
                                      {"1", Ok, "a device is connected"},
                                      {"2147483647", Failed, "the radio could not be read"},
                                      {"-1000", NotRead, "no Bluetooth radio"}};
constexpr Meaning SMode[] = {{"0", Ok, "not in S mode"}, {"1", Ok, "in S mode"}};
constexpr Meaning Country[] = {{"", Failed, "the user has no country set"}};
constexpr Meaning Volume[] = {{"-1", Failed, "no audio device, or it does not tell"}};
constexpr Meaning NamesOfApps[] = {{"", Absent, "no such applications, or the registry key is missing"}};
constexpr Meaning DriverInf[] = {{"", Absent, "the driver package is not installed"}};
constexpr Meaning AssistantPackage[] = {{BufferUntouched, Absent, "the assistant package is not installed"},
                                        {"", Absent, "the assistant package is not installed"}};
constexpr std::span<const Meaning> Always{};

constexpr Traits Ec{.session = true};
constexpr Traits Celsius{.unit = "°C", .session = true, .moves = true};
constexpr Traits RawEc{.unit = "raw", .session = true, .moves = true};
constexpr Traits RawPower{.unit = "raw", .session = true};
constexpr Traits Fraction{.unit = "fraction", .display = Display::Fraction};
constexpr Traits List{.display = Display::List};
constexpr Traits Bytes{.unit = "bytes", .display = Display::List};
constexpr Traits Document{.display = Display::Document};
constexpr Traits MovingDocument{.display = Display::Document, .moves = true};
constexpr Traits Setter{.report = InReport::Left};

// One row, two lines: how it is called and judged, then what it tells.
// clang-format off
constexpr auto Rows = std::to_array<Export>({
    // session and versions
    {"InitializeSondrel", Family::Session, &shape::Signed, SessionResult,
     "Opens the driver session, or adds one reference to it", {.report = InReport::Session}},
    {"ShutdownSondrel", Family::Session, &shape::Nothing, Always,
     "Drops one reference to the driver session", {.report = InReport::Left}},
    {"GetDriverVersion", Family::Session, &shape::Unsigned, DriverNumber,
     "Version word of the I/O driver", {.session = true, .display = Display::Hexadecimal}},
    {"GetRefCount", Family::Session, &shape::Unsigned, DriverNumber,
     "The I/O driver's own reference count", {.session = true, .moves = true}},
    {"GetIoDllVersion", Family::Session, &shape::Unsigned, Always,
     "Version of the I/O interface", {.display = Display::Hexadecimal}},

    // embedded controller: identity
    {"EC_ReadEcFwRev", Family::Identity, &shape::Unsigned, EcOnly,
     "Firmware revision code of the EC: two letters", {.session = true, .display = Display::Letters}},
    {"EC_ReadEcChipId", Family::Identity, &shape::Unsigned, EcOnly,
     "Chip id of the EC: the variant within its revision code", Ec},
    {"EC_ReadEcChipName", Family::Identity, &shape::Unsigned, EcOnly,
     "Chip name of the EC: four characters", {.session = true, .display = Display::Letters}},

    // battery
    {"Battery_Read_DesignedCapacity", Family::Battery, &shape::Unsigned, BatteryDevice,
     "Capacity the battery was made for", {.unit = "mWh"}},
    {"Battery_Read_FullChargedCapcity", Family::Battery, &shape::Unsigned, BatteryDevice,
     "Capacity of the full battery as it is now", {.unit = "mWh"}},
    {"Battery_Read_Capacity", Family::Battery, &shape::Unsigned, BatteryDevice,
     "Charge that is left", {.unit = "mWh", .moves = true}},
    {"Battery_Read_DesignVoltage", Family::Battery, &shape::Unsigned, BatteryDevice,
     "Present voltage, as the system's battery device tells it", {.unit = "mV", .moves = true}},
    {"Battery_Read_ASOC", Family::Battery, &shape::Float, BatteryDevice,
     "Full capacity as a fraction of the capacity it was made for", Fraction},
    {"Battery_Read_CapacityPercentage", Family::Battery, &shape::Unsigned, Always,
     "Charge that is left, rounded to tens; 0 also without a battery", {.unit = "%", .moves = true}},
    {"Battery_Read_CycleCount", Family::Battery, &shape::Unsigned, EcOnly,
     "Charge cycles so far; 0 also on a machine that does not count", {.unit = "cycles", .session = true, .moves = true}},
    {"Battery_Get_LidStatus", Family::Battery, &shape::Unsigned, EcOnly,
     "Lid byte of the EC; 0 also on a machine without it", Ec},
    {"Battery_Read_ChargingVoltage", Family::Battery, &shape::Unsigned, EcReading,
     "Charging voltage, as the EC gives it", RawEc},
    {"Battery_Read_PackageVoltage", Family::Battery, &shape::Unsigned, EcReading,
     "Voltage of the battery pack, as the EC gives it", RawEc},
    {"Battery_Read_Temperature", Family::Battery, &shape::Unsigned, EcReading,
     "Temperature of the battery, as the EC gives it", RawEc},
    {"Battery_Read_Current", Family::Battery, &shape::Signed, EcCurrent,
     "Current, negative on discharge; -1 also for a failure, 0 also without it", RawEc},
    {"Battery_Read_CellVoltage", Family::Battery, &shape::NarrowText, EcReading,
     "Voltages of cells 0 to 3, as the EC gives them",
     {.unit = "raw", .size = 44, .session = true, .display = Display::List, .moves = true}},
    {"Battery_Read_ManufactureDate", Family::Battery, &shape::NarrowText, EcDate,
     "Date on which the battery was made", {.size = 11, .session = true}},
    {"Battery_Read_ManufactureName", Family::Battery, &shape::NarrowText, EcName,
     "Maker of the battery", {.size = 11, .session = true}},

    // temperatures and fans
    {"Thermal_Read_Cpu_Temperature", Family::Thermal, &shape::Unsigned, EcReading,
     "Processor", Celsius},
    {"Thermal_Read_BoardTS0L_Temperature", Family::Thermal, &shape::Unsigned, EcReading,
     "Board, sensor TS0 local", Celsius},
    {"Thermal_Read_BoardTS0R_Temperature", Family::Thermal, &shape::Unsigned, EcReading,
     "Board, sensor TS0 remote", Celsius},
    {"Thermal_Read_GpuTS1L_Temperature", Family::Thermal, &shape::Unsigned, EcReading,
     "Graphics, sensor TS1 local", Celsius},
    {"Thermal_Read_GpuTS1R_Temperature", Family::Thermal, &shape::Unsigned, EcReading,
     "Graphics, sensor TS1 remote", Celsius},
    {"Thermal_Read_BatteryConnector_Temperature", Family::Thermal, &shape::Unsigned, EcSensor,
     "Battery connector", Celsius},
    {"Thermal_Read_ACFET_Temperature", Family::Thermal, &shape::Unsigned, EcSensor,
     "Transistor of the AC input", Celsius},
    {"Thermal_Read_ChargerChoke_Temperature", Family::Thermal, &shape::Unsigned, EcSensor,
     "Choke of the charger", Celsius},
    {"Thermal_Read_GpuVrm_Temperature", Family::Thermal, &shape::Unsigned, EcSensor,
     "Voltage regulator of the graphics", Celsius},
    {"Thermal_Read_UpCpu_Temperature", Family::Thermal, &shape::Unsigned, EcSensor,
     "Above the processor", Celsius},
    {"Thermal_Read_GpuVram_Temperature", Family::Thermal, &shape::Unsigned, EcSensor,
     "Memory of the graphics", Celsius},
    {"Thermal_Read_Fan", Family::Thermal, &shape::NarrowText, EcOnly,
     "Speeds of fans 0 to 3; 0 also for a fan the machine does not have",
     {.unit = "rpm", .size = 44, .session = true, .display = Display::List, .moves = true}},

    // processor and power
    {"Thermal_Read_CpuPackagePower", Family::Processor, &shape::Unsigned, PowerValue,
     "Power of the processor package, as the driver gives it", {.unit = "raw", .session = true, .moves = true}},
    {"Thermal_Read_CpuDptf_PowerLimit1", Family::Processor, &shape::Unsigned, PowerValue,
     "Power limit 1, as the driver gives it", RawPower},
    {"Thermal_Read_CpuDptf_PowerLimit2", Family::Processor, &shape::Unsigned, PowerValue,
     "Power limit 2, as the driver gives it", RawPower},
    {"CPU_ReadCPUUsage", Family::Processor, &shape::Double, Always,
     "Busy fraction of the whole machine; measures for one second", {.unit = "fraction", .display = Display::Fraction, .moves = true}},
    {"CPU_ReadCpuId", Family::Processor, &shape::ProcessorLeaf, ProcessorWords,
     "CPUID leaf: EAX EBX ECX EDX", {.session = true, .sample = "0"}},
    {"Power_Read_ACDCMode", Family::Processor, &shape::Unsigned, PowerSource,
     "Battery or AC power", {}},

    // firmware: event log and sensors
    {"GetEEPROM_Data", Family::EventLog, &shape::WideText, Always,
     "Version, registers and event log of the firmware's store", Document},
    {"GetSENSOR_WMI_Data", Family::EventLog, &shape::WideText, Always,
     "Status of the proximity sensor", Document},

    // firmware: variables
    {"GPNV_Get_ActivatedTime", Family::Variables, &shape::ReadBytes, Field,
     "When the machine was activated", {.size = 19}},
    {"GPNV_Get_ManufacturedTime", Family::Variables, &shape::ReadBytes, Field,
     "When the machine was made", {.size = 23}},
    {"GPNV_Get_RandomUUID", Family::Variables, &shape::ReadBytes, Field,
     "Random UUID of the machine", {.size = 16}},
    {"GPNV_Set_ActivatedTime", Family::Variables, &shape::WriteBytes, FieldSet,
     "Stores when the machine was activated: 19 bytes", {.size = 19, .report = InReport::Left}},
    {"GPNV_Set_ManufacturedTime", Family::Variables, &shape::WriteBytes, FieldSet,
     "Stores when the machine was made: 23 bytes", {.size = 23, .report = InReport::Left}},
    {"GPNV_Set_RandomUUID", Family::Variables, &shape::WriteBytes, FieldSet,
     "Stores the random UUID of the machine: 16 bytes", {.size = 16, .report = InReport::Left}},

    // firmware: Battery Health and Quiet Fan
    {"WMICheckBatteryHealthSupport", Family::Features, &shape::SignedCom, HealthSupport,
     "Whether the firmware has Battery Health", {}},
    {"WMICheckQuietFanSupport", Family::Features, &shape::SignedCom, QuietFanSupport,
     "Whether the firmware has Quiet Fan, and its state", {}},
    {"WMIGetBatteryHealth", Family::Features, &shape::SignedCom, Always,
     "Battery Health as last stored; 100 where nothing is", {.unit = "%"}},
    {"WMIGetQuietFan", Family::Features, &shape::SignedCom, QuietFanSetting,
     "Quiet Fan as last stored: 1, 2, 3", {}},
    {"WMISetBatteryHealth", Family::Features, &shape::SetNumberCom, SetByFirmware,
     "Sets Battery Health and remembers it", Setter},
    {"WMISetQuietFan", Family::Features, &shape::SetByteCom, SetByFirmware,
     "Sets Quiet Fan (0 off, 1 to 3 on) and remembers it", Setter},
    {"WMISetAppPath", Family::Features, &shape::SetPathCom, PathStored,
     "Stores the directory in which the settings of this user are kept", Setter},

    // disks
    {"WMIGetHDDTemp", Family::Disks, &shape::WideTextCom, DiskTemperature,
     "Temperature of each disk that tells one", {.unit = "°C", .display = Display::List, .moves = true}},

    // inventory
    {"WMIGet90Number", Family::Inventory, &shape::WideTextCom, WmiText,
     "The maker's number of the machine: its fifth OEM string", {}},
    {"WMIGetBiosManufacture", Family::Inventory, &shape::WideTextCom, WmiText,
     "Maker of the base board", List},
    {"WMIGetBiosReleaseDate", Family::Inventory, &shape::WideTextCom, WmiText,
     "Date of the BIOS: year, month, day", {}},
    {"WMIGetBiosVersion", Family::Inventory, &shape::WideTextCom, WmiText,
     "Version of the BIOS", List},
    {"WMIGetBoardUUID", Family::Inventory, &shape::WideTextCom, WmiText,
     "UUID of the machine", List},
    {"WMIGetCPUInfo", Family::Inventory, &shape::WideTextCom, WmiText,
     "Name of each processor", List},
    {"WMIGetCPUUsg", Family::Inventory, &shape::SignedCom, WmiNumber,
     "Load of the last processor", {.unit = "%", .moves = true}},
    {"WMIGetComputerFamilyName", Family::Inventory, &shape::WideTextCom, WmiText,
     "Family of the machine", List},
    {"WMIGetExternMonitorNum", Family::Inventory, &shape::SignedCom, WmiNumber,
     "External displays", {}},
    {"WMIGetGPUInfo", Family::Inventory, &shape::WideTextCom, WmiText,
     "Name of each graphics adapter", List},
    {"WMIGetHDDCaption", Family::Inventory, &shape::WideTextCom, WmiText,
     "Name of each fixed disk", List},
    {"WMIGetHDDInfo", Family::Inventory, &shape::WideTextCom, WmiText,
     "Model, size in bytes and media type (3 hard disk, 4 SSD) of each disk", List},
    {"WMIGetHDDModel", Family::Inventory, &shape::WideTextCom, WmiDisks,
     "Model of each hard disk", List},
    {"WMIGetHDDSize", Family::Inventory, &shape::WideTextCom, WmiText,
     "Size of each fixed disk", Bytes},
    {"WMIGetLCDModel", Family::Inventory, &shape::WideTextCom, WmiText,
     "Name of each monitor", List},
    {"WMIGetMacAddress", Family::Inventory, &shape::WideTextCom, WmiText,
     "Address of each physical network adapter", List},
    {"WMIGetMemManufacture", Family::Inventory, &shape::WideTextCom, WmiText,
     "Maker of each memory module", List},
    {"WMIGetMemModel", Family::Inventory, &shape::WideTextCom, WmiText,
     "Part number of each memory module", List},
    {"WMIGetMemSize", Family::Inventory, &shape::WideTextCom, WmiText,
     "Size of each memory module", Bytes},
    {"WMIGetModelName", Family::Inventory, &shape::WideTextCom, WmiText,
     "Product name of the base board", List},
    {"WMIGetMonitorBrightness", Family::Inventory, &shape::SignedCom, WmiBrightness,
     "Brightness of the display", {.unit = "%"}},
    {"WMIGetOSCountryCode", Family::Inventory, &shape::WideTextCom, WmiText,
     "Country code of the operating system", List},
    {"WMIGetProductName", Family::Inventory, &shape::WideTextCom, WmiText,
     "Model of the machine", List},
    {"WMIGetSN", Family::Inventory, &shape::WideTextCom, WmiText,
     "Serial number of the machine", List},
    {"WMIGetSSDModel", Family::Inventory, &shape::WideTextCom, WmiDisks,
     "Model of each SSD", List},
    {"WMIGetSystemChassisTypes", Family::Inventory, &shape::WideTextCom, Chassis,
     "Kind of machine: Desktop, Notebook or All in One", {}},
    {"wmiadd", Family::Inventory, &shape::AddOne, Always,
     "The given number plus one: tells that the library answers", {.sample = "1"}},
    {"WMIGetOSInfo", Family::Inventory, &shape::WideTextCom, WmiText,
     "Name, architecture and version of the operating system", {}},

    // network adapters
    {"WMIGetWiFiCardName", Family::Adapters, &shape::WideTextCom, WiFiCards,
     "Name of each Wi-Fi adapter", List},
    {"WMIGetWiFiBytesPersec", Family::Adapters, &shape::WideTextCom, WmiText,
     "Traffic of the Wi-Fi adapter: received, sent", {.unit = "bytes/s", .display = Display::List, .moves = true}},

    // Wi-Fi
    {"RF_WiFiIsConnected", Family::WiFi, &shape::Signed, WiFiState,
     "Whether Wi-Fi is connected", {}},
    {"RF_WiFiCardName", Family::WiFi, &shape::WideText, RadioText,
     "Name of the Wi-Fi adapter", {}},
    {"RF_WiFiRssi", Family::WiFi, &shape::Signed, RadioNumber,
     "Signal of the access point", {.unit = "dBm", .moves = true}},
    {"RF_WiFiChannel", Family::WiFi, &shape::Signed, RadioNumber,
     "Channel", {}},
    {"RF_PhyMode", Family::WiFi, &shape::StringObject, RadioText,
     "Radio standard of the connection", {}},
    {"RF_AP_MAC", Family::WiFi, &shape::NarrowText, RadioText,
     "First three octets of the access point's address", {.size = 13}},
    {"RF_WiFiMaxRate", Family::WiFi, &shape::Signed, RadioNumber,
     "Highest link rate of the access point", {.unit = "Mbit/s"}},

    // Bluetooth
    {"RF_BTIsUsed", Family::Bluetooth, &shape::Signed, BluetoothState,
     "Whether a Bluetooth device is connected", {}},
    {"RF_BTConnectedNum", Family::Bluetooth, &shape::Signed, RadioNumber,
     "Connected Bluetooth devices", {}},
    {"RF_BTConnectedType", Family::Bluetooth, &shape::StringObject, RadioText,
     "Kind of each connected Bluetooth device", List},

    // system
    {"System_Read_TabletMode", Family::System, &shape::Unsigned, EcOnly,
     "Tablet mode byte of the EC", Ec},
    {"System_Check_S_Mode", Family::System, &shape::Signed, SMode,
     "Whether Windows runs in S mode", {}},
    {"System_GetCountryCode_ISO2", Family::System, &shape::WideText, Country,
     "The user's country, two letters", {}},
    {"System_Read_LocalTime", Family::System, &shape::NarrowText, Always,
     "Local date and time", {.size = 20, .moves = true}},
    {"System_Read_VolumeLevel", Family::System, &shape::SignedCom, Volume,
     "Master volume, muted or not", {.unit = "%"}},

    // installed applications
    {"GetApplist_x64", Family::Applications, &shape::WideText, Always,
     "Installed 64-bit applications with versions", Document},
    {"GetApplist_x86", Family::Applications, &shape::WideText, Always,
     "Installed 32-bit applications with versions", Document},
    {"GetApplist_UWP", Family::Applications, &shape::WideText, Always,
     "Installed packages with their display names", Document},
    {"App_Get_UWPApp", Family::Applications, &shape::WideText, NamesOfApps,
     "Names of installed packages", List},
    {"App_Get_Win32App", Family::Applications, &shape::WideText, NamesOfApps,
     "Names of installed 64-bit applications", List},
    {"App_Get_Win32WOW6432App", Family::Applications, &shape::WideText, NamesOfApps,
     "Names of installed 32-bit applications", List},

    // versions of the maker's software
    {"GetInfVersion", Family::Versions, &shape::WideText, DriverInf,
     "Version of the maker's driver package", {}},
    {"GetUWPVersion", Family::Versions, &shape::WideText, AssistantPackage,
     "Version of the maker's assistant package", {}},

    // usage
    {"AppList_OpenWindows", Family::Usage, &shape::WideText, Always,
     "Up to five uppermost windows; measures for one second each", MovingDocument},
    {"AppList_CpuUsage", Family::Usage, &shape::WideText, WmiText,
     "The five busiest processes", MovingDocument},
    {"AppList_MemUsage", Family::Usage, &shape::WideText, WmiText,
     "The ten largest processes", MovingDocument},
    {"AppList_HardwareConfig", Family::Usage, &shape::WideText, Always,
     "Brightness and volume", Document},
});
// clang-format on
static_assert(Rows.size() == ExportCount);

constexpr auto Titles = std::to_array<std::string_view>({
    "Session and versions",
    "Embedded controller: identity",
    "Battery",
    "Temperatures and fans",
    "Processor and power",
    "Firmware: event log and sensors",
    "Firmware: variables",
    "Firmware: Battery Health and Quiet Fan",
    "Disks",
    "Inventory",
    "Network adapters",
    "Wi-Fi",
    "Bluetooth",
    "System",
    "Installed applications",
    "Versions of the maker's software",
    "Usage",
});
static_assert(Titles.size() == static_cast<std::size_t>(Family::Count));

constexpr auto StatusTexts =
    std::to_array<std::string_view>({"ok", "partly failed", "failed", "absent", "not read yet", "untouched",
                                     "faulty", "not exported", "not run"});
static_assert(StatusTexts.size() == static_cast<std::size_t>(NotRun) + 1);

} // namespace

std::string_view TitleOf(Family family) {
    return Titles[static_cast<std::size_t>(family)];
}

std::string_view TextOf(Status status) {
    return StatusTexts[static_cast<std::size_t>(status)];
}

std::span<const Export> AllExports() {
    return Rows;
}

const Export* FindExport(std::string_view name) {
    const auto rows = AllExports();
    const auto row = std::ranges::find(rows, name, &Export::name);
    return row != rows.end() ? &*row : nullptr;
}

} // namespace tool
