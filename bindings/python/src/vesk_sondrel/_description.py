"""States, the exports' types and the resources that calls share. Generated from exports/exports.json by scripts/generate_bindings."""

import enum
from typing import Dict, Tuple

VERSION = "1.0.2.0"


class State(enum.Enum):
    """What an answer means."""

    OK = "ok"
    """A value."""
    FAILED = "failed"
    """The reading was tried and failed."""
    ABSENT = "absent"
    """This machine has no such thing."""
    NOT_READ = "not_read"
    """The read succeeded and found nothing for this field."""
    NO_SESSION = "no_session"
    """No driver session is open, and what the reading needs is not cached."""
    NOT_READY = "not_ready"
    """The sensor has no measurement yet."""


STATES = {
    State.OK: "a value",
    State.FAILED: "the reading was tried and failed",
    State.ABSENT: "this machine has no such thing",
    State.NOT_READ: "the read succeeded and found nothing for this field",
    State.NO_SESSION: "no driver session is open, and what the reading needs is not cached",
    State.NOT_READY: "the sensor has no measurement yet",
}

EXCLUSIVE_RESOURCES = (
    "session",
    "driver_device",
    "ec",
    "acpi_device",
    "event_log",
    "firmware_variables",
    "app_path",
    "battery_health_setting",
    "quiet_fan_setting",
    "smart_table",
)
"""What a call can need for itself alone."""

SIGNATURES: Dict[str, Tuple[str, Tuple[str, ...]]] = {
    "InitializeSondrel": ("int32", ()),
    "ShutdownSondrel": ("none", ()),
    "GetDriverVersion": ("uint32", ()),
    "GetRefCount": ("uint32", ()),
    "GetIoDllVersion": ("uint32", ()),
    "EC_ReadEcFwRev": ("uint32", ()),
    "EC_ReadEcChipId": ("uint32", ()),
    "EC_ReadEcChipName": ("uint32", ()),
    "Battery_Read_DesignedCapacity": ("uint32", ()),
    "Battery_Read_FullChargedCapcity": ("uint32", ()),
    "Battery_Read_Capacity": ("uint32", ()),
    "Battery_Read_DesignVoltage": ("uint32", ()),
    "Battery_Read_ASOC": ("float", ()),
    "Battery_Read_CapacityPercentage": ("uint32", ()),
    "Battery_Read_CycleCount": ("uint32", ()),
    "Battery_Get_LidStatus": ("uint32", ()),
    "Battery_Read_ChargingVoltage": ("uint32", ()),
    "Battery_Read_PackageVoltage": ("uint32", ()),
    "Battery_Read_Temperature": ("uint32", ()),
    "Battery_Read_Current": ("int32", ()),
    "Battery_Read_CellVoltage": ("none", ("text",)),
    "Battery_Read_ManufactureDate": ("none", ("text",)),
    "Battery_Read_ManufactureName": ("none", ("text",)),
    "Thermal_Read_Cpu_Temperature": ("uint32", ()),
    "Thermal_Read_BoardTS0L_Temperature": ("uint32", ()),
    "Thermal_Read_BoardTS0R_Temperature": ("uint32", ()),
    "Thermal_Read_GpuTS1L_Temperature": ("uint32", ()),
    "Thermal_Read_GpuTS1R_Temperature": ("uint32", ()),
    "Thermal_Read_BatteryConnector_Temperature": ("uint32", ()),
    "Thermal_Read_ACFET_Temperature": ("uint32", ()),
    "Thermal_Read_ChargerChoke_Temperature": ("uint32", ()),
    "Thermal_Read_GpuVrm_Temperature": ("uint32", ()),
    "Thermal_Read_UpCpu_Temperature": ("uint32", ()),
    "Thermal_Read_GpuVram_Temperature": ("uint32", ()),
    "Thermal_Read_Fan": ("none", ("text",)),
    "CPU_ReadCPUUsage": ("double", ()),
    "CPU_ReadCpuId": ("none", ("uint32", "out_uint32", "out_uint32", "out_uint32", "out_uint32")),
    "Thermal_Read_CpuPackagePower": ("uint32", ()),
    "Thermal_Read_CpuDptf_PowerLimit1": ("uint32", ()),
    "Thermal_Read_CpuDptf_PowerLimit2": ("uint32", ()),
    "Power_Read_ACDCMode": ("uint32", ()),
    "GetEEPROM_Data": ("none", ("wide_text",)),
    "GetSENSOR_WMI_Data": ("none", ("wide_text",)),
    "GPNV_Get_RandomUUID": ("uint32", ("bytes",)),
    "GPNV_Get_ActivatedTime": ("uint32", ("bytes",)),
    "GPNV_Get_ManufacturedTime": ("uint32", ("bytes",)),
    "GPNV_Set_RandomUUID": ("uint32", ("bytes",)),
    "GPNV_Set_ActivatedTime": ("uint32", ("bytes",)),
    "GPNV_Set_ManufacturedTime": ("uint32", ("bytes",)),
    "WMICheckBatteryHealthSupport": ("int32", ("uint8",)),
    "WMICheckQuietFanSupport": ("int32", ("uint8",)),
    "WMIGetBatteryHealth": ("int32", ("uint8",)),
    "WMIGetQuietFan": ("int32", ("uint8",)),
    "WMISetBatteryHealth": ("int32", ("int32", "uint8")),
    "WMISetQuietFan": ("int32", ("uint8", "uint8")),
    "WMISetAppPath": ("int32", ("wide_text", "uint8")),
    "WMIGet90Number": ("none", ("wide_text", "uint8")),
    "WMIGetBiosManufacture": ("none", ("wide_text", "uint8")),
    "WMIGetBiosReleaseDate": ("none", ("wide_text", "uint8")),
    "WMIGetBiosVersion": ("none", ("wide_text", "uint8")),
    "WMIGetBoardUUID": ("none", ("wide_text", "uint8")),
    "WMIGetCPUInfo": ("none", ("wide_text", "uint8")),
    "WMIGetCPUUsg": ("int32", ("uint8",)),
    "WMIGetComputerFamilyName": ("none", ("wide_text", "uint8")),
    "WMIGetExternMonitorNum": ("int32", ("uint8",)),
    "WMIGetGPUInfo": ("none", ("wide_text", "uint8")),
    "WMIGetHDDCaption": ("none", ("wide_text", "uint8")),
    "WMIGetHDDInfo": ("none", ("wide_text", "uint8")),
    "WMIGetHDDModel": ("none", ("wide_text", "uint8")),
    "WMIGetHDDSize": ("none", ("wide_text", "uint8")),
    "WMIGetHDDTemp": ("none", ("wide_text", "uint8")),
    "WMIGetLCDModel": ("none", ("wide_text", "uint8")),
    "WMIGetMacAddress": ("none", ("wide_text", "uint8")),
    "WMIGetMemManufacture": ("none", ("wide_text", "uint8")),
    "WMIGetMemModel": ("none", ("wide_text", "uint8")),
    "WMIGetMemSize": ("none", ("wide_text", "uint8")),
    "WMIGetModelName": ("none", ("wide_text", "uint8")),
    "WMIGetMonitorBrightness": ("int32", ("uint8",)),
    "WMIGetOSCountryCode": ("none", ("wide_text", "uint8")),
    "WMIGetOSInfo": ("none", ("wide_text", "uint8")),
    "WMIGetProductName": ("none", ("wide_text", "uint8")),
    "WMIGetSN": ("none", ("wide_text", "uint8")),
    "WMIGetSSDModel": ("none", ("wide_text", "uint8")),
    "WMIGetSystemChassisTypes": ("none", ("wide_text", "uint8")),
    "wmiadd": ("uint32", ("uint32",)),
    "WMIGetWiFiCardName": ("none", ("wide_text", "uint8")),
    "WMIGetWiFiBytesPersec": ("none", ("wide_text", "uint8")),
    "RF_WiFiIsConnected": ("int32", ()),
    "RF_WiFiCardName": ("none", ("wide_text",)),
    "RF_WiFiRssi": ("int32", ()),
    "RF_WiFiChannel": ("int32", ()),
    "RF_AP_MAC": ("none", ("text",)),
    "RF_WiFiMaxRate": ("int32", ()),
    "RF_PhyMode": ("string", ()),
    "RF_BTIsUsed": ("int32", ()),
    "RF_BTConnectedNum": ("int32", ()),
    "RF_BTConnectedType": ("string", ()),
    "System_Check_S_Mode": ("int32", ()),
    "System_GetCountryCode_ISO2": ("none", ("wide_text",)),
    "System_Read_LocalTime": ("none", ("text",)),
    "System_Read_VolumeLevel": ("int32", ("uint8",)),
    "System_Read_TabletMode": ("uint32", ()),
    "GetApplist_x64": ("none", ("wide_text",)),
    "GetApplist_x86": ("none", ("wide_text",)),
    "GetApplist_UWP": ("none", ("wide_text",)),
    "App_Get_UWPApp": ("none", ("wide_text",)),
    "App_Get_Win32App": ("none", ("wide_text",)),
    "App_Get_Win32WOW6432App": ("none", ("wide_text",)),
    "GetInfVersion": ("none", ("wide_text",)),
    "GetUWPVersion": ("none", ("wide_text",)),
    "AppList_OpenWindows": ("none", ("wide_text",)),
    "AppList_CpuUsage": ("none", ("wide_text",)),
    "AppList_MemUsage": ("none", ("wide_text",)),
    "AppList_HardwareConfig": ("none", ("wide_text",)),
}
"""The result and the arguments of each export."""
