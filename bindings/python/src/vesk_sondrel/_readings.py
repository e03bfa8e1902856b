"""The readings by group. Generated from exports/exports.json by scripts/generate_bindings."""

import enum
from typing import TYPE_CHECKING, Any, Generic, NamedTuple, Optional, Tuple, Type

from ._description import State
from ._reading import (
    Answer,
    Bytes,
    Choice,
    DocumentText,
    Flag,
    Fraction,
    Group,
    Letters,
    M,
    Match,
    Number,
    NumberList,
    NumberOf,
    Reading,
    RecordList,
    RegistersOf,
    Setter,
    Text,
    TextList,
    checked,
    exactly,
    terminated,
)

if TYPE_CHECKING:
    from ._library import Caller

__all__ = [
    "AdaptersReadings",
    "ApplicationsReadings",
    "BatteryEcReadings",
    "BatteryReadings",
    "BluetoothReadings",
    "Disk",
    "FeaturesReadings",
    "FirmwareLogReadings",
    "FirmwareVariablesReadings",
    "IdentityReadings",
    "InventoryReadings",
    "PowerSource",
    "ProcessorReadings",
    "QuietFanSupport",
    "SessionReadings",
    "SystemReadings",
    "ThermalReadings",
    "UsageReadings",
    "VersionsReadings",
    "WifiReadings",
]

_SESSION_INITIALIZE = (
    Answer(Match.NUMBER, 1, (State.OK,), "the session is open"),
    Answer(Match.NUMBER, 0, (State.FAILED,), "the driver's device is missing or refused to open"),
)
_SESSION_DRIVER_VERSION = (
    Answer(Match.NUMBER, 0, (State.FAILED, State.NO_SESSION), "no session is open, or the driver refused"),
)
_IDENTITY_FIRMWARE_REVISION = (
    Answer(Match.NUMBER, 2147483647, (State.FAILED, State.NO_SESSION), "an EC command failed, or no session is open"),
)
_BATTERY_DESIGNED_CAPACITY = (
    Answer(Match.NUMBER, 0, (State.ABSENT, State.FAILED), "no battery, or the device does not give this value"),
)
_BATTERY_CHARGE = (
    Answer(Match.NUMBER, 0, (State.OK, State.ABSENT, State.FAILED), "empty, or no battery"),
)
_BATTERY_EC_CYCLE_COUNT = (
    Answer(Match.NUMBER, 2147483647, (State.FAILED, State.NO_SESSION), "an EC command failed, or no session is open"),
    Answer(Match.NUMBER, 0, (State.OK, State.ABSENT, State.FAILED, State.NO_SESSION), "no cycles, or this machine does not count them"),
)
_BATTERY_EC_LID_STATUS = (
    Answer(Match.NUMBER, 2147483647, (State.FAILED, State.NO_SESSION), "an EC command failed, or no session is open"),
    Answer(Match.NUMBER, 0, (State.OK, State.ABSENT, State.NO_SESSION), "the byte is 0, or no such reading on this machine"),
)
_BATTERY_EC_CHARGING_VOLTAGE = (
    Answer(Match.NUMBER, 2147483647, (State.FAILED, State.NO_SESSION), "an EC command failed, or no session is open"),
    Answer(Match.NUMBER, 0, (State.ABSENT, State.NO_SESSION, State.OK), "no such reading on this machine, or the EC cannot be identified"),
)
_BATTERY_EC_CURRENT = (
    Answer(Match.NUMBER, -1, (State.FAILED, State.NO_SESSION, State.OK), "an EC command failed, or no session is open"),
    Answer(Match.NUMBER, 0, (State.OK, State.ABSENT, State.NO_SESSION), "no current, or no such reading on this machine"),
)
_BATTERY_EC_CELL_VOLTAGES = (
    Answer(Match.ELEMENT, 2147483647, (State.FAILED, State.NO_SESSION), "an EC command failed, or no session is open"),
    Answer(Match.ELEMENT, 0, (State.ABSENT, State.NO_SESSION, State.OK), "no such cell on this machine, or the EC cannot be identified"),
)
_BATTERY_EC_MANUFACTURE_DATE = (
    Answer(Match.STRING, "1980-01-01", (State.ABSENT, State.FAILED, State.NO_SESSION), "the battery gives no date, or an EC command failed"),
)
_BATTERY_EC_MANUFACTURE_NAME = (
    Answer(Match.STRING, "0x7FFFFFFF", (State.ABSENT, State.FAILED, State.NO_SESSION), "the battery gives no name, or an EC command failed"),
)
_THERMAL_BATTERY_CONNECTOR_TEMPERATURE = (
    Answer(Match.NUMBER, 2147483647, (State.FAILED, State.NO_SESSION), "an EC command failed, or no session is open"),
    Answer(Match.NUMBER, 0, (State.ABSENT, State.NOT_READY, State.NO_SESSION, State.OK), "no such reading on this machine, or the sensor is not ready"),
)
_THERMAL_FAN_SPEEDS = (
    Answer(Match.ELEMENT, 2147483647, (State.FAILED, State.NO_SESSION), "an EC command failed, or no session is open"),
    Answer(Match.ELEMENT, 0, (State.OK, State.ABSENT, State.NO_SESSION), "the fan does not turn, or this machine does not have it"),
)
_PROCESSOR_USAGE = (
    Answer(Match.NUMBER, 0, (State.OK, State.FAILED), "idle, or a sample failed"),
)
_PROCESSOR_CPUID = (
    Answer(Match.UNTOUCHED, 0, (State.NO_SESSION,), "no session is open"),
    Answer(Match.ZEROS, 0, (State.FAILED, State.OK), "the driver refused"),
)
_PROCESSOR_PACKAGE_POWER = (
    Answer(Match.NUMBER, 0, (State.ABSENT, State.FAILED, State.NO_SESSION), "no session is open, or the processor has no such value"),
)
_PROCESSOR_POWER_SOURCE = (
    Answer(Match.NUMBER, 0, (State.OK,), "on battery"),
    Answer(Match.NUMBER, 1, (State.OK,), "on AC power"),
    Answer(Match.NUMBER, 255, (State.FAILED, State.ABSENT), "the system does not know"),
)
_FIRMWARE_LOG_EVENT_STORE = (
    Answer(Match.STRING, "{\"version\":\"\",\"register_count\":\"\",\"register\":[\"\"],\"event\":[]}", (State.FAILED, State.ABSENT), "the firmware's device does not answer"),
)
_FIRMWARE_LOG_PROXIMITY_SENSOR = (
    Answer(Match.STRING, "{\"p_sensor\":\"\"}", (State.FAILED, State.ABSENT), "the sensor could not be read"),
)
_FIRMWARE_VARIABLES_RANDOM_UUID = (
    Answer(Match.UNTOUCHED, 0, (State.FAILED,), "the firmware variable cannot be read"),
    Answer(Match.ERROR_CODE, 0, (State.FAILED,), "the system's error code of the failed read"),
)
_FIRMWARE_VARIABLES_ACTIVATED_TIME = (
    Answer(Match.UNTOUCHED, 0, (State.FAILED,), "the firmware variable cannot be read"),
)
_FIRMWARE_VARIABLES_SET_RANDOM_UUID = (
    Answer(Match.NUMBER, 0, (State.OK, State.FAILED), "written, or the variable could not be read and was left as it is"),
    Answer(Match.NUMBER, 13, (State.FAILED,), "the variable ends before the field; or the system's code of the failed write"),
    Answer(Match.OTHER, 0, (State.FAILED,), "the system's error code of the failed write"),
)
_FEATURES_BATTERY_HEALTH_SUPPORT = (
    Answer(Match.NUMBER, 1, (State.OK,), "supported"),
    Answer(Match.NUMBER, 0, (State.OK, State.FAILED), "not supported, or the firmware did not answer"),
)
_FEATURES_QUIET_FAN_SUPPORT = (
    Answer(Match.NUMBER, 0, (State.OK,), "supported, off"),
    Answer(Match.NUMBER, 1, (State.OK,), "supported, on"),
    Answer(Match.NUMBER, -1, (State.ABSENT, State.FAILED), "not supported, or the firmware did not answer"),
)
_FEATURES_BATTERY_HEALTH = (
    Answer(Match.NUMBER, 100, (State.OK, State.ABSENT, State.FAILED), "also the default where nothing is stored"),
)
_FEATURES_QUIET_FAN = (
    Answer(Match.NUMBER, 0, (State.OK, State.ABSENT, State.FAILED), "off, or nothing is stored"),
)
_FEATURES_SET_BATTERY_HEALTH = (
    Answer(Match.NUMBER, 1, (State.OK,), "the firmware accepted the value"),
    Answer(Match.NUMBER, 0, (State.FAILED, State.ABSENT), "the firmware did not accept the value, or does not have the feature"),
)
_FEATURES_SET_APP_PATH = (
    Answer(Match.NUMBER, 1, (State.OK,), "stored"),
    Answer(Match.NUMBER, 0, (State.FAILED,), "not stored"),
)
_INVENTORY_MAKERS_NUMBER = (
    Answer(Match.STRING, "", (State.FAILED, State.ABSENT), "the WMI query failed or found nothing"),
)
_INVENTORY_CPU_LOAD = (
    Answer(Match.NUMBER, -1, (State.FAILED, State.ABSENT), "the WMI query failed or found nothing"),
)
_INVENTORY_EXTERNAL_DISPLAYS = (
    Answer(Match.NUMBER, -1, (State.FAILED,), "the WMI query failed"),
    Answer(Match.NUMBER, 0, (State.OK, State.FAILED), "none, or WMI gave no row"),
)
_INVENTORY_HARD_DISK_MODELS = (
    Answer(Match.STRING, "", (State.ABSENT, State.FAILED), "no such disk, or the WMI query failed"),
)
_INVENTORY_DISK_TEMPERATURES = (
    Answer(Match.STRING, "", (State.ABSENT, State.FAILED), "no disk reports a temperature, or the WMI query failed"),
)
_INVENTORY_BRIGHTNESS = (
    Answer(Match.NUMBER, -1, (State.FAILED, State.ABSENT), "the WMI query failed, or no display reports its brightness"),
)
_INVENTORY_CHASSIS = (
    Answer(Match.STRING, "unknown", (State.FAILED, State.ABSENT), "the WMI query failed, or the kind has no name"),
)
_ADAPTERS_WIFI_CARDS = (
    Answer(Match.STRING, "", (State.ABSENT, State.FAILED), "no Wi-Fi adapter, or the WMI query failed"),
    Answer(Match.UNTOUCHED, 0, (State.ABSENT, State.FAILED), "the system lists no network adapters"),
)
_ADAPTERS_WIFI_TRAFFIC = (
    Answer(Match.STRING, "", (State.FAILED, State.ABSENT), "the WMI query failed or found nothing"),
    Answer(Match.STRING, "0;0", (State.OK, State.ABSENT), "no traffic, or no counter of this adapter"),
)
_WIFI_CONNECTED = (
    Answer(Match.NUMBER, 0, (State.OK,), "not connected"),
    Answer(Match.NUMBER, 1, (State.OK,), "connected"),
    Answer(Match.NUMBER, 2147483647, (State.FAILED,), "the radio could not be read"),
    Answer(Match.NUMBER, -1000, (State.NOT_READ,), "no Wi-Fi adapter"),
)
_WIFI_CARD_NAME = (
    Answer(Match.STRING, "error_string", (State.FAILED,), "the radio could not be read"),
    Answer(Match.STRING, "init_string", (State.NOT_READ,), "no adapter, or no connection"),
)
_WIFI_SIGNAL = (
    Answer(Match.NUMBER, 2147483647, (State.FAILED,), "the radio could not be read"),
    Answer(Match.NUMBER, -1000, (State.NOT_READ,), "no adapter, or no connection"),
)
_BLUETOOTH_CONNECTED = (
    Answer(Match.NUMBER, 0, (State.OK,), "no device is connected"),
    Answer(Match.NUMBER, 1, (State.OK,), "a device is connected"),
    Answer(Match.NUMBER, 2147483647, (State.FAILED,), "the radio could not be read"),
    Answer(Match.NUMBER, -1000, (State.NOT_READ,), "no Bluetooth radio"),
)
_SYSTEM_S_MODE = (
    Answer(Match.NUMBER, 0, (State.OK, State.FAILED), "not in S mode, or the system did not answer"),
    Answer(Match.NUMBER, 1, (State.OK,), "in S mode"),
)
_SYSTEM_COUNTRY = (
    Answer(Match.STRING, "", (State.FAILED, State.ABSENT), "the user has no country set"),
)
_SYSTEM_LOCAL_TIME = (
    Answer(Match.STRING, "", (State.FAILED,), "the time cannot be converted to local time"),
)
_SYSTEM_VOLUME = (
    Answer(Match.NUMBER, -1, (State.FAILED, State.ABSENT), "no audio device, or it does not report its volume"),
)
_APPLICATIONS_APPLICATIONS_64 = (
    Answer(Match.STRING, "[{\"machine\":[]},{\"user\":[]}]", (State.OK, State.FAILED), "no such applications, or the registry keys cannot be read"),
)
_APPLICATIONS_PACKAGES = (
    Answer(Match.STRING, "[]", (State.OK, State.FAILED), "no packages, or the package store cannot be read"),
)
_APPLICATIONS_PACKAGE_NAMES = (
    Answer(Match.STRING, "", (State.ABSENT, State.FAILED), "no such applications, or the registry key cannot be read"),
)
_VERSIONS_DRIVER_PACKAGE = (
    Answer(Match.STRING, "", (State.ABSENT, State.FAILED), "the driver package is not installed, or its version cannot be read"),
)
_VERSIONS_ASSISTANT_PACKAGE = (
    Answer(Match.UNTOUCHED, 0, (State.ABSENT, State.FAILED), "the assistant package is not installed"),
)
_USAGE_OPEN_WINDOWS = (
    Answer(Match.STRING, "[]", (State.OK, State.FAILED), "no window counts, or the windows cannot be listed"),
)
_USAGE_BUSIEST_PROCESSES = (
    Answer(Match.STRING, "", (State.FAILED,), "the WMI query failed"),
    Answer(Match.STRING, "[]", (State.OK,), "no process uses any"),
)
_USAGE_SETTINGS = (
    Answer(Match.STRING, "{\"brightness\":\"\",\"volume\":\"\"}", (State.FAILED, State.ABSENT), "neither value could be read"),
)

OPENING = Number("InitializeSondrel", "Opens the driver session, or adds one reference to it", answers=_SESSION_INITIALIZE, locks=("session", "driver_device",))
_SET_RANDOM_UUID_SETTER = Setter("GPNV_Set_RandomUUID", "Stores the random UUID of the machine: 16 bytes", answers=_FIRMWARE_VARIABLES_SET_RANDOM_UUID, locks=("firmware_variables",))
_SET_ACTIVATED_TIME_SETTER = Setter("GPNV_Set_ActivatedTime", "Stores when the machine was activated: 19 bytes", answers=_FIRMWARE_VARIABLES_SET_RANDOM_UUID, locks=("firmware_variables",))
_SET_MANUFACTURED_TIME_SETTER = Setter("GPNV_Set_ManufacturedTime", "Stores when the machine was manufactured: 23 bytes", answers=_FIRMWARE_VARIABLES_SET_RANDOM_UUID, locks=("firmware_variables",))
_SET_BATTERY_HEALTH_SETTER = Setter("WMISetBatteryHealth", "Sets Battery Health and stores the value", answers=_FEATURES_SET_BATTERY_HEALTH, com=True, locks=("app_path", "battery_health_setting",))
_SET_QUIET_FAN_SETTER = Setter("WMISetQuietFan", "Sets Quiet Fan (0 off, 1 to 3 on) and stores the value", answers=_FEATURES_SET_BATTERY_HEALTH, com=True, locks=("app_path", "quiet_fan_setting",))
_SET_APP_PATH_SETTER = Setter("WMISetAppPath", "Stores the directory of this user's settings files", answers=_FEATURES_SET_APP_PATH, com=True, locks=("app_path",))


class PowerSource(enum.IntEnum):
    """Battery or AC power."""

    BATTERY = 0
    """On battery."""
    AC = 1
    """On AC power."""


class QuietFanSupport(enum.IntEnum):
    """Whether the firmware has Quiet Fan, and its state."""

    OFF = 0
    """Supported, off."""
    ON = 1
    """Supported, on."""


class Disk(NamedTuple):
    """Model, size in bytes and media type (3 hard disk, 4 SSD) of each disk."""

    model: str
    size: Optional[int]
    """Unit: bytes."""
    media_type: Optional[int]


class SessionReadings(Group[M]):
    """Session and versions."""

    GROUP = "session"

    driver_version = Number(
        "GetDriverVersion", "Version word of the I/O driver", answers=_SESSION_DRIVER_VERSION, locks=("session",)
    )
    """Version word of the I/O driver.

    Failed or no session: no session is open, or the driver refused.
    Needs a session.
    Export: GetDriverVersion.
    """

    driver_references = Number(
        "GetRefCount", "Reference count of the I/O driver", answers=_SESSION_DRIVER_VERSION, locks=("session",)
    )
    """Reference count of the I/O driver.

    Failed or no session: no session is open, or the driver refused.
    Needs a session.
    Export: GetRefCount.
    """

    io_version = Number(
        "GetIoDllVersion", "Version of the I/O interface, a constant"
    )
    """Version of the I/O interface, a constant.

    Export: GetIoDllVersion.
    """


class IdentityReadings(Group[M]):
    """Embedded controller: identity."""

    GROUP = "identity"

    firmware_revision = Letters(
        "EC_ReadEcFwRev", "Firmware revision code of the EC: two letters", answers=_IDENTITY_FIRMWARE_REVISION, locks=("session", "ec",)
    )
    """Firmware revision code of the EC: two letters.

    The letters that the export packs into a number.
    Failed or no session: an EC command failed, or no session is open.
    Needs a session while the value is not cached in the registry.
    The first value that was read is cached in the registry permanently.
    Export: EC_ReadEcFwRev.
    """

    chip_id = Number(
        "EC_ReadEcChipId", "Chip id of the EC, which distinguishes variants of one revision code", answers=_IDENTITY_FIRMWARE_REVISION, locks=("session", "ec",)
    )
    """Chip id of the EC, which distinguishes variants of one revision code.

    Range: 0 to 255.
    Failed or no session: an EC command failed, or no session is open.
    Needs a session while the value is not cached in the registry.
    The first value that was read is cached in the registry permanently.
    Export: EC_ReadEcChipId.
    """

    chip_name = Letters(
        "EC_ReadEcChipName", "Chip name of the EC: four characters", answers=_IDENTITY_FIRMWARE_REVISION, locks=("session", "ec",)
    )
    """Chip name of the EC: four characters.

    The letters that the export packs into a number.
    Failed or no session: an EC command failed, or no session is open.
    Needs a session while the value is not cached in the registry.
    The first value that was read is cached in the registry permanently.
    Export: EC_ReadEcChipName.
    """


class BatteryReadings(Group[M]):
    """Battery: from the system's battery device."""

    GROUP = "battery"

    designed_capacity = Number(
        "Battery_Read_DesignedCapacity", "Capacity that the battery was designed for", unit="mWh", answers=_BATTERY_DESIGNED_CAPACITY
    )
    """Capacity that the battery was designed for.

    Unit: milliwatt hours (mWh).
    Absent or failed: no battery, or the device does not give this value.
    Export: Battery_Read_DesignedCapacity.
    """

    full_charged_capacity = Number(
        "Battery_Read_FullChargedCapcity", "Capacity of the full battery at present", unit="mWh", answers=_BATTERY_DESIGNED_CAPACITY
    )
    """Capacity of the full battery at present.

    Unit: milliwatt hours (mWh).
    Absent or failed: no battery, or the device does not give this value.
    Export: Battery_Read_FullChargedCapcity.
    """

    capacity = Number(
        "Battery_Read_Capacity", "Remaining charge", unit="mWh", answers=_BATTERY_DESIGNED_CAPACITY
    )
    """Remaining charge.

    Unit: milliwatt hours (mWh).
    Absent or failed: no battery, or the device does not give this value.
    Export: Battery_Read_Capacity.
    """

    present_voltage = Number(
        "Battery_Read_DesignVoltage", "Present voltage, from the system's battery device", unit="mV", answers=_BATTERY_DESIGNED_CAPACITY
    )
    """Present voltage, from the system's battery device.

    Unit: millivolts (mV).
    Absent or failed: no battery, or the device does not give this value.
    Export: Battery_Read_DesignVoltage.
    """

    health = Fraction(
        "Battery_Read_ASOC", "Full capacity as a fraction of the designed capacity", unit="fraction", answers=_BATTERY_DESIGNED_CAPACITY
    )
    """Full capacity as a fraction of the designed capacity.

    A fraction: 1 is the whole.
    Absent or failed: no battery, or the device does not give this value.
    Export: Battery_Read_ASOC.
    """

    charge = Number(
        "Battery_Read_CapacityPercentage", "Remaining charge, rounded to a multiple of ten", unit="%", answers=_BATTERY_CHARGE
    )
    """Remaining charge, rounded to a multiple of ten.

    Unit: percent (%), 0 to 4294967290.
    0 can mean: empty, or no battery.
    Export: Battery_Read_CapacityPercentage.
    """


class BatteryEcReadings(Group[M]):
    """Battery: from the embedded controller."""

    GROUP = "battery_ec"

    cycle_count = Number(
        "Battery_Read_CycleCount", "Charge cycles so far", unit="cycles", answers=_BATTERY_EC_CYCLE_COUNT, locks=("session", "ec",)
    )
    """Charge cycles so far.

    Unit: cycles.
    Failed or no session: an EC command failed, or no session is open.
    0 can mean: no cycles, or this machine does not count them.
    Needs a session on machines with some firmware revision codes.
    Export: Battery_Read_CycleCount.
    """

    lid_status = Number(
        "Battery_Get_LidStatus", "Lid byte of the EC", answers=_BATTERY_EC_LID_STATUS, locks=("session", "ec",)
    )
    """Lid byte of the EC.

    Range: 0 to 255.
    Failed or no session: an EC command failed, or no session is open.
    0 can mean: the byte is 0, or no such reading on this machine.
    Needs a session.
    Export: Battery_Get_LidStatus.
    """

    charging_voltage = Number(
        "Battery_Read_ChargingVoltage", "Charging voltage, in the EC's own unit", unit="raw", answers=_BATTERY_EC_CHARGING_VOLTAGE, locks=("session", "ec",)
    )
    """Charging voltage, in the EC's own unit.

    Unit: the firmware's or the driver's own unit, which is not documented, 0 to 65535.
    Failed or no session: an EC command failed, or no session is open.
    Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
    Needs a session.
    Export: Battery_Read_ChargingVoltage.
    """

    package_voltage = Number(
        "Battery_Read_PackageVoltage", "Voltage of the battery pack, in the EC's own unit", unit="raw", answers=_BATTERY_EC_CHARGING_VOLTAGE, locks=("session", "ec",)
    )
    """Voltage of the battery pack, in the EC's own unit.

    Unit: the firmware's or the driver's own unit, which is not documented, 0 to 65535.
    Failed or no session: an EC command failed, or no session is open.
    Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
    Needs a session.
    Export: Battery_Read_PackageVoltage.
    """

    temperature = Number(
        "Battery_Read_Temperature", "Temperature of the battery pack, in the EC's own unit", unit="raw", answers=_BATTERY_EC_CHARGING_VOLTAGE, locks=("session", "ec",)
    )
    """Temperature of the battery pack, in the EC's own unit.

    Unit: the firmware's or the driver's own unit, which is not documented, 0 to 65535.
    Failed or no session: an EC command failed, or no session is open.
    Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
    Needs a session.
    Export: Battery_Read_Temperature.
    """

    current = Number(
        "Battery_Read_Current", "Battery current, in the EC's own unit", unit="raw", answers=_BATTERY_EC_CURRENT, locks=("session", "ec",)
    )
    """Battery current, in the EC's own unit.

    Unit: the firmware's or the driver's own unit, which is not documented, -32768 to 32767.
    Failed or no session: an EC command failed, or no session is open; can also be an ordinary value.
    0 can mean: no current, or no such reading on this machine.
    Needs a session.
    Export: Battery_Read_Current.
    """

    cell_voltages = NumberList(
        "Battery_Read_CellVoltage", "Voltages of cells 0 to 3, in the EC's own unit", size=44, unit="raw", answers=_BATTERY_EC_CELL_VOLTAGES, locks=("session", "ec",)
    )
    """Voltages of cells 0 to 3, in the EC's own unit.

    Unit: the firmware's or the driver's own unit, which is not documented, 0 to 65535.
    Failed or no session (one element): an EC command failed, or no session is open.
    Absent or no session (one element): no such cell on this machine, or the EC cannot be identified; can also be an ordinary value.
    Needs a session.
    Waits 0 to 120 ms.
    Threads: no other call may use meanwhile: the EC.
    Export: Battery_Read_CellVoltage.
    """

    manufacture_date = Text(
        "Battery_Read_ManufactureDate", "Date of manufacture of the battery: year-month-day", size=11, answers=_BATTERY_EC_MANUFACTURE_DATE, locks=("session", "ec",)
    )
    """Date of manufacture of the battery: year-month-day.

    Absent or failed or no session: the battery gives no date, or an EC command failed.
    Needs a session.
    Waits 0 to 30 ms.
    Threads: no other call may use meanwhile: the EC.
    Export: Battery_Read_ManufactureDate.
    """

    manufacture_name = Text(
        "Battery_Read_ManufactureName", "Manufacturer of the battery", size=11, answers=_BATTERY_EC_MANUFACTURE_NAME, locks=("session", "ec",)
    )
    """Manufacturer of the battery.

    Absent or failed or no session: the battery gives no name, or an EC command failed.
    Needs a session.
    Export: Battery_Read_ManufactureName.
    """


class ThermalReadings(Group[M]):
    """Temperatures and fans."""

    GROUP = "thermal"

    cpu_temperature = Number(
        "Thermal_Read_Cpu_Temperature", "Processor", unit="°C", answers=_BATTERY_EC_CHARGING_VOLTAGE, locks=("session", "ec",)
    )
    """Processor.

    Unit: degrees Celsius (°C), 0 to 255.
    Failed or no session: an EC command failed, or no session is open.
    Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
    Needs a session.
    Export: Thermal_Read_Cpu_Temperature.
    """

    board_local_temperature = Number(
        "Thermal_Read_BoardTS0L_Temperature", "Board, sensor TS0 local", unit="°C", answers=_BATTERY_EC_CHARGING_VOLTAGE, locks=("session", "ec",)
    )
    """Board, sensor TS0 local.

    Unit: degrees Celsius (°C), 0 to 255.
    Failed or no session: an EC command failed, or no session is open.
    Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
    Needs a session.
    Export: Thermal_Read_BoardTS0L_Temperature.
    """

    board_remote_temperature = Number(
        "Thermal_Read_BoardTS0R_Temperature", "Board, sensor TS0 remote", unit="°C", answers=_BATTERY_EC_CHARGING_VOLTAGE, locks=("session", "ec",)
    )
    """Board, sensor TS0 remote.

    Unit: degrees Celsius (°C), 0 to 255.
    Failed or no session: an EC command failed, or no session is open.
    Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
    Needs a session.
    Export: Thermal_Read_BoardTS0R_Temperature.
    """

    gpu_local_temperature = Number(
        "Thermal_Read_GpuTS1L_Temperature", "Graphics processor, sensor TS1 local", unit="°C", answers=_BATTERY_EC_CHARGING_VOLTAGE, locks=("session", "ec",)
    )
    """Graphics processor, sensor TS1 local.

    Unit: degrees Celsius (°C), 0 to 255.
    Failed or no session: an EC command failed, or no session is open.
    Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
    Needs a session.
    Export: Thermal_Read_GpuTS1L_Temperature.
    """

    gpu_remote_temperature = Number(
        "Thermal_Read_GpuTS1R_Temperature", "Graphics processor, sensor TS1 remote", unit="°C", answers=_BATTERY_EC_CHARGING_VOLTAGE, locks=("session", "ec",)
    )
    """Graphics processor, sensor TS1 remote.

    Unit: degrees Celsius (°C), 0 to 255.
    Failed or no session: an EC command failed, or no session is open.
    Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
    Needs a session.
    Export: Thermal_Read_GpuTS1R_Temperature.
    """

    battery_connector_temperature = Number(
        "Thermal_Read_BatteryConnector_Temperature", "Battery connector", unit="°C", answers=_THERMAL_BATTERY_CONNECTOR_TEMPERATURE, locks=("session", "ec",)
    )
    """Battery connector.

    Unit: degrees Celsius (°C), 0 to 255.
    Failed or no session: an EC command failed, or no session is open.
    Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
    Needs a session.
    Export: Thermal_Read_BatteryConnector_Temperature.
    """

    ac_fet_temperature = Number(
        "Thermal_Read_ACFET_Temperature", "Transistor of the AC input", unit="°C", answers=_THERMAL_BATTERY_CONNECTOR_TEMPERATURE, locks=("session", "ec",)
    )
    """Transistor of the AC input.

    Unit: degrees Celsius (°C), 0 to 255.
    Failed or no session: an EC command failed, or no session is open.
    Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
    Needs a session.
    Export: Thermal_Read_ACFET_Temperature.
    """

    charger_choke_temperature = Number(
        "Thermal_Read_ChargerChoke_Temperature", "Choke of the charger", unit="°C", answers=_THERMAL_BATTERY_CONNECTOR_TEMPERATURE, locks=("session", "ec",)
    )
    """Choke of the charger.

    Unit: degrees Celsius (°C), 0 to 255.
    Failed or no session: an EC command failed, or no session is open.
    Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
    Needs a session.
    Export: Thermal_Read_ChargerChoke_Temperature.
    """

    gpu_vrm_temperature = Number(
        "Thermal_Read_GpuVrm_Temperature", "Voltage regulator of the graphics processor", unit="°C", answers=_THERMAL_BATTERY_CONNECTOR_TEMPERATURE, locks=("session", "ec",)
    )
    """Voltage regulator of the graphics processor.

    Unit: degrees Celsius (°C), 0 to 255.
    Failed or no session: an EC command failed, or no session is open.
    Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
    Needs a session.
    Export: Thermal_Read_GpuVrm_Temperature.
    """

    upper_cpu_temperature = Number(
        "Thermal_Read_UpCpu_Temperature", "Above the processor", unit="°C", answers=_THERMAL_BATTERY_CONNECTOR_TEMPERATURE, locks=("session", "ec",)
    )
    """Above the processor.

    Unit: degrees Celsius (°C), 0 to 255.
    Failed or no session: an EC command failed, or no session is open.
    Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
    Needs a session.
    Export: Thermal_Read_UpCpu_Temperature.
    """

    gpu_vram_temperature = Number(
        "Thermal_Read_GpuVram_Temperature", "Graphics memory", unit="°C", answers=_THERMAL_BATTERY_CONNECTOR_TEMPERATURE, locks=("session", "ec",)
    )
    """Graphics memory.

    Unit: degrees Celsius (°C), 0 to 255.
    Failed or no session: an EC command failed, or no session is open.
    Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
    Needs a session.
    Export: Thermal_Read_GpuVram_Temperature.
    """

    fan_speeds = NumberList(
        "Thermal_Read_Fan", "Speeds of fans 0 to 3", size=44, unit="rpm", answers=_THERMAL_FAN_SPEEDS, locks=("session", "ec",)
    )
    """Speeds of fans 0 to 3.

    Unit: revolutions per minute (rpm), 0 to 2156250.
    Failed or no session (one element): an EC command failed, or no session is open.
    0 (one element) can mean: the fan does not turn, or this machine does not have it.
    Needs a session.
    Waits 0 to 30 ms.
    Threads: no other call may use meanwhile: the EC.
    Export: Thermal_Read_Fan.
    """


class ProcessorReadings(Group[M]):
    """Processor and power."""

    GROUP = "processor"

    usage = Fraction(
        "CPU_ReadCPUUsage", "Busy fraction of all processors together, measured for one second", unit="fraction", answers=_PROCESSOR_USAGE
    )
    """Busy fraction of all processors together, measured for one second.

    A fraction: 1 is the whole.
    0 can mean: idle, or a sample failed.
    Waits 1000 ms.
    Export: CPU_ReadCPUUsage.
    """

    cpuid = RegistersOf(
        "CPU_ReadCpuId", "CPUID leaf: EAX EBX ECX EDX", answers=_PROCESSOR_CPUID, locks=("session",)
    )
    """CPUID leaf: EAX EBX ECX EDX.

    leaf: the leaf.
    No session: no session is open.
    Failed: the driver refused; can also be an ordinary value.
    Needs a session.
    Export: CPU_ReadCpuId.
    """

    package_power = Number(
        "Thermal_Read_CpuPackagePower", "Power of the processor package, in the driver's own unit", unit="raw", answers=_PROCESSOR_PACKAGE_POWER, locks=("session",)
    )
    """Power of the processor package, in the driver's own unit.

    Unit: the firmware's or the driver's own unit, which is not documented.
    Absent or failed or no session: no session is open, or the processor has no such value.
    Needs a session.
    Export: Thermal_Read_CpuPackagePower.
    """

    power_limit_1 = Number(
        "Thermal_Read_CpuDptf_PowerLimit1", "Power limit 1, in the driver's own unit", unit="raw", answers=_PROCESSOR_PACKAGE_POWER, locks=("session", "ec",)
    )
    """Power limit 1, in the driver's own unit.

    Unit: the firmware's or the driver's own unit, which is not documented.
    Absent or failed or no session: no session is open, or the processor has no such value.
    Needs a session.
    Export: Thermal_Read_CpuDptf_PowerLimit1.
    """

    power_limit_2 = Number(
        "Thermal_Read_CpuDptf_PowerLimit2", "Power limit 2, in the driver's own unit", unit="raw", answers=_PROCESSOR_PACKAGE_POWER, locks=("session", "ec",)
    )
    """Power limit 2, in the driver's own unit.

    Unit: the firmware's or the driver's own unit, which is not documented.
    Absent or failed or no session: no session is open, or the processor has no such value.
    Needs a session.
    Export: Thermal_Read_CpuDptf_PowerLimit2.
    """

    power_source = Choice(
        PowerSource, "Power_Read_ACDCMode", "Battery or AC power", answers=_PROCESSOR_POWER_SOURCE
    )
    """Battery or AC power.

    Failed or absent: the system does not know.
    Export: Power_Read_ACDCMode.
    """


class FirmwareLogReadings(Group[M]):
    """Firmware: event log and sensor."""

    GROUP = "firmware_log"

    event_store = DocumentText(
        "GetEEPROM_Data", "Version, registers and event log of the firmware's store", size=65536, wide=True, grows=True, answers=_FIRMWARE_LOG_EVENT_STORE, locks=("acpi_device", "event_log",)
    )
    """Version, registers and event log of the firmware's store.

    JSON in which nothing is escaped, so that a name can make it ill-formed.
    Failed or absent: the firmware's device does not answer.
    Threads: no other call may use meanwhile: the one handle of the firmware's device; the firmware's position in its event log.
    Export: GetEEPROM_Data.
    """

    proximity_sensor = DocumentText(
        "GetSENSOR_WMI_Data", "Status of the proximity sensor", size=26, wide=True, answers=_FIRMWARE_LOG_PROXIMITY_SENSOR, locks=("acpi_device",)
    )
    """Status of the proximity sensor.

    JSON in which nothing is escaped, so that a name can make it ill-formed.
    Failed or absent: the sensor could not be read.
    Threads: no other call may use meanwhile: the one handle of the firmware's device.
    Export: GetSENSOR_WMI_Data.
    """


class FirmwareVariablesReadings(Group[M]):
    """Firmware: variables."""

    GROUP = "firmware_variables"

    random_uuid = Bytes(
        "GPNV_Get_RandomUUID", "Random UUID of the machine", size=16, answers=_FIRMWARE_VARIABLES_RANDOM_UUID, locks=("firmware_variables",)
    )
    """Random UUID of the machine.

    Failed: the firmware variable cannot be read.
    Failed: the system's error code of the failed read.
    Export: GPNV_Get_RandomUUID.
    """

    activated_time = Bytes(
        "GPNV_Get_ActivatedTime", "When the machine was activated", size=19, answers=_FIRMWARE_VARIABLES_ACTIVATED_TIME, locks=("firmware_variables",)
    )
    """When the machine was activated.

    Failed: the firmware variable cannot be read.
    Export: GPNV_Get_ActivatedTime.
    """

    manufactured_time = Bytes(
        "GPNV_Get_ManufacturedTime", "When the machine was manufactured", size=23, answers=_FIRMWARE_VARIABLES_RANDOM_UUID, locks=("firmware_variables",)
    )
    """When the machine was manufactured.

    Failed: the firmware variable cannot be read.
    Failed: the system's error code of the failed read.
    Export: GPNV_Get_ManufacturedTime.
    """

    def set_random_uuid(self, content: bytes) -> None:
        """Stores the random UUID of the machine: 16 bytes.

        Raises without success, through or_none too.
        content: the new bytes.
        0 can mean: written, or the variable could not be read and was left as it is.
        Failed: the variable ends before the field; or the system's code of the failed write.
        Failed: the system's error code of the failed write.
        Threads: no other call may use meanwhile: the UEFI variables.
        Export: GPNV_Set_RandomUUID.
        """
        _SET_RANDOM_UUID_SETTER.apply(self._caller, exactly(content, 16))

    def set_activated_time(self, content: bytes) -> None:
        """Stores when the machine was activated: 19 bytes.

        Raises without success, through or_none too.
        content: the new bytes.
        0 can mean: written, or the variable could not be read and was left as it is.
        Failed: the variable ends before the field; or the system's code of the failed write.
        Failed: the system's error code of the failed write.
        Threads: no other call may use meanwhile: the UEFI variables.
        Export: GPNV_Set_ActivatedTime.
        """
        _SET_ACTIVATED_TIME_SETTER.apply(self._caller, exactly(content, 19))

    def set_manufactured_time(self, content: bytes) -> None:
        """Stores when the machine was manufactured: 23 bytes.

        Raises without success, through or_none too.
        content: the new bytes.
        0 can mean: written, or the variable could not be read and was left as it is.
        Failed: the variable ends before the field; or the system's code of the failed write.
        Failed: the system's error code of the failed write.
        Threads: no other call may use meanwhile: the UEFI variables.
        Export: GPNV_Set_ManufacturedTime.
        """
        _SET_MANUFACTURED_TIME_SETTER.apply(self._caller, exactly(content, 23))


class FeaturesReadings(Group[M]):
    """Firmware: Battery Health and Quiet Fan."""

    GROUP = "features"

    battery_health_support = Flag(
        "WMICheckBatteryHealthSupport", "Whether the firmware has Battery Health", answers=_FEATURES_BATTERY_HEALTH_SUPPORT, com=True
    )
    """Whether the firmware has Battery Health.

    0 can mean: not supported, or the firmware did not answer.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMICheckBatteryHealthSupport.
    """

    quiet_fan_support = Choice(
        QuietFanSupport, "WMICheckQuietFanSupport", "Whether the firmware has Quiet Fan, and its state", answers=_FEATURES_QUIET_FAN_SUPPORT, com=True
    )
    """Whether the firmware has Quiet Fan, and its state.

    Absent or failed: not supported, or the firmware did not answer.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMICheckQuietFanSupport.
    """

    battery_health = Number(
        "WMIGetBatteryHealth", "Battery Health as last set", unit="%", answers=_FEATURES_BATTERY_HEALTH, com=True, locks=("app_path", "battery_health_setting",)
    )
    """Battery Health as last set.

    Unit: percent (%).
    100 can mean: also the default where nothing is stored.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetBatteryHealth.
    """

    quiet_fan = Number(
        "WMIGetQuietFan", "Quiet Fan as last set: 1, 2 or 3", answers=_FEATURES_QUIET_FAN, com=True, locks=("app_path", "quiet_fan_setting",)
    )
    """Quiet Fan as last set: 1, 2 or 3.

    Range: 0 to 3.
    0 can mean: off, or nothing is stored.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetQuietFan.
    """

    def set_battery_health(self, value: int) -> None:
        """Sets Battery Health and stores the value.

        Raises without success, through or_none too.
        value: any number.
        Failed or absent: the firmware did not accept the value, or does not have the feature.
        Waits for a service of the system without a limit; the call cannot be cancelled.
        Threads: no other call may use meanwhile: the firmware's Battery Health and its settings file.
        Export: WMISetBatteryHealth.
        """
        _SET_BATTERY_HEALTH_SETTER.apply(self._caller, checked(value, -2147483648, 2147483647))

    def set_quiet_fan(self, value: int) -> None:
        """Sets Quiet Fan (0 off, 1 to 3 on) and stores the value.

        Raises without success, through or_none too.
        value: 0 off, any other value on; 1 to 3 can be read back.
        Failed or absent: the firmware did not accept the value, or does not have the feature.
        Waits for a service of the system without a limit; the call cannot be cancelled.
        Threads: no other call may use meanwhile: the firmware's Quiet Fan and its settings file.
        Export: WMISetQuietFan.
        """
        _SET_QUIET_FAN_SETTER.apply(self._caller, checked(value, 0, 255))

    def set_app_path(self, path: str) -> None:
        """Stores the directory of this user's settings files.

        Raises without success, through or_none too.
        path: the directory, without a trailing backslash.
        Failed: not stored.
        Waits for a service of the system without a limit; the call cannot be cancelled.
        Threads: no other call may use meanwhile: the registry value with the directory of this user's settings.
        Export: WMISetAppPath.
        """
        _SET_APP_PATH_SETTER.apply(self._caller, terminated(path))


class InventoryReadings(Group[M]):
    """Inventory."""

    GROUP = "inventory"

    makers_number = Text(
        "WMIGet90Number", "The maker's number of the machine: its fifth OEM string", size=4096, wide=True, answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """The maker's number of the machine: its fifth OEM string.

    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGet90Number.
    """

    board_maker = TextList(
        "WMIGetBiosManufacture", "Manufacturer of the base board", size=4096, wide=True, answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """Manufacturer of the base board.

    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetBiosManufacture.
    """

    bios_release_date = Text(
        "WMIGetBiosReleaseDate", "Release date of the BIOS: year, month, day", size=9, wide=True, answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """Release date of the BIOS: year, month, day.

    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetBiosReleaseDate.
    """

    bios_version = TextList(
        "WMIGetBiosVersion", "Version of the BIOS", size=4096, wide=True, answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """Version of the BIOS.

    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetBiosVersion.
    """

    machine_uuid = TextList(
        "WMIGetBoardUUID", "UUID of the machine", size=4096, wide=True, answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """UUID of the machine.

    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetBoardUUID.
    """

    cpu_names = TextList(
        "WMIGetCPUInfo", "Name of each processor", size=4096, wide=True, answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """Name of each processor.

    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetCPUInfo.
    """

    cpu_load = Number(
        "WMIGetCPUUsg", "Load of the last processor that reports one", unit="%", answers=_INVENTORY_CPU_LOAD, com=True
    )
    """Load of the last processor that reports one.

    Unit: percent (%), 0 to 100.
    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetCPUUsg.
    """

    product_family = TextList(
        "WMIGetComputerFamilyName", "Product family of the machine", size=4096, wide=True, answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """Product family of the machine.

    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetComputerFamilyName.
    """

    external_displays = Number(
        "WMIGetExternMonitorNum", "Number of external displays", answers=_INVENTORY_EXTERNAL_DISPLAYS, com=True
    )
    """Number of external displays.

    Failed: the WMI query failed.
    0 can mean: none, or WMI gave no row.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetExternMonitorNum.
    """

    gpu_names = TextList(
        "WMIGetGPUInfo", "Name of each graphics adapter", size=4096, wide=True, answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """Name of each graphics adapter.

    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetGPUInfo.
    """

    disk_captions = TextList(
        "WMIGetHDDCaption", "Name of each fixed disk", size=4096, wide=True, answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """Name of each fixed disk.

    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetHDDCaption.
    """

    disks = RecordList(
        Disk, (False, True, True), "WMIGetHDDInfo", "Model, size in bytes and media type (3 hard disk, 4 SSD) of each disk", size=4096, wide=True, answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """Model, size in bytes and media type (3 hard disk, 4 SSD) of each disk.

    One record for each; an element that cannot be read as a number is absent from its record.
    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetHDDInfo.
    """

    hard_disk_models = TextList(
        "WMIGetHDDModel", "Model of each hard disk", size=4096, wide=True, answers=_INVENTORY_HARD_DISK_MODELS, com=True
    )
    """Model of each hard disk.

    Absent or failed: no such disk, or the WMI query failed.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetHDDModel.
    """

    disk_sizes = NumberList(
        "WMIGetHDDSize", "Size of each fixed disk", size=4096, wide=True, unit="bytes", answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """Size of each fixed disk.

    Unit: bytes.
    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetHDDSize.
    """

    disk_temperatures = NumberList(
        "WMIGetHDDTemp", "Temperature of each disk that reports one", size=1200, wide=True, unit="°C", answers=_INVENTORY_DISK_TEMPERATURES, com=True, locks=("smart_table",)
    )
    """Temperature of each disk that reports one.

    Unit: degrees Celsius (°C), 0 to 255.
    Absent or failed: no disk reports a temperature, or the WMI query failed.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    A failed read repeats the previous answer.
    Threads: no other call may use meanwhile: the SMART table.
    Export: WMIGetHDDTemp.
    """

    display_models = TextList(
        "WMIGetLCDModel", "Name of each monitor", size=4096, wide=True, answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """Name of each monitor.

    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetLCDModel.
    """

    mac_addresses = TextList(
        "WMIGetMacAddress", "Address of each physical network adapter", size=4096, wide=True, answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """Address of each physical network adapter.

    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetMacAddress.
    """

    memory_makers = TextList(
        "WMIGetMemManufacture", "Manufacturer of each memory module", size=4096, wide=True, answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """Manufacturer of each memory module.

    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetMemManufacture.
    """

    memory_models = TextList(
        "WMIGetMemModel", "Part number of each memory module", size=4096, wide=True, answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """Part number of each memory module.

    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetMemModel.
    """

    memory_sizes = NumberList(
        "WMIGetMemSize", "Size of each memory module", size=4096, wide=True, unit="bytes", answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """Size of each memory module.

    Unit: bytes.
    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetMemSize.
    """

    board_name = TextList(
        "WMIGetModelName", "Product name of the base board", size=4096, wide=True, answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """Product name of the base board.

    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetModelName.
    """

    brightness = Number(
        "WMIGetMonitorBrightness", "Brightness of the display", unit="%", answers=_INVENTORY_BRIGHTNESS, com=True
    )
    """Brightness of the display.

    Unit: percent (%), 0 to 100.
    Failed or absent: the WMI query failed, or no display reports its brightness.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetMonitorBrightness.
    """

    os_country_code = TextList(
        "WMIGetOSCountryCode", "Country code of the operating system", size=4096, wide=True, answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """Country code of the operating system.

    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetOSCountryCode.
    """

    os = Text(
        "WMIGetOSInfo", "Name, architecture and version of the operating system", size=4096, wide=True, answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """Name, architecture and version of the operating system.

    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetOSInfo.
    """

    product_name = TextList(
        "WMIGetProductName", "Product name of the machine", size=4096, wide=True, answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """Product name of the machine.

    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetProductName.
    """

    serial_number = TextList(
        "WMIGetSN", "Serial number of the machine", size=4096, wide=True, answers=_INVENTORY_MAKERS_NUMBER, com=True
    )
    """Serial number of the machine.

    Failed or absent: the WMI query failed or found nothing.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetSN.
    """

    ssd_models = TextList(
        "WMIGetSSDModel", "Model of each SSD", size=4096, wide=True, answers=_INVENTORY_HARD_DISK_MODELS, com=True
    )
    """Model of each SSD.

    Absent or failed: no such disk, or the WMI query failed.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetSSDModel.
    """

    chassis = Text(
        "WMIGetSystemChassisTypes", "Kind of machine: Desktop, Notebook or All in One", size=11, wide=True, answers=_INVENTORY_CHASSIS, com=True
    )
    """Kind of machine: Desktop, Notebook or All in One.

    Failed or absent: the WMI query failed, or the kind has no name.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetSystemChassisTypes.
    """

    add_one = NumberOf(
        "wmiadd", "The given number plus one: shows that the library answers"
    )
    """The given number plus one: shows that the library answers.

    value: any number; 4294967295 gives 0.
    Export: wmiadd.
    """


class AdaptersReadings(Group[M]):
    """Network adapters."""

    GROUP = "adapters"

    wifi_cards = TextList(
        "WMIGetWiFiCardName", "Name of each Wi-Fi adapter", size=1024, wide=True, terminated=True, answers=_ADAPTERS_WIFI_CARDS, com=True
    )
    """Name of each Wi-Fi adapter.

    Absent or failed: no Wi-Fi adapter, or the WMI query failed.
    Absent or failed: the system lists no network adapters.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetWiFiCardName.
    """

    wifi_traffic = NumberList(
        "WMIGetWiFiBytesPersec", "Traffic of the Wi-Fi adapter: received, sent", size=64, wide=True, unit="bytes/s", answers=_ADAPTERS_WIFI_TRAFFIC, com=True
    )
    """Traffic of the Wi-Fi adapter: received, sent.

    Unit: bytes per second (bytes/s).
    Failed or absent: the WMI query failed or found nothing.
    "0;0" can mean: no traffic, or no counter of this adapter.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: WMIGetWiFiBytesPersec.
    """


class WifiReadings(Group[M]):
    """Wi-Fi."""

    GROUP = "wifi"

    connected = Flag(
        "RF_WiFiIsConnected", "Whether Wi-Fi is connected", answers=_WIFI_CONNECTED
    )
    """Whether Wi-Fi is connected.

    Failed: the radio could not be read.
    Not read: no Wi-Fi adapter.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    The first successful read is cached to the end of the process.
    Export: RF_WiFiIsConnected.
    """

    card_name = Text(
        "RF_WiFiCardName", "Name of the Wi-Fi adapter", size=257, wide=True, answers=_WIFI_CARD_NAME
    )
    """Name of the Wi-Fi adapter.

    Failed: the radio could not be read.
    Not read: no adapter, or no connection.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    The first successful read is cached to the end of the process.
    Export: RF_WiFiCardName.
    """

    signal = Number(
        "RF_WiFiRssi", "Signal of the access point", unit="dBm", answers=_WIFI_SIGNAL
    )
    """Signal of the access point.

    Unit: decibel milliwatts (dBm).
    Failed: the radio could not be read.
    Not read: no adapter, or no connection.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    The first successful read is cached to the end of the process.
    Export: RF_WiFiRssi.
    """

    channel = Number(
        "RF_WiFiChannel", "Channel number", answers=_WIFI_SIGNAL
    )
    """Channel number.

    Failed: the radio could not be read.
    Not read: no adapter, or no connection.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    The first successful read is cached to the end of the process.
    Export: RF_WiFiChannel.
    """

    access_point_prefix = Text(
        "RF_AP_MAC", "First three octets of the access point's address", size=13, answers=_WIFI_CARD_NAME
    )
    """First three octets of the access point's address.

    Failed: the radio could not be read.
    Not read: no adapter, or no connection.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    The first successful read is cached to the end of the process.
    Export: RF_AP_MAC.
    """

    max_rate = Number(
        "RF_WiFiMaxRate", "Highest link rate of the access point", unit="Mbit/s", answers=_WIFI_SIGNAL
    )
    """Highest link rate of the access point.

    Unit: megabits per second (Mbit/s).
    Failed: the radio could not be read.
    Not read: no adapter, or no connection.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    The first successful read is cached to the end of the process.
    Export: RF_WiFiMaxRate.
    """

    phy_mode = Text(
        "RF_PhyMode", "Radio standard of the connection", size=0, answers=_WIFI_CARD_NAME
    )
    """Radio standard of the connection.

    Failed: the radio could not be read.
    Not read: no adapter, or no connection.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    The first successful read is cached to the end of the process.
    Export: RF_PhyMode.
    """


class BluetoothReadings(Group[M]):
    """Bluetooth."""

    GROUP = "bluetooth"

    connected = Flag(
        "RF_BTIsUsed", "Whether a Bluetooth device is connected", answers=_BLUETOOTH_CONNECTED
    )
    """Whether a Bluetooth device is connected.

    Failed: the radio could not be read.
    Not read: no Bluetooth radio.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    The first successful read is cached to the end of the process.
    Export: RF_BTIsUsed.
    """

    device_count = Number(
        "RF_BTConnectedNum", "Number of connected Bluetooth devices", answers=_WIFI_SIGNAL
    )
    """Number of connected Bluetooth devices.

    Failed: the radio could not be read.
    Not read: no adapter, or no connection.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    The first successful read is cached to the end of the process.
    Export: RF_BTConnectedNum.
    """

    device_types = TextList(
        "RF_BTConnectedType", "Kind of each connected Bluetooth device", size=0, terminated=True, answers=_WIFI_CARD_NAME
    )
    """Kind of each connected Bluetooth device.

    Failed: the radio could not be read.
    Not read: no adapter, or no connection.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    The first successful read is cached to the end of the process.
    Export: RF_BTConnectedType.
    """


class SystemReadings(Group[M]):
    """System."""

    GROUP = "system"

    s_mode = Flag(
        "System_Check_S_Mode", "Whether Windows runs in S mode", answers=_SYSTEM_S_MODE
    )
    """Whether Windows runs in S mode.

    0 can mean: not in S mode, or the system did not answer.
    Export: System_Check_S_Mode.
    """

    country = Text(
        "System_GetCountryCode_ISO2", "The user's country, two letters", size=11, wide=True, answers=_SYSTEM_COUNTRY
    )
    """The user's country, two letters.

    Failed or absent: the user has no country set.
    Export: System_GetCountryCode_ISO2.
    """

    local_time = Text(
        "System_Read_LocalTime", "Local date and time", size=20, answers=_SYSTEM_LOCAL_TIME
    )
    """Local date and time.

    Failed: the time cannot be converted to local time.
    Export: System_Read_LocalTime.
    """

    volume = Number(
        "System_Read_VolumeLevel", "Master volume, muted or not", unit="%", answers=_SYSTEM_VOLUME, com=True
    )
    """Master volume, muted or not.

    Unit: percent (%), 0 to 100.
    Failed or absent: no audio device, or it does not report its volume.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: System_Read_VolumeLevel.
    """

    tablet_mode = Number(
        "System_Read_TabletMode", "Tablet mode byte of the EC", answers=_IDENTITY_FIRMWARE_REVISION, locks=("session", "ec",)
    )
    """Tablet mode byte of the EC.

    Range: 0 to 255.
    Failed or no session: an EC command failed, or no session is open.
    Needs a session.
    Export: System_Read_TabletMode.
    """


class ApplicationsReadings(Group[M]):
    """Installed applications."""

    GROUP = "applications"

    applications_64 = DocumentText(
        "GetApplist_x64", "Installed 64-bit applications with versions", size=524288, wide=True, grows=True, answers=_APPLICATIONS_APPLICATIONS_64
    )
    """Installed 64-bit applications with versions.

    JSON in which nothing is escaped, so that a name can make it ill-formed.
    "[{"machine":[]},{"user":[]}]" can mean: no such applications, or the registry keys cannot be read.
    Export: GetApplist_x64.
    """

    applications_32 = DocumentText(
        "GetApplist_x86", "Installed 32-bit applications with versions", size=524288, wide=True, grows=True, answers=_APPLICATIONS_APPLICATIONS_64
    )
    """Installed 32-bit applications with versions.

    JSON in which nothing is escaped, so that a name can make it ill-formed.
    "[{"machine":[]},{"user":[]}]" can mean: no such applications, or the registry keys cannot be read.
    Export: GetApplist_x86.
    """

    packages = DocumentText(
        "GetApplist_UWP", "Installed packages with their display names", size=524288, wide=True, grows=True, answers=_APPLICATIONS_PACKAGES
    )
    """Installed packages with their display names.

    JSON in which nothing is escaped, so that a name can make it ill-formed.
    "[]" can mean: no packages, or the package store cannot be read.
    Export: GetApplist_UWP.
    """

    package_names = TextList(
        "App_Get_UWPApp", "Names of installed packages", size=524288, wide=True, grows=True, terminated=True, answers=_APPLICATIONS_PACKAGE_NAMES
    )
    """Names of installed packages.

    Absent or failed: no such applications, or the registry key cannot be read.
    Export: App_Get_UWPApp.
    """

    application_names_64 = TextList(
        "App_Get_Win32App", "Names of installed 64-bit applications", size=524288, wide=True, grows=True, terminated=True, answers=_APPLICATIONS_PACKAGE_NAMES
    )
    """Names of installed 64-bit applications.

    Absent or failed: no such applications, or the registry key cannot be read.
    Export: App_Get_Win32App.
    """

    application_names_32 = TextList(
        "App_Get_Win32WOW6432App", "Names of installed 32-bit applications", size=524288, wide=True, grows=True, terminated=True, answers=_APPLICATIONS_PACKAGE_NAMES
    )
    """Names of installed 32-bit applications.

    Absent or failed: no such applications, or the registry key cannot be read.
    Export: App_Get_Win32WOW6432App.
    """


class VersionsReadings(Group[M]):
    """Versions of the maker's software."""

    GROUP = "versions"

    driver_package = Text(
        "GetInfVersion", "Version of the maker's driver package", size=512, wide=True, answers=_VERSIONS_DRIVER_PACKAGE
    )
    """Version of the maker's driver package.

    Absent or failed: the driver package is not installed, or its version cannot be read.
    Export: GetInfVersion.
    """

    assistant_package = Text(
        "GetUWPVersion", "Version of the maker's assistant package", size=128, wide=True, answers=_VERSIONS_ASSISTANT_PACKAGE
    )
    """Version of the maker's assistant package.

    Absent or failed: the assistant package is not installed.
    Export: GetUWPVersion.
    """


class UsageReadings(Group[M]):
    """Usage."""

    GROUP = "usage"

    open_windows = DocumentText(
        "AppList_OpenWindows", "Up to five uppermost windows; measures for one second each", size=2048, wide=True, answers=_USAGE_OPEN_WINDOWS
    )
    """Up to five uppermost windows; measures for one second each.

    JSON in which nothing is escaped, so that a name can make it ill-formed.
    "[]" can mean: no window counts, or the windows cannot be listed.
    Waits 0 to 5000 ms.
    Export: AppList_OpenWindows.
    """

    busiest_processes = DocumentText(
        "AppList_CpuUsage", "The five busiest processes", size=4096, wide=True, answers=_USAGE_BUSIEST_PROCESSES
    )
    """The five busiest processes.

    JSON in which nothing is escaped, so that a name can make it ill-formed.
    Failed: the WMI query failed.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: AppList_CpuUsage.
    """

    largest_processes = DocumentText(
        "AppList_MemUsage", "The ten largest processes", size=4096, wide=True, answers=_USAGE_BUSIEST_PROCESSES
    )
    """The ten largest processes.

    JSON in which nothing is escaped, so that a name can make it ill-formed.
    Failed: the WMI query failed.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: AppList_MemUsage.
    """

    settings = DocumentText(
        "AppList_HardwareConfig", "Brightness and volume", size=64, wide=True, answers=_USAGE_SETTINGS
    )
    """Brightness and volume.

    JSON in which nothing is escaped, so that a name can make it ill-formed.
    Failed or absent: neither value could be read.
    Waits for a service of the system without a limit; the call cannot be cancelled.
    Export: AppList_HardwareConfig.
    """


class Groups(Generic[M]):
    """All groups of readings."""

    def __init__(self, caller: "Caller"):
        self._caller = caller

    def _use(self) -> "Caller":
        if self._caller.closed:
            raise ValueError("the session is closed")
        return self._caller

    @property
    def session(self) -> SessionReadings[M]:
        """Session and versions."""
        return SessionReadings(self._use())

    @property
    def identity(self) -> IdentityReadings[M]:
        """Embedded controller: identity."""
        return IdentityReadings(self._use())

    @property
    def battery(self) -> BatteryReadings[M]:
        """Battery: from the system's battery device."""
        return BatteryReadings(self._use())

    @property
    def battery_ec(self) -> BatteryEcReadings[M]:
        """Battery: from the embedded controller."""
        return BatteryEcReadings(self._use())

    @property
    def thermal(self) -> ThermalReadings[M]:
        """Temperatures and fans."""
        return ThermalReadings(self._use())

    @property
    def processor(self) -> ProcessorReadings[M]:
        """Processor and power."""
        return ProcessorReadings(self._use())

    @property
    def firmware_log(self) -> FirmwareLogReadings[M]:
        """Firmware: event log and sensor."""
        return FirmwareLogReadings(self._use())

    @property
    def firmware_variables(self) -> FirmwareVariablesReadings[M]:
        """Firmware: variables."""
        return FirmwareVariablesReadings(self._use())

    @property
    def features(self) -> FeaturesReadings[M]:
        """Firmware: Battery Health and Quiet Fan."""
        return FeaturesReadings(self._use())

    @property
    def inventory(self) -> InventoryReadings[M]:
        """Inventory."""
        return InventoryReadings(self._use())

    @property
    def adapters(self) -> AdaptersReadings[M]:
        """Network adapters."""
        return AdaptersReadings(self._use())

    @property
    def wifi(self) -> WifiReadings[M]:
        """Wi-Fi."""
        return WifiReadings(self._use())

    @property
    def bluetooth(self) -> BluetoothReadings[M]:
        """Bluetooth."""
        return BluetoothReadings(self._use())

    @property
    def system(self) -> SystemReadings[M]:
        """System."""
        return SystemReadings(self._use())

    @property
    def applications(self) -> ApplicationsReadings[M]:
        """Installed applications."""
        return ApplicationsReadings(self._use())

    @property
    def versions(self) -> VersionsReadings[M]:
        """Versions of the maker's software."""
        return VersionsReadings(self._use())

    @property
    def usage(self) -> UsageReadings[M]:
        """Usage."""
        return UsageReadings(self._use())


GROUPS: Tuple[Type[Group[Any]], ...] = (
    SessionReadings,
    IdentityReadings,
    BatteryReadings,
    BatteryEcReadings,
    ThermalReadings,
    ProcessorReadings,
    FirmwareLogReadings,
    FirmwareVariablesReadings,
    FeaturesReadings,
    InventoryReadings,
    AdaptersReadings,
    WifiReadings,
    BluetoothReadings,
    SystemReadings,
    ApplicationsReadings,
    VersionsReadings,
    UsageReadings,
)

READINGS: Tuple[Reading[Any], ...] = tuple(
    reading for group in GROUPS for reading in vars(group).values() if isinstance(reading, Reading)
)
"""All readings in the order of the library's header; those that take an argument are functions."""
