// Generated from exports/exports.json by scripts/generate_bindings.
using System;
using System.Runtime.InteropServices;

namespace VeskSondrel
{
    /// <summary>What a call can need for itself alone.</summary>
    [Flags]
    internal enum Resources
    {
        None = 0,
        Session = 1 << 0,
        DriverDevice = 1 << 1,
        Ec = 1 << 2,
        AcpiDevice = 1 << 3,
        EventLog = 1 << 4,
        FirmwareVariables = 1 << 5,
        AppPath = 1 << 6,
        BatteryHealthSetting = 1 << 7,
        QuietFanSetting = 1 << 8,
        SmartTable = 1 << 9
    }

    /// <summary>The exports. A char of .NET is the library's UTF-16 character everywhere.</summary>
    internal static class NativeMethods
    {
        internal const string Library = "VeskSondrel64";
        private const CallingConvention C = CallingConvention.Cdecl;

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern int InitializeSondrel();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void ShutdownSondrel();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint GetDriverVersion();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint GetRefCount();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint GetIoDllVersion();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint EC_ReadEcFwRev();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint EC_ReadEcChipId();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint EC_ReadEcChipName();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Battery_Read_DesignedCapacity();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Battery_Read_FullChargedCapcity();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Battery_Read_Capacity();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Battery_Read_DesignVoltage();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern float Battery_Read_ASOC();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Battery_Read_CapacityPercentage();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Battery_Read_CycleCount();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Battery_Get_LidStatus();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Battery_Read_ChargingVoltage();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Battery_Read_PackageVoltage();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Battery_Read_Temperature();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern int Battery_Read_Current();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void Battery_Read_CellVoltage([In, Out] byte[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void Battery_Read_ManufactureDate([In, Out] byte[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void Battery_Read_ManufactureName([In, Out] byte[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Thermal_Read_Cpu_Temperature();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Thermal_Read_BoardTS0L_Temperature();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Thermal_Read_BoardTS0R_Temperature();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Thermal_Read_GpuTS1L_Temperature();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Thermal_Read_GpuTS1R_Temperature();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Thermal_Read_BatteryConnector_Temperature();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Thermal_Read_ACFET_Temperature();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Thermal_Read_ChargerChoke_Temperature();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Thermal_Read_GpuVrm_Temperature();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Thermal_Read_UpCpu_Temperature();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Thermal_Read_GpuVram_Temperature();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void Thermal_Read_Fan([In, Out] byte[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern double CPU_ReadCPUUsage();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void CPU_ReadCpuId(uint leaf, ref uint eax, ref uint ebx, ref uint ecx, ref uint edx);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Thermal_Read_CpuPackagePower();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Thermal_Read_CpuDptf_PowerLimit1();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Thermal_Read_CpuDptf_PowerLimit2();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint Power_Read_ACDCMode();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void GetEEPROM_Data([In, Out] char[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void GetSENSOR_WMI_Data([In, Out] char[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint GPNV_Get_RandomUUID([In, Out] byte[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint GPNV_Get_ActivatedTime([In, Out] byte[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint GPNV_Get_ManufacturedTime([In, Out] byte[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint GPNV_Set_RandomUUID(byte[] bytes);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint GPNV_Set_ActivatedTime(byte[] bytes);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint GPNV_Set_ManufacturedTime(byte[] bytes);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern int WMICheckBatteryHealthSupport(byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern int WMICheckQuietFanSupport(byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern int WMIGetBatteryHealth(byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern int WMIGetQuietFan(byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern int WMISetBatteryHealth(int value, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern int WMISetQuietFan(byte value, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern int WMISetAppPath(char[] path, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGet90Number([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetBiosManufacture([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetBiosReleaseDate([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetBiosVersion([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetBoardUUID([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetCPUInfo([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern int WMIGetCPUUsg(byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetComputerFamilyName([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern int WMIGetExternMonitorNum(byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetGPUInfo([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetHDDCaption([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetHDDInfo([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetHDDModel([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetHDDSize([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetHDDTemp([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetLCDModel([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetMacAddress([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetMemManufacture([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetMemModel([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetMemSize([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetModelName([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern int WMIGetMonitorBrightness(byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetOSCountryCode([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetOSInfo([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetProductName([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetSN([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetSSDModel([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetSystemChassisTypes([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint wmiadd(uint value);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetWiFiCardName([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void WMIGetWiFiBytesPersec([In, Out] char[] buffer, byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern int RF_WiFiIsConnected();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void RF_WiFiCardName([In, Out] char[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern int RF_WiFiRssi();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern int RF_WiFiChannel();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void RF_AP_MAC([In, Out] byte[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern int RF_WiFiMaxRate();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern IntPtr RF_PhyMode(IntPtr result);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern int RF_BTIsUsed();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern int RF_BTConnectedNum();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern IntPtr RF_BTConnectedType(IntPtr result);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern int System_Check_S_Mode();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void System_GetCountryCode_ISO2([In, Out] char[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void System_Read_LocalTime([In, Out] byte[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern int System_Read_VolumeLevel(byte initCom);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern uint System_Read_TabletMode();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void GetApplist_x64([In, Out] char[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void GetApplist_x86([In, Out] char[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void GetApplist_UWP([In, Out] char[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void App_Get_UWPApp([In, Out] char[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void App_Get_Win32App([In, Out] char[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void App_Get_Win32WOW6432App([In, Out] char[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void GetInfVersion([In, Out] char[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void GetUWPVersion([In, Out] char[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void AppList_OpenWindows([In, Out] char[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void AppList_CpuUsage([In, Out] char[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void AppList_MemUsage([In, Out] char[] buffer);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
        internal static extern void AppList_HardwareConfig([In, Out] char[] buffer);
    }
}
