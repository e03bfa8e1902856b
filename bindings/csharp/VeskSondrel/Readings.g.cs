// Generated from exports/exports.json by scripts/generate_bindings.
using System;
using System.Collections.Generic;
using System.Runtime.CompilerServices;

// Not inlined: a runtime can look for the library while it compiles the caller, before Sondrel.Load() has run there.
namespace VeskSondrel
{
    /// <summary>What an answer means.</summary>
    public enum State
    {
        /// <summary>A value.</summary>
        Ok,

        /// <summary>The reading was tried and failed.</summary>
        Failed,

        /// <summary>This machine has no such thing.</summary>
        Absent,

        /// <summary>The read succeeded and found nothing for this field.</summary>
        NotRead,

        /// <summary>No driver session is open, and what the reading needs is not cached.</summary>
        NoSession,

        /// <summary>The sensor has no measurement yet.</summary>
        NotReady
    }

    /// <summary>Battery or AC power.</summary>
    public enum PowerSource : long
    {
        /// <summary>On battery.</summary>
        Battery = 0,

        /// <summary>On AC power.</summary>
        Ac = 1
    }

    /// <summary>Whether the firmware has Quiet Fan, and its state.</summary>
    public enum QuietFanSupport : long
    {
        /// <summary>Supported, off.</summary>
        Off = 0,

        /// <summary>Supported, on.</summary>
        On = 1
    }

    /// <summary>Model, size in bytes and media type (3 hard disk, 4 SSD) of each disk.</summary>
    public sealed class Disk
    {
        internal Disk(string model, long? size, long? mediatype)
        {
            Model = model;
            Size = size;
            MediaType = mediatype;
        }

        /// <summary>Model.</summary>
        public string Model { get; }

        /// <summary>Size, in bytes.</summary>
        public long? Size { get; }

        /// <summary>Media type.</summary>
        public long? MediaType { get; }
    }

    /// <summary>Session and versions.</summary>
    public sealed class SessionReadings
    {
        private readonly Readings owner;

        internal SessionReadings(Readings owner)
        {
            this.owner = owner;
        }

        /// <summary>Version word of the I/O driver.</summary>
        /// <remarks>
        /// Failed or no session: no session is open, or the driver refused.
        /// Needs a session.
        /// Export: GetDriverVersion.
        /// </remarks>
        public uint? DriverVersion()
        {
            Failure failure;
            return DriverVersion(out failure);
        }

        /// <summary>Version word of the I/O driver.</summary>
        /// <remarks>
        /// Failed or no session: no session is open, or the driver refused.
        /// Needs a session.
        /// Export: GetDriverVersion.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? DriverVersion(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.GetDriverVersion.Uses))
            {
                answer = NativeMethods.GetDriverVersion();
            }
            return Call.Number(Entries.GetDriverVersion, answer, out failure);
        }

        /// <summary>Reference count of the I/O driver.</summary>
        /// <remarks>
        /// Failed or no session: no session is open, or the driver refused.
        /// Needs a session.
        /// Export: GetRefCount.
        /// </remarks>
        public uint? DriverReferences()
        {
            Failure failure;
            return DriverReferences(out failure);
        }

        /// <summary>Reference count of the I/O driver.</summary>
        /// <remarks>
        /// Failed or no session: no session is open, or the driver refused.
        /// Needs a session.
        /// Export: GetRefCount.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? DriverReferences(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.GetRefCount.Uses))
            {
                answer = NativeMethods.GetRefCount();
            }
            return Call.Number(Entries.GetRefCount, answer, out failure);
        }

        /// <summary>Version of the I/O interface, a constant.</summary>
        /// <remarks>
        /// Export: GetIoDllVersion.
        /// </remarks>
        public uint? IoVersion()
        {
            Failure failure;
            return IoVersion(out failure);
        }

        /// <summary>Version of the I/O interface, a constant.</summary>
        /// <remarks>
        /// Export: GetIoDllVersion.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? IoVersion(out Failure failure)
        {
            owner.Use();
            return Call.Number(Entries.GetIoDllVersion, NativeMethods.GetIoDllVersion(), out failure);
        }
    }

    /// <summary>Embedded controller: identity.</summary>
    public sealed class IdentityReadings
    {
        private readonly Readings owner;

        internal IdentityReadings(Readings owner)
        {
            this.owner = owner;
        }

        /// <summary>Firmware revision code of the EC: two letters.</summary>
        /// <remarks>
        /// The letters that the export packs into a number.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Needs a session while the value is not cached in the registry.
        /// The first value that was read is cached in the registry permanently.
        /// Export: EC_ReadEcFwRev.
        /// </remarks>
        public string FirmwareRevision()
        {
            Failure failure;
            return FirmwareRevision(out failure);
        }

        /// <summary>Firmware revision code of the EC: two letters.</summary>
        /// <remarks>
        /// The letters that the export packs into a number.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Needs a session while the value is not cached in the registry.
        /// The first value that was read is cached in the registry permanently.
        /// Export: EC_ReadEcFwRev.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string FirmwareRevision(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.EC_ReadEcFwRev.Uses))
            {
                answer = NativeMethods.EC_ReadEcFwRev();
            }
            return Call.Letters(Entries.EC_ReadEcFwRev, answer, out failure);
        }

        /// <summary>Chip id of the EC, which distinguishes variants of one revision code.</summary>
        /// <remarks>
        /// Range: 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Needs a session while the value is not cached in the registry.
        /// The first value that was read is cached in the registry permanently.
        /// Export: EC_ReadEcChipId.
        /// </remarks>
        public uint? ChipId()
        {
            Failure failure;
            return ChipId(out failure);
        }

        /// <summary>Chip id of the EC, which distinguishes variants of one revision code.</summary>
        /// <remarks>
        /// Range: 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Needs a session while the value is not cached in the registry.
        /// The first value that was read is cached in the registry permanently.
        /// Export: EC_ReadEcChipId.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? ChipId(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.EC_ReadEcChipId.Uses))
            {
                answer = NativeMethods.EC_ReadEcChipId();
            }
            return Call.Number(Entries.EC_ReadEcChipId, answer, out failure);
        }

        /// <summary>Chip name of the EC: four characters.</summary>
        /// <remarks>
        /// The letters that the export packs into a number.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Needs a session while the value is not cached in the registry.
        /// The first value that was read is cached in the registry permanently.
        /// Export: EC_ReadEcChipName.
        /// </remarks>
        public string ChipName()
        {
            Failure failure;
            return ChipName(out failure);
        }

        /// <summary>Chip name of the EC: four characters.</summary>
        /// <remarks>
        /// The letters that the export packs into a number.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Needs a session while the value is not cached in the registry.
        /// The first value that was read is cached in the registry permanently.
        /// Export: EC_ReadEcChipName.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string ChipName(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.EC_ReadEcChipName.Uses))
            {
                answer = NativeMethods.EC_ReadEcChipName();
            }
            return Call.Letters(Entries.EC_ReadEcChipName, answer, out failure);
        }
    }

    /// <summary>Battery: from the system's battery device.</summary>
    public sealed class BatteryReadings
    {
        private readonly Readings owner;

        internal BatteryReadings(Readings owner)
        {
            this.owner = owner;
        }

        /// <summary>Capacity that the battery was designed for.</summary>
        /// <remarks>
        /// Unit: milliwatt hours (mWh).
        /// Absent or failed: no battery, or the device does not give this value.
        /// Export: Battery_Read_DesignedCapacity.
        /// </remarks>
        public uint? DesignedCapacity()
        {
            Failure failure;
            return DesignedCapacity(out failure);
        }

        /// <summary>Capacity that the battery was designed for.</summary>
        /// <remarks>
        /// Unit: milliwatt hours (mWh).
        /// Absent or failed: no battery, or the device does not give this value.
        /// Export: Battery_Read_DesignedCapacity.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? DesignedCapacity(out Failure failure)
        {
            owner.Use();
            return Call.Number(Entries.Battery_Read_DesignedCapacity, NativeMethods.Battery_Read_DesignedCapacity(), out failure);
        }

        /// <summary>Capacity of the full battery at present.</summary>
        /// <remarks>
        /// Unit: milliwatt hours (mWh).
        /// Absent or failed: no battery, or the device does not give this value.
        /// Export: Battery_Read_FullChargedCapcity.
        /// </remarks>
        public uint? FullChargedCapacity()
        {
            Failure failure;
            return FullChargedCapacity(out failure);
        }

        /// <summary>Capacity of the full battery at present.</summary>
        /// <remarks>
        /// Unit: milliwatt hours (mWh).
        /// Absent or failed: no battery, or the device does not give this value.
        /// Export: Battery_Read_FullChargedCapcity.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? FullChargedCapacity(out Failure failure)
        {
            owner.Use();
            return Call.Number(Entries.Battery_Read_FullChargedCapcity, NativeMethods.Battery_Read_FullChargedCapcity(), out failure);
        }

        /// <summary>Remaining charge.</summary>
        /// <remarks>
        /// Unit: milliwatt hours (mWh).
        /// Absent or failed: no battery, or the device does not give this value.
        /// Export: Battery_Read_Capacity.
        /// </remarks>
        public uint? Capacity()
        {
            Failure failure;
            return Capacity(out failure);
        }

        /// <summary>Remaining charge.</summary>
        /// <remarks>
        /// Unit: milliwatt hours (mWh).
        /// Absent or failed: no battery, or the device does not give this value.
        /// Export: Battery_Read_Capacity.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? Capacity(out Failure failure)
        {
            owner.Use();
            return Call.Number(Entries.Battery_Read_Capacity, NativeMethods.Battery_Read_Capacity(), out failure);
        }

        /// <summary>Present voltage, from the system's battery device.</summary>
        /// <remarks>
        /// Unit: millivolts (mV).
        /// Absent or failed: no battery, or the device does not give this value.
        /// Export: Battery_Read_DesignVoltage.
        /// </remarks>
        public uint? PresentVoltage()
        {
            Failure failure;
            return PresentVoltage(out failure);
        }

        /// <summary>Present voltage, from the system's battery device.</summary>
        /// <remarks>
        /// Unit: millivolts (mV).
        /// Absent or failed: no battery, or the device does not give this value.
        /// Export: Battery_Read_DesignVoltage.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? PresentVoltage(out Failure failure)
        {
            owner.Use();
            return Call.Number(Entries.Battery_Read_DesignVoltage, NativeMethods.Battery_Read_DesignVoltage(), out failure);
        }

        /// <summary>Full capacity as a fraction of the designed capacity.</summary>
        /// <remarks>
        /// A fraction: 1 is the whole.
        /// Absent or failed: no battery, or the device does not give this value.
        /// Export: Battery_Read_ASOC.
        /// </remarks>
        public float? Health()
        {
            Failure failure;
            return Health(out failure);
        }

        /// <summary>Full capacity as a fraction of the designed capacity.</summary>
        /// <remarks>
        /// A fraction: 1 is the whole.
        /// Absent or failed: no battery, or the device does not give this value.
        /// Export: Battery_Read_ASOC.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public float? Health(out Failure failure)
        {
            owner.Use();
            return Call.Number(Entries.Battery_Read_ASOC, NativeMethods.Battery_Read_ASOC(), out failure);
        }

        /// <summary>Remaining charge, rounded to a multiple of ten.</summary>
        /// <remarks>
        /// Unit: percent (%), 0 to 4294967290.
        /// 0 can mean: empty, or no battery.
        /// Export: Battery_Read_CapacityPercentage.
        /// </remarks>
        public uint? Charge()
        {
            Failure failure;
            return Charge(out failure);
        }

        /// <summary>Remaining charge, rounded to a multiple of ten.</summary>
        /// <remarks>
        /// Unit: percent (%), 0 to 4294967290.
        /// 0 can mean: empty, or no battery.
        /// Export: Battery_Read_CapacityPercentage.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? Charge(out Failure failure)
        {
            owner.Use();
            return Call.Number(Entries.Battery_Read_CapacityPercentage, NativeMethods.Battery_Read_CapacityPercentage(), out failure);
        }
    }

    /// <summary>Battery: from the embedded controller.</summary>
    public sealed class BatteryEcReadings
    {
        private readonly Readings owner;

        internal BatteryEcReadings(Readings owner)
        {
            this.owner = owner;
        }

        /// <summary>Charge cycles so far.</summary>
        /// <remarks>
        /// Unit: cycles.
        /// Failed or no session: an EC command failed, or no session is open.
        /// 0 can mean: no cycles, or this machine does not count them.
        /// Needs a session on machines with some firmware revision codes.
        /// Export: Battery_Read_CycleCount.
        /// </remarks>
        public uint? CycleCount()
        {
            Failure failure;
            return CycleCount(out failure);
        }

        /// <summary>Charge cycles so far.</summary>
        /// <remarks>
        /// Unit: cycles.
        /// Failed or no session: an EC command failed, or no session is open.
        /// 0 can mean: no cycles, or this machine does not count them.
        /// Needs a session on machines with some firmware revision codes.
        /// Export: Battery_Read_CycleCount.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? CycleCount(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.Battery_Read_CycleCount.Uses))
            {
                answer = NativeMethods.Battery_Read_CycleCount();
            }
            return Call.Number(Entries.Battery_Read_CycleCount, answer, out failure);
        }

        /// <summary>Lid byte of the EC.</summary>
        /// <remarks>
        /// Range: 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// 0 can mean: the byte is 0, or no such reading on this machine.
        /// Needs a session.
        /// Export: Battery_Get_LidStatus.
        /// </remarks>
        public uint? LidStatus()
        {
            Failure failure;
            return LidStatus(out failure);
        }

        /// <summary>Lid byte of the EC.</summary>
        /// <remarks>
        /// Range: 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// 0 can mean: the byte is 0, or no such reading on this machine.
        /// Needs a session.
        /// Export: Battery_Get_LidStatus.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? LidStatus(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.Battery_Get_LidStatus.Uses))
            {
                answer = NativeMethods.Battery_Get_LidStatus();
            }
            return Call.Number(Entries.Battery_Get_LidStatus, answer, out failure);
        }

        /// <summary>Charging voltage, in the EC's own unit.</summary>
        /// <remarks>
        /// Unit: the firmware's or the driver's own unit, which is not documented, 0 to 65535.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
        /// Needs a session.
        /// Export: Battery_Read_ChargingVoltage.
        /// </remarks>
        public uint? ChargingVoltage()
        {
            Failure failure;
            return ChargingVoltage(out failure);
        }

        /// <summary>Charging voltage, in the EC's own unit.</summary>
        /// <remarks>
        /// Unit: the firmware's or the driver's own unit, which is not documented, 0 to 65535.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
        /// Needs a session.
        /// Export: Battery_Read_ChargingVoltage.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? ChargingVoltage(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.Battery_Read_ChargingVoltage.Uses))
            {
                answer = NativeMethods.Battery_Read_ChargingVoltage();
            }
            return Call.Number(Entries.Battery_Read_ChargingVoltage, answer, out failure);
        }

        /// <summary>Voltage of the battery pack, in the EC's own unit.</summary>
        /// <remarks>
        /// Unit: the firmware's or the driver's own unit, which is not documented, 0 to 65535.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
        /// Needs a session.
        /// Export: Battery_Read_PackageVoltage.
        /// </remarks>
        public uint? PackageVoltage()
        {
            Failure failure;
            return PackageVoltage(out failure);
        }

        /// <summary>Voltage of the battery pack, in the EC's own unit.</summary>
        /// <remarks>
        /// Unit: the firmware's or the driver's own unit, which is not documented, 0 to 65535.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
        /// Needs a session.
        /// Export: Battery_Read_PackageVoltage.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? PackageVoltage(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.Battery_Read_PackageVoltage.Uses))
            {
                answer = NativeMethods.Battery_Read_PackageVoltage();
            }
            return Call.Number(Entries.Battery_Read_PackageVoltage, answer, out failure);
        }

        /// <summary>Temperature of the battery pack, in the EC's own unit.</summary>
        /// <remarks>
        /// Unit: the firmware's or the driver's own unit, which is not documented, 0 to 65535.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
        /// Needs a session.
        /// Export: Battery_Read_Temperature.
        /// </remarks>
        public uint? Temperature()
        {
            Failure failure;
            return Temperature(out failure);
        }

        /// <summary>Temperature of the battery pack, in the EC's own unit.</summary>
        /// <remarks>
        /// Unit: the firmware's or the driver's own unit, which is not documented, 0 to 65535.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
        /// Needs a session.
        /// Export: Battery_Read_Temperature.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? Temperature(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.Battery_Read_Temperature.Uses))
            {
                answer = NativeMethods.Battery_Read_Temperature();
            }
            return Call.Number(Entries.Battery_Read_Temperature, answer, out failure);
        }

        /// <summary>Battery current, in the EC's own unit.</summary>
        /// <remarks>
        /// Unit: the firmware's or the driver's own unit, which is not documented, -32768 to 32767.
        /// Failed or no session: an EC command failed, or no session is open; can also be an ordinary value.
        /// 0 can mean: no current, or no such reading on this machine.
        /// Needs a session.
        /// Export: Battery_Read_Current.
        /// </remarks>
        public int? Current()
        {
            Failure failure;
            return Current(out failure);
        }

        /// <summary>Battery current, in the EC's own unit.</summary>
        /// <remarks>
        /// Unit: the firmware's or the driver's own unit, which is not documented, -32768 to 32767.
        /// Failed or no session: an EC command failed, or no session is open; can also be an ordinary value.
        /// 0 can mean: no current, or no such reading on this machine.
        /// Needs a session.
        /// Export: Battery_Read_Current.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public int? Current(out Failure failure)
        {
            owner.Use();
            int answer;
            using (new Locks(Entries.Battery_Read_Current.Uses))
            {
                answer = NativeMethods.Battery_Read_Current();
            }
            return Call.Number(Entries.Battery_Read_Current, answer, out failure);
        }

        /// <summary>Voltages of cells 0 to 3, in the EC's own unit.</summary>
        /// <remarks>
        /// Unit: the firmware's or the driver's own unit, which is not documented, 0 to 65535.
        /// Failed or no session (one element): an EC command failed, or no session is open.
        /// Absent or no session (one element): no such cell on this machine, or the EC cannot be identified; can also be an ordinary value.
        /// Needs a session.
        /// Waits 0 to 120 ms.
        /// Threads: no other call may use meanwhile: the EC.
        /// Export: Battery_Read_CellVoltage.
        /// </remarks>
        public Element[] CellVoltages()
        {
            Failure failure;
            return CellVoltages(out failure);
        }

        /// <summary>Voltages of cells 0 to 3, in the EC's own unit.</summary>
        /// <remarks>
        /// Unit: the firmware's or the driver's own unit, which is not documented, 0 to 65535.
        /// Failed or no session (one element): an EC command failed, or no session is open.
        /// Absent or no session (one element): no such cell on this machine, or the EC cannot be identified; can also be an ordinary value.
        /// Needs a session.
        /// Waits 0 to 120 ms.
        /// Threads: no other call may use meanwhile: the EC.
        /// Export: Battery_Read_CellVoltage.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public Element[] CellVoltages(out Failure failure)
        {
            owner.Use();
            return Call.Numbers(Entries.Battery_Read_CellVoltage, Call.Narrow(Entries.Battery_Read_CellVoltage, 44, buffer => NativeMethods.Battery_Read_CellVoltage(buffer), out failure), false);
        }

        /// <summary>Date of manufacture of the battery: year-month-day.</summary>
        /// <remarks>
        /// Absent or failed or no session: the battery gives no date, or an EC command failed.
        /// Needs a session.
        /// Waits 0 to 30 ms.
        /// Threads: no other call may use meanwhile: the EC.
        /// Export: Battery_Read_ManufactureDate.
        /// </remarks>
        public string ManufactureDate()
        {
            Failure failure;
            return ManufactureDate(out failure);
        }

        /// <summary>Date of manufacture of the battery: year-month-day.</summary>
        /// <remarks>
        /// Absent or failed or no session: the battery gives no date, or an EC command failed.
        /// Needs a session.
        /// Waits 0 to 30 ms.
        /// Threads: no other call may use meanwhile: the EC.
        /// Export: Battery_Read_ManufactureDate.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string ManufactureDate(out Failure failure)
        {
            owner.Use();
            return Call.Narrow(Entries.Battery_Read_ManufactureDate, 11, buffer => NativeMethods.Battery_Read_ManufactureDate(buffer), out failure);
        }

        /// <summary>Manufacturer of the battery.</summary>
        /// <remarks>
        /// Absent or failed or no session: the battery gives no name, or an EC command failed.
        /// Needs a session.
        /// Export: Battery_Read_ManufactureName.
        /// </remarks>
        public string ManufactureName()
        {
            Failure failure;
            return ManufactureName(out failure);
        }

        /// <summary>Manufacturer of the battery.</summary>
        /// <remarks>
        /// Absent or failed or no session: the battery gives no name, or an EC command failed.
        /// Needs a session.
        /// Export: Battery_Read_ManufactureName.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string ManufactureName(out Failure failure)
        {
            owner.Use();
            return Call.Narrow(Entries.Battery_Read_ManufactureName, 11, buffer => NativeMethods.Battery_Read_ManufactureName(buffer), out failure);
        }
    }

    /// <summary>Temperatures and fans.</summary>
    public sealed class ThermalReadings
    {
        private readonly Readings owner;

        internal ThermalReadings(Readings owner)
        {
            this.owner = owner;
        }

        /// <summary>Processor.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_Cpu_Temperature.
        /// </remarks>
        public uint? CpuTemperature()
        {
            Failure failure;
            return CpuTemperature(out failure);
        }

        /// <summary>Processor.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_Cpu_Temperature.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? CpuTemperature(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.Thermal_Read_Cpu_Temperature.Uses))
            {
                answer = NativeMethods.Thermal_Read_Cpu_Temperature();
            }
            return Call.Number(Entries.Thermal_Read_Cpu_Temperature, answer, out failure);
        }

        /// <summary>Board, sensor TS0 local.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_BoardTS0L_Temperature.
        /// </remarks>
        public uint? BoardLocalTemperature()
        {
            Failure failure;
            return BoardLocalTemperature(out failure);
        }

        /// <summary>Board, sensor TS0 local.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_BoardTS0L_Temperature.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? BoardLocalTemperature(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.Thermal_Read_BoardTS0L_Temperature.Uses))
            {
                answer = NativeMethods.Thermal_Read_BoardTS0L_Temperature();
            }
            return Call.Number(Entries.Thermal_Read_BoardTS0L_Temperature, answer, out failure);
        }

        /// <summary>Board, sensor TS0 remote.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_BoardTS0R_Temperature.
        /// </remarks>
        public uint? BoardRemoteTemperature()
        {
            Failure failure;
            return BoardRemoteTemperature(out failure);
        }

        /// <summary>Board, sensor TS0 remote.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_BoardTS0R_Temperature.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? BoardRemoteTemperature(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.Thermal_Read_BoardTS0R_Temperature.Uses))
            {
                answer = NativeMethods.Thermal_Read_BoardTS0R_Temperature();
            }
            return Call.Number(Entries.Thermal_Read_BoardTS0R_Temperature, answer, out failure);
        }

        /// <summary>Graphics processor, sensor TS1 local.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_GpuTS1L_Temperature.
        /// </remarks>
        public uint? GpuLocalTemperature()
        {
            Failure failure;
            return GpuLocalTemperature(out failure);
        }

        /// <summary>Graphics processor, sensor TS1 local.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_GpuTS1L_Temperature.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? GpuLocalTemperature(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.Thermal_Read_GpuTS1L_Temperature.Uses))
            {
                answer = NativeMethods.Thermal_Read_GpuTS1L_Temperature();
            }
            return Call.Number(Entries.Thermal_Read_GpuTS1L_Temperature, answer, out failure);
        }

        /// <summary>Graphics processor, sensor TS1 remote.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_GpuTS1R_Temperature.
        /// </remarks>
        public uint? GpuRemoteTemperature()
        {
            Failure failure;
            return GpuRemoteTemperature(out failure);
        }

        /// <summary>Graphics processor, sensor TS1 remote.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or no session: no such reading on this machine, or the EC cannot be identified; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_GpuTS1R_Temperature.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? GpuRemoteTemperature(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.Thermal_Read_GpuTS1R_Temperature.Uses))
            {
                answer = NativeMethods.Thermal_Read_GpuTS1R_Temperature();
            }
            return Call.Number(Entries.Thermal_Read_GpuTS1R_Temperature, answer, out failure);
        }

        /// <summary>Battery connector.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_BatteryConnector_Temperature.
        /// </remarks>
        public uint? BatteryConnectorTemperature()
        {
            Failure failure;
            return BatteryConnectorTemperature(out failure);
        }

        /// <summary>Battery connector.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_BatteryConnector_Temperature.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? BatteryConnectorTemperature(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.Thermal_Read_BatteryConnector_Temperature.Uses))
            {
                answer = NativeMethods.Thermal_Read_BatteryConnector_Temperature();
            }
            return Call.Number(Entries.Thermal_Read_BatteryConnector_Temperature, answer, out failure);
        }

        /// <summary>Transistor of the AC input.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_ACFET_Temperature.
        /// </remarks>
        public uint? AcFetTemperature()
        {
            Failure failure;
            return AcFetTemperature(out failure);
        }

        /// <summary>Transistor of the AC input.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_ACFET_Temperature.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? AcFetTemperature(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.Thermal_Read_ACFET_Temperature.Uses))
            {
                answer = NativeMethods.Thermal_Read_ACFET_Temperature();
            }
            return Call.Number(Entries.Thermal_Read_ACFET_Temperature, answer, out failure);
        }

        /// <summary>Choke of the charger.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_ChargerChoke_Temperature.
        /// </remarks>
        public uint? ChargerChokeTemperature()
        {
            Failure failure;
            return ChargerChokeTemperature(out failure);
        }

        /// <summary>Choke of the charger.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_ChargerChoke_Temperature.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? ChargerChokeTemperature(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.Thermal_Read_ChargerChoke_Temperature.Uses))
            {
                answer = NativeMethods.Thermal_Read_ChargerChoke_Temperature();
            }
            return Call.Number(Entries.Thermal_Read_ChargerChoke_Temperature, answer, out failure);
        }

        /// <summary>Voltage regulator of the graphics processor.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_GpuVrm_Temperature.
        /// </remarks>
        public uint? GpuVrmTemperature()
        {
            Failure failure;
            return GpuVrmTemperature(out failure);
        }

        /// <summary>Voltage regulator of the graphics processor.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_GpuVrm_Temperature.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? GpuVrmTemperature(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.Thermal_Read_GpuVrm_Temperature.Uses))
            {
                answer = NativeMethods.Thermal_Read_GpuVrm_Temperature();
            }
            return Call.Number(Entries.Thermal_Read_GpuVrm_Temperature, answer, out failure);
        }

        /// <summary>Above the processor.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_UpCpu_Temperature.
        /// </remarks>
        public uint? UpperCpuTemperature()
        {
            Failure failure;
            return UpperCpuTemperature(out failure);
        }

        /// <summary>Above the processor.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_UpCpu_Temperature.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? UpperCpuTemperature(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.Thermal_Read_UpCpu_Temperature.Uses))
            {
                answer = NativeMethods.Thermal_Read_UpCpu_Temperature();
            }
            return Call.Number(Entries.Thermal_Read_UpCpu_Temperature, answer, out failure);
        }

        /// <summary>Graphics memory.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_GpuVram_Temperature.
        /// </remarks>
        public uint? GpuVramTemperature()
        {
            Failure failure;
            return GpuVramTemperature(out failure);
        }

        /// <summary>Graphics memory.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Absent or not ready or no session: no such reading on this machine, or the sensor is not ready; can also be an ordinary value.
        /// Needs a session.
        /// Export: Thermal_Read_GpuVram_Temperature.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? GpuVramTemperature(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.Thermal_Read_GpuVram_Temperature.Uses))
            {
                answer = NativeMethods.Thermal_Read_GpuVram_Temperature();
            }
            return Call.Number(Entries.Thermal_Read_GpuVram_Temperature, answer, out failure);
        }

        /// <summary>Speeds of fans 0 to 3.</summary>
        /// <remarks>
        /// Unit: revolutions per minute (rpm), 0 to 2156250.
        /// Failed or no session (one element): an EC command failed, or no session is open.
        /// 0 (one element) can mean: the fan does not turn, or this machine does not have it.
        /// Needs a session.
        /// Waits 0 to 30 ms.
        /// Threads: no other call may use meanwhile: the EC.
        /// Export: Thermal_Read_Fan.
        /// </remarks>
        public Element[] FanSpeeds()
        {
            Failure failure;
            return FanSpeeds(out failure);
        }

        /// <summary>Speeds of fans 0 to 3.</summary>
        /// <remarks>
        /// Unit: revolutions per minute (rpm), 0 to 2156250.
        /// Failed or no session (one element): an EC command failed, or no session is open.
        /// 0 (one element) can mean: the fan does not turn, or this machine does not have it.
        /// Needs a session.
        /// Waits 0 to 30 ms.
        /// Threads: no other call may use meanwhile: the EC.
        /// Export: Thermal_Read_Fan.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public Element[] FanSpeeds(out Failure failure)
        {
            owner.Use();
            return Call.Numbers(Entries.Thermal_Read_Fan, Call.Narrow(Entries.Thermal_Read_Fan, 44, buffer => NativeMethods.Thermal_Read_Fan(buffer), out failure), false);
        }
    }

    /// <summary>Processor and power.</summary>
    public sealed class ProcessorReadings
    {
        private readonly Readings owner;

        internal ProcessorReadings(Readings owner)
        {
            this.owner = owner;
        }

        /// <summary>Busy fraction of all processors together, measured for one second.</summary>
        /// <remarks>
        /// A fraction: 1 is the whole.
        /// 0 can mean: idle, or a sample failed.
        /// Waits 1000 ms.
        /// Export: CPU_ReadCPUUsage.
        /// </remarks>
        public double? Usage()
        {
            Failure failure;
            return Usage(out failure);
        }

        /// <summary>Busy fraction of all processors together, measured for one second.</summary>
        /// <remarks>
        /// A fraction: 1 is the whole.
        /// 0 can mean: idle, or a sample failed.
        /// Waits 1000 ms.
        /// Export: CPU_ReadCPUUsage.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public double? Usage(out Failure failure)
        {
            owner.Use();
            return Call.Number(Entries.CPU_ReadCPUUsage, NativeMethods.CPU_ReadCPUUsage(), out failure);
        }

        /// <summary>CPUID leaf: EAX EBX ECX EDX.</summary>
        /// <remarks>
        /// leaf: the leaf.
        /// No session: no session is open.
        /// Failed: the driver refused; can also be an ordinary value.
        /// Needs a session.
        /// Export: CPU_ReadCpuId.
        /// </remarks>
        public Registers? Cpuid(uint leaf)
        {
            Failure failure;
            return Cpuid(leaf, out failure);
        }

        /// <summary>CPUID leaf: EAX EBX ECX EDX.</summary>
        /// <remarks>
        /// leaf: the leaf.
        /// No session: no session is open.
        /// Failed: the driver refused; can also be an ordinary value.
        /// Needs a session.
        /// Export: CPU_ReadCpuId.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public Registers? Cpuid(uint leaf, out Failure failure)
        {
            owner.Use();
            return Call.CpuIdOf(Entries.CPU_ReadCpuId, leaf, NativeMethods.CPU_ReadCpuId, out failure);
        }

        /// <summary>Power of the processor package, in the driver's own unit.</summary>
        /// <remarks>
        /// Unit: the firmware's or the driver's own unit, which is not documented.
        /// Absent or failed or no session: no session is open, or the processor has no such value.
        /// Needs a session.
        /// Export: Thermal_Read_CpuPackagePower.
        /// </remarks>
        public uint? PackagePower()
        {
            Failure failure;
            return PackagePower(out failure);
        }

        /// <summary>Power of the processor package, in the driver's own unit.</summary>
        /// <remarks>
        /// Unit: the firmware's or the driver's own unit, which is not documented.
        /// Absent or failed or no session: no session is open, or the processor has no such value.
        /// Needs a session.
        /// Export: Thermal_Read_CpuPackagePower.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? PackagePower(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.Thermal_Read_CpuPackagePower.Uses))
            {
                answer = NativeMethods.Thermal_Read_CpuPackagePower();
            }
            return Call.Number(Entries.Thermal_Read_CpuPackagePower, answer, out failure);
        }

        /// <summary>Power limit 1, in the driver's own unit.</summary>
        /// <remarks>
        /// Unit: the firmware's or the driver's own unit, which is not documented.
        /// Absent or failed or no session: no session is open, or the processor has no such value.
        /// Needs a session.
        /// Export: Thermal_Read_CpuDptf_PowerLimit1.
        /// </remarks>
        public uint? PowerLimit1()
        {
            Failure failure;
            return PowerLimit1(out failure);
        }

        /// <summary>Power limit 1, in the driver's own unit.</summary>
        /// <remarks>
        /// Unit: the firmware's or the driver's own unit, which is not documented.
        /// Absent or failed or no session: no session is open, or the processor has no such value.
        /// Needs a session.
        /// Export: Thermal_Read_CpuDptf_PowerLimit1.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? PowerLimit1(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.Thermal_Read_CpuDptf_PowerLimit1.Uses))
            {
                answer = NativeMethods.Thermal_Read_CpuDptf_PowerLimit1();
            }
            return Call.Number(Entries.Thermal_Read_CpuDptf_PowerLimit1, answer, out failure);
        }

        /// <summary>Power limit 2, in the driver's own unit.</summary>
        /// <remarks>
        /// Unit: the firmware's or the driver's own unit, which is not documented.
        /// Absent or failed or no session: no session is open, or the processor has no such value.
        /// Needs a session.
        /// Export: Thermal_Read_CpuDptf_PowerLimit2.
        /// </remarks>
        public uint? PowerLimit2()
        {
            Failure failure;
            return PowerLimit2(out failure);
        }

        /// <summary>Power limit 2, in the driver's own unit.</summary>
        /// <remarks>
        /// Unit: the firmware's or the driver's own unit, which is not documented.
        /// Absent or failed or no session: no session is open, or the processor has no such value.
        /// Needs a session.
        /// Export: Thermal_Read_CpuDptf_PowerLimit2.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? PowerLimit2(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.Thermal_Read_CpuDptf_PowerLimit2.Uses))
            {
                answer = NativeMethods.Thermal_Read_CpuDptf_PowerLimit2();
            }
            return Call.Number(Entries.Thermal_Read_CpuDptf_PowerLimit2, answer, out failure);
        }

        /// <summary>Battery or AC power.</summary>
        /// <remarks>
        /// Failed or absent: the system does not know.
        /// Export: Power_Read_ACDCMode.
        /// </remarks>
        public PowerSource? PowerSource()
        {
            Failure failure;
            return PowerSource(out failure);
        }

        /// <summary>Battery or AC power.</summary>
        /// <remarks>
        /// Failed or absent: the system does not know.
        /// Export: Power_Read_ACDCMode.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public PowerSource? PowerSource(out Failure failure)
        {
            owner.Use();
            return Call.Choice<PowerSource>(Entries.Power_Read_ACDCMode, NativeMethods.Power_Read_ACDCMode(), out failure);
        }
    }

    /// <summary>Firmware: event log and sensor.</summary>
    public sealed class FirmwareLogReadings
    {
        private readonly Readings owner;

        internal FirmwareLogReadings(Readings owner)
        {
            this.owner = owner;
        }

        /// <summary>Version, registers and event log of the firmware's store.</summary>
        /// <remarks>
        /// JSON in which nothing is escaped, so that a name can make it ill-formed.
        /// Failed or absent: the firmware's device does not answer.
        /// Threads: no other call may use meanwhile: the one handle of the firmware's device; the firmware's position in its event log.
        /// Export: GetEEPROM_Data.
        /// The library does not know the size of its buffer; 65536 characters are enough for known machines.
        /// </remarks>
        public string EventStore(int characters = 65536)
        {
            Failure failure;
            return EventStore(out failure, characters);
        }

        /// <summary>Version, registers and event log of the firmware's store.</summary>
        /// <remarks>
        /// JSON in which nothing is escaped, so that a name can make it ill-formed.
        /// Failed or absent: the firmware's device does not answer.
        /// Threads: no other call may use meanwhile: the one handle of the firmware's device; the firmware's position in its event log.
        /// Export: GetEEPROM_Data.
        /// The library does not know the size of its buffer; 65536 characters are enough for known machines.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string EventStore(out Failure failure, int characters = 65536)
        {
            owner.Use();
            return Call.Wide(Entries.GetEEPROM_Data, characters, buffer => NativeMethods.GetEEPROM_Data(buffer), out failure);
        }

        /// <summary>Status of the proximity sensor.</summary>
        /// <remarks>
        /// JSON in which nothing is escaped, so that a name can make it ill-formed.
        /// Failed or absent: the sensor could not be read.
        /// Threads: no other call may use meanwhile: the one handle of the firmware's device.
        /// Export: GetSENSOR_WMI_Data.
        /// </remarks>
        public string ProximitySensor()
        {
            Failure failure;
            return ProximitySensor(out failure);
        }

        /// <summary>Status of the proximity sensor.</summary>
        /// <remarks>
        /// JSON in which nothing is escaped, so that a name can make it ill-formed.
        /// Failed or absent: the sensor could not be read.
        /// Threads: no other call may use meanwhile: the one handle of the firmware's device.
        /// Export: GetSENSOR_WMI_Data.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string ProximitySensor(out Failure failure)
        {
            owner.Use();
            return Call.Wide(Entries.GetSENSOR_WMI_Data, 26, buffer => NativeMethods.GetSENSOR_WMI_Data(buffer), out failure);
        }
    }

    /// <summary>Firmware: variables.</summary>
    public sealed class FirmwareVariablesReadings
    {
        private readonly Readings owner;

        internal FirmwareVariablesReadings(Readings owner)
        {
            this.owner = owner;
        }

        /// <summary>Random UUID of the machine.</summary>
        /// <remarks>
        /// Failed: the firmware variable cannot be read.
        /// Failed: the system's error code of the failed read.
        /// Export: GPNV_Get_RandomUUID.
        /// </remarks>
        public byte[] RandomUuid()
        {
            Failure failure;
            return RandomUuid(out failure);
        }

        /// <summary>Random UUID of the machine.</summary>
        /// <remarks>
        /// Failed: the firmware variable cannot be read.
        /// Failed: the system's error code of the failed read.
        /// Export: GPNV_Get_RandomUUID.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public byte[] RandomUuid(out Failure failure)
        {
            owner.Use();
            return Call.Bytes(Entries.GPNV_Get_RandomUUID, 16, NativeMethods.GPNV_Get_RandomUUID, out failure);
        }

        /// <summary>When the machine was activated.</summary>
        /// <remarks>
        /// Failed: the firmware variable cannot be read.
        /// Export: GPNV_Get_ActivatedTime.
        /// </remarks>
        public byte[] ActivatedTime()
        {
            Failure failure;
            return ActivatedTime(out failure);
        }

        /// <summary>When the machine was activated.</summary>
        /// <remarks>
        /// Failed: the firmware variable cannot be read.
        /// Export: GPNV_Get_ActivatedTime.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public byte[] ActivatedTime(out Failure failure)
        {
            owner.Use();
            return Call.Bytes(Entries.GPNV_Get_ActivatedTime, 19, NativeMethods.GPNV_Get_ActivatedTime, out failure);
        }

        /// <summary>When the machine was manufactured.</summary>
        /// <remarks>
        /// Failed: the firmware variable cannot be read.
        /// Failed: the system's error code of the failed read.
        /// Export: GPNV_Get_ManufacturedTime.
        /// </remarks>
        public byte[] ManufacturedTime()
        {
            Failure failure;
            return ManufacturedTime(out failure);
        }

        /// <summary>When the machine was manufactured.</summary>
        /// <remarks>
        /// Failed: the firmware variable cannot be read.
        /// Failed: the system's error code of the failed read.
        /// Export: GPNV_Get_ManufacturedTime.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public byte[] ManufacturedTime(out Failure failure)
        {
            owner.Use();
            return Call.Bytes(Entries.GPNV_Get_ManufacturedTime, 23, NativeMethods.GPNV_Get_ManufacturedTime, out failure);
        }

        /// <summary>Stores the random UUID of the machine: 16 bytes.</summary>
        /// <remarks>
        /// bytes: the new bytes.
        /// 0 can mean: written, or the variable could not be read and was left as it is.
        /// Failed: the variable ends before the field; or the system's code of the failed write.
        /// Failed: the system's error code of the failed write.
        /// Threads: no other call may use meanwhile: the UEFI variables.
        /// Export: GPNV_Set_RandomUUID.
        /// </remarks>
        /// <exception cref="ReadingException">It did not succeed.</exception>
        public void SetRandomUuid(byte[] bytes)
        {
            owner.Use();
            using (new Locks(Entries.GPNV_Set_RandomUUID.Uses))
            {
                Call.Done(Entries.GPNV_Set_RandomUUID, NativeMethods.GPNV_Set_RandomUUID(Call.Exactly(bytes, 16)));
            }
        }

        /// <summary>Stores when the machine was activated: 19 bytes.</summary>
        /// <remarks>
        /// bytes: the new bytes.
        /// 0 can mean: written, or the variable could not be read and was left as it is.
        /// Failed: the variable ends before the field; or the system's code of the failed write.
        /// Failed: the system's error code of the failed write.
        /// Threads: no other call may use meanwhile: the UEFI variables.
        /// Export: GPNV_Set_ActivatedTime.
        /// </remarks>
        /// <exception cref="ReadingException">It did not succeed.</exception>
        public void SetActivatedTime(byte[] bytes)
        {
            owner.Use();
            using (new Locks(Entries.GPNV_Set_ActivatedTime.Uses))
            {
                Call.Done(Entries.GPNV_Set_ActivatedTime, NativeMethods.GPNV_Set_ActivatedTime(Call.Exactly(bytes, 19)));
            }
        }

        /// <summary>Stores when the machine was manufactured: 23 bytes.</summary>
        /// <remarks>
        /// bytes: the new bytes.
        /// 0 can mean: written, or the variable could not be read and was left as it is.
        /// Failed: the variable ends before the field; or the system's code of the failed write.
        /// Failed: the system's error code of the failed write.
        /// Threads: no other call may use meanwhile: the UEFI variables.
        /// Export: GPNV_Set_ManufacturedTime.
        /// </remarks>
        /// <exception cref="ReadingException">It did not succeed.</exception>
        public void SetManufacturedTime(byte[] bytes)
        {
            owner.Use();
            using (new Locks(Entries.GPNV_Set_ManufacturedTime.Uses))
            {
                Call.Done(Entries.GPNV_Set_ManufacturedTime, NativeMethods.GPNV_Set_ManufacturedTime(Call.Exactly(bytes, 23)));
            }
        }
    }

    /// <summary>Firmware: Battery Health and Quiet Fan.</summary>
    public sealed class FeaturesReadings
    {
        private readonly Readings owner;

        internal FeaturesReadings(Readings owner)
        {
            this.owner = owner;
        }

        /// <summary>Whether the firmware has Battery Health.</summary>
        /// <remarks>
        /// 0 can mean: not supported, or the firmware did not answer.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMICheckBatteryHealthSupport.
        /// </remarks>
        public bool? BatteryHealthSupport(Com com = Com.Enter)
        {
            Failure failure;
            return BatteryHealthSupport(out failure, com);
        }

        /// <summary>Whether the firmware has Battery Health.</summary>
        /// <remarks>
        /// 0 can mean: not supported, or the firmware did not answer.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMICheckBatteryHealthSupport.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public bool? BatteryHealthSupport(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Flag(Entries.WMICheckBatteryHealthSupport, NativeMethods.WMICheckBatteryHealthSupport((byte)com), out failure);
        }

        /// <summary>Whether the firmware has Quiet Fan, and its state.</summary>
        /// <remarks>
        /// Absent or failed: not supported, or the firmware did not answer.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMICheckQuietFanSupport.
        /// </remarks>
        public QuietFanSupport? QuietFanSupport(Com com = Com.Enter)
        {
            Failure failure;
            return QuietFanSupport(out failure, com);
        }

        /// <summary>Whether the firmware has Quiet Fan, and its state.</summary>
        /// <remarks>
        /// Absent or failed: not supported, or the firmware did not answer.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMICheckQuietFanSupport.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public QuietFanSupport? QuietFanSupport(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Choice<QuietFanSupport>(Entries.WMICheckQuietFanSupport, NativeMethods.WMICheckQuietFanSupport((byte)com), out failure);
        }

        /// <summary>Battery Health as last set.</summary>
        /// <remarks>
        /// Unit: percent (%).
        /// 100 can mean: also the default where nothing is stored.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetBatteryHealth.
        /// </remarks>
        public int? BatteryHealth(Com com = Com.Enter)
        {
            Failure failure;
            return BatteryHealth(out failure, com);
        }

        /// <summary>Battery Health as last set.</summary>
        /// <remarks>
        /// Unit: percent (%).
        /// 100 can mean: also the default where nothing is stored.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetBatteryHealth.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public int? BatteryHealth(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            int answer;
            using (new Locks(Entries.WMIGetBatteryHealth.Uses))
            {
                answer = NativeMethods.WMIGetBatteryHealth((byte)com);
            }
            return Call.Number(Entries.WMIGetBatteryHealth, answer, out failure);
        }

        /// <summary>Quiet Fan as last set: 1, 2 or 3.</summary>
        /// <remarks>
        /// Range: 0 to 3.
        /// 0 can mean: off, or nothing is stored.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetQuietFan.
        /// </remarks>
        public int? QuietFan(Com com = Com.Enter)
        {
            Failure failure;
            return QuietFan(out failure, com);
        }

        /// <summary>Quiet Fan as last set: 1, 2 or 3.</summary>
        /// <remarks>
        /// Range: 0 to 3.
        /// 0 can mean: off, or nothing is stored.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetQuietFan.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public int? QuietFan(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            int answer;
            using (new Locks(Entries.WMIGetQuietFan.Uses))
            {
                answer = NativeMethods.WMIGetQuietFan((byte)com);
            }
            return Call.Number(Entries.WMIGetQuietFan, answer, out failure);
        }

        /// <summary>Sets Battery Health and stores the value.</summary>
        /// <remarks>
        /// value: any number.
        /// Failed or absent: the firmware did not accept the value, or does not have the feature.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Threads: no other call may use meanwhile: the firmware's Battery Health and its settings file.
        /// Export: WMISetBatteryHealth.
        /// </remarks>
        /// <exception cref="ReadingException">It did not succeed.</exception>
        public void SetBatteryHealth(int value, Com com = Com.Enter)
        {
            owner.Use();
            using (new Locks(Entries.WMISetBatteryHealth.Uses))
            {
                Call.Done(Entries.WMISetBatteryHealth, NativeMethods.WMISetBatteryHealth(value, (byte)com));
            }
        }

        /// <summary>Sets Quiet Fan (0 off, 1 to 3 on) and stores the value.</summary>
        /// <remarks>
        /// value: 0 off, any other value on; 1 to 3 can be read back.
        /// Failed or absent: the firmware did not accept the value, or does not have the feature.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Threads: no other call may use meanwhile: the firmware's Quiet Fan and its settings file.
        /// Export: WMISetQuietFan.
        /// </remarks>
        /// <exception cref="ReadingException">It did not succeed.</exception>
        public void SetQuietFan(byte value, Com com = Com.Enter)
        {
            owner.Use();
            using (new Locks(Entries.WMISetQuietFan.Uses))
            {
                Call.Done(Entries.WMISetQuietFan, NativeMethods.WMISetQuietFan(value, (byte)com));
            }
        }

        /// <summary>Stores the directory of this user's settings files.</summary>
        /// <remarks>
        /// path: the directory, without a trailing backslash.
        /// Failed: not stored.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Threads: no other call may use meanwhile: the registry value with the directory of this user's settings.
        /// Export: WMISetAppPath.
        /// </remarks>
        /// <exception cref="ReadingException">It did not succeed.</exception>
        public void SetAppPath(string path, Com com = Com.Enter)
        {
            owner.Use();
            using (new Locks(Entries.WMISetAppPath.Uses))
            {
                Call.Done(Entries.WMISetAppPath, NativeMethods.WMISetAppPath((path + "\0").ToCharArray(), (byte)com));
            }
        }
    }

    /// <summary>Inventory.</summary>
    public sealed class InventoryReadings
    {
        private readonly Readings owner;

        internal InventoryReadings(Readings owner)
        {
            this.owner = owner;
        }

        /// <summary>The maker's number of the machine: its fifth OEM string.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGet90Number.
        /// </remarks>
        public string MakersNumber(Com com = Com.Enter)
        {
            Failure failure;
            return MakersNumber(out failure, com);
        }

        /// <summary>The maker's number of the machine: its fifth OEM string.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGet90Number.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string MakersNumber(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Wide(Entries.WMIGet90Number, 4096, buffer => NativeMethods.WMIGet90Number(buffer, (byte)com), out failure);
        }

        /// <summary>Manufacturer of the base board.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetBiosManufacture.
        /// </remarks>
        public string[] BoardMaker(Com com = Com.Enter)
        {
            Failure failure;
            return BoardMaker(out failure, com);
        }

        /// <summary>Manufacturer of the base board.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetBiosManufacture.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] BoardMaker(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.WMIGetBiosManufacture, 4096, buffer => NativeMethods.WMIGetBiosManufacture(buffer, (byte)com), out failure), false);
        }

        /// <summary>Release date of the BIOS: year, month, day.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetBiosReleaseDate.
        /// </remarks>
        public string BiosReleaseDate(Com com = Com.Enter)
        {
            Failure failure;
            return BiosReleaseDate(out failure, com);
        }

        /// <summary>Release date of the BIOS: year, month, day.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetBiosReleaseDate.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string BiosReleaseDate(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Wide(Entries.WMIGetBiosReleaseDate, 9, buffer => NativeMethods.WMIGetBiosReleaseDate(buffer, (byte)com), out failure);
        }

        /// <summary>Version of the BIOS.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetBiosVersion.
        /// </remarks>
        public string[] BiosVersion(Com com = Com.Enter)
        {
            Failure failure;
            return BiosVersion(out failure, com);
        }

        /// <summary>Version of the BIOS.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetBiosVersion.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] BiosVersion(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.WMIGetBiosVersion, 4096, buffer => NativeMethods.WMIGetBiosVersion(buffer, (byte)com), out failure), false);
        }

        /// <summary>UUID of the machine.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetBoardUUID.
        /// </remarks>
        public string[] MachineUuid(Com com = Com.Enter)
        {
            Failure failure;
            return MachineUuid(out failure, com);
        }

        /// <summary>UUID of the machine.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetBoardUUID.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] MachineUuid(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.WMIGetBoardUUID, 4096, buffer => NativeMethods.WMIGetBoardUUID(buffer, (byte)com), out failure), false);
        }

        /// <summary>Name of each processor.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetCPUInfo.
        /// </remarks>
        public string[] CpuNames(Com com = Com.Enter)
        {
            Failure failure;
            return CpuNames(out failure, com);
        }

        /// <summary>Name of each processor.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetCPUInfo.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] CpuNames(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.WMIGetCPUInfo, 4096, buffer => NativeMethods.WMIGetCPUInfo(buffer, (byte)com), out failure), false);
        }

        /// <summary>Load of the last processor that reports one.</summary>
        /// <remarks>
        /// Unit: percent (%), 0 to 100.
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetCPUUsg.
        /// </remarks>
        public int? CpuLoad(Com com = Com.Enter)
        {
            Failure failure;
            return CpuLoad(out failure, com);
        }

        /// <summary>Load of the last processor that reports one.</summary>
        /// <remarks>
        /// Unit: percent (%), 0 to 100.
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetCPUUsg.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public int? CpuLoad(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Number(Entries.WMIGetCPUUsg, NativeMethods.WMIGetCPUUsg((byte)com), out failure);
        }

        /// <summary>Product family of the machine.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetComputerFamilyName.
        /// </remarks>
        public string[] ProductFamily(Com com = Com.Enter)
        {
            Failure failure;
            return ProductFamily(out failure, com);
        }

        /// <summary>Product family of the machine.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetComputerFamilyName.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] ProductFamily(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.WMIGetComputerFamilyName, 4096, buffer => NativeMethods.WMIGetComputerFamilyName(buffer, (byte)com), out failure), false);
        }

        /// <summary>Number of external displays.</summary>
        /// <remarks>
        /// Failed: the WMI query failed.
        /// 0 can mean: none, or WMI gave no row.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetExternMonitorNum.
        /// </remarks>
        public int? ExternalDisplays(Com com = Com.Enter)
        {
            Failure failure;
            return ExternalDisplays(out failure, com);
        }

        /// <summary>Number of external displays.</summary>
        /// <remarks>
        /// Failed: the WMI query failed.
        /// 0 can mean: none, or WMI gave no row.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetExternMonitorNum.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public int? ExternalDisplays(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Number(Entries.WMIGetExternMonitorNum, NativeMethods.WMIGetExternMonitorNum((byte)com), out failure);
        }

        /// <summary>Name of each graphics adapter.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetGPUInfo.
        /// </remarks>
        public string[] GpuNames(Com com = Com.Enter)
        {
            Failure failure;
            return GpuNames(out failure, com);
        }

        /// <summary>Name of each graphics adapter.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetGPUInfo.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] GpuNames(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.WMIGetGPUInfo, 4096, buffer => NativeMethods.WMIGetGPUInfo(buffer, (byte)com), out failure), false);
        }

        /// <summary>Name of each fixed disk.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetHDDCaption.
        /// </remarks>
        public string[] DiskCaptions(Com com = Com.Enter)
        {
            Failure failure;
            return DiskCaptions(out failure, com);
        }

        /// <summary>Name of each fixed disk.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetHDDCaption.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] DiskCaptions(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.WMIGetHDDCaption, 4096, buffer => NativeMethods.WMIGetHDDCaption(buffer, (byte)com), out failure), false);
        }

        /// <summary>Model, size in bytes and media type (3 hard disk, 4 SSD) of each disk.</summary>
        /// <remarks>
        /// One record for each; an element that cannot be read as a number is absent from its record.
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetHDDInfo.
        /// </remarks>
        public Disk[] Disks(Com com = Com.Enter)
        {
            Failure failure;
            return Disks(out failure, com);
        }

        /// <summary>Model, size in bytes and media type (3 hard disk, 4 SSD) of each disk.</summary>
        /// <remarks>
        /// One record for each; an element that cannot be read as a number is absent from its record.
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetHDDInfo.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public Disk[] Disks(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            string list = Call.Wide(Entries.WMIGetHDDInfo, 4096, buffer => NativeMethods.WMIGetHDDInfo(buffer, (byte)com), out failure);
            return Call.Records(Entries.WMIGetHDDInfo, list, 3, fields => new Disk(fields[0], Call.Element(Entries.WMIGetHDDInfo, fields[1]).Value, Call.Element(Entries.WMIGetHDDInfo, fields[2]).Value), ref failure);
        }

        /// <summary>Model of each hard disk.</summary>
        /// <remarks>
        /// Absent or failed: no such disk, or the WMI query failed.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetHDDModel.
        /// </remarks>
        public string[] HardDiskModels(Com com = Com.Enter)
        {
            Failure failure;
            return HardDiskModels(out failure, com);
        }

        /// <summary>Model of each hard disk.</summary>
        /// <remarks>
        /// Absent or failed: no such disk, or the WMI query failed.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetHDDModel.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] HardDiskModels(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.WMIGetHDDModel, 4096, buffer => NativeMethods.WMIGetHDDModel(buffer, (byte)com), out failure), false);
        }

        /// <summary>Size of each fixed disk.</summary>
        /// <remarks>
        /// Unit: bytes.
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetHDDSize.
        /// </remarks>
        public Element[] DiskSizes(Com com = Com.Enter)
        {
            Failure failure;
            return DiskSizes(out failure, com);
        }

        /// <summary>Size of each fixed disk.</summary>
        /// <remarks>
        /// Unit: bytes.
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetHDDSize.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public Element[] DiskSizes(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Numbers(Entries.WMIGetHDDSize, Call.Wide(Entries.WMIGetHDDSize, 4096, buffer => NativeMethods.WMIGetHDDSize(buffer, (byte)com), out failure), false);
        }

        /// <summary>Temperature of each disk that reports one.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Absent or failed: no disk reports a temperature, or the WMI query failed.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// A failed read repeats the previous answer.
        /// Threads: no other call may use meanwhile: the SMART table.
        /// Export: WMIGetHDDTemp.
        /// </remarks>
        public Element[] DiskTemperatures(Com com = Com.Enter)
        {
            Failure failure;
            return DiskTemperatures(out failure, com);
        }

        /// <summary>Temperature of each disk that reports one.</summary>
        /// <remarks>
        /// Unit: degrees Celsius (°C), 0 to 255.
        /// Absent or failed: no disk reports a temperature, or the WMI query failed.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// A failed read repeats the previous answer.
        /// Threads: no other call may use meanwhile: the SMART table.
        /// Export: WMIGetHDDTemp.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public Element[] DiskTemperatures(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Numbers(Entries.WMIGetHDDTemp, Call.Wide(Entries.WMIGetHDDTemp, 1200, buffer => NativeMethods.WMIGetHDDTemp(buffer, (byte)com), out failure), false);
        }

        /// <summary>Name of each monitor.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetLCDModel.
        /// </remarks>
        public string[] DisplayModels(Com com = Com.Enter)
        {
            Failure failure;
            return DisplayModels(out failure, com);
        }

        /// <summary>Name of each monitor.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetLCDModel.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] DisplayModels(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.WMIGetLCDModel, 4096, buffer => NativeMethods.WMIGetLCDModel(buffer, (byte)com), out failure), false);
        }

        /// <summary>Address of each physical network adapter.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetMacAddress.
        /// </remarks>
        public string[] MacAddresses(Com com = Com.Enter)
        {
            Failure failure;
            return MacAddresses(out failure, com);
        }

        /// <summary>Address of each physical network adapter.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetMacAddress.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] MacAddresses(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.WMIGetMacAddress, 4096, buffer => NativeMethods.WMIGetMacAddress(buffer, (byte)com), out failure), false);
        }

        /// <summary>Manufacturer of each memory module.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetMemManufacture.
        /// </remarks>
        public string[] MemoryMakers(Com com = Com.Enter)
        {
            Failure failure;
            return MemoryMakers(out failure, com);
        }

        /// <summary>Manufacturer of each memory module.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetMemManufacture.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] MemoryMakers(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.WMIGetMemManufacture, 4096, buffer => NativeMethods.WMIGetMemManufacture(buffer, (byte)com), out failure), false);
        }

        /// <summary>Part number of each memory module.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetMemModel.
        /// </remarks>
        public string[] MemoryModels(Com com = Com.Enter)
        {
            Failure failure;
            return MemoryModels(out failure, com);
        }

        /// <summary>Part number of each memory module.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetMemModel.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] MemoryModels(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.WMIGetMemModel, 4096, buffer => NativeMethods.WMIGetMemModel(buffer, (byte)com), out failure), false);
        }

        /// <summary>Size of each memory module.</summary>
        /// <remarks>
        /// Unit: bytes.
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetMemSize.
        /// </remarks>
        public Element[] MemorySizes(Com com = Com.Enter)
        {
            Failure failure;
            return MemorySizes(out failure, com);
        }

        /// <summary>Size of each memory module.</summary>
        /// <remarks>
        /// Unit: bytes.
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetMemSize.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public Element[] MemorySizes(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Numbers(Entries.WMIGetMemSize, Call.Wide(Entries.WMIGetMemSize, 4096, buffer => NativeMethods.WMIGetMemSize(buffer, (byte)com), out failure), false);
        }

        /// <summary>Product name of the base board.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetModelName.
        /// </remarks>
        public string[] BoardName(Com com = Com.Enter)
        {
            Failure failure;
            return BoardName(out failure, com);
        }

        /// <summary>Product name of the base board.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetModelName.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] BoardName(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.WMIGetModelName, 4096, buffer => NativeMethods.WMIGetModelName(buffer, (byte)com), out failure), false);
        }

        /// <summary>Brightness of the display.</summary>
        /// <remarks>
        /// Unit: percent (%), 0 to 100.
        /// Failed or absent: the WMI query failed, or no display reports its brightness.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetMonitorBrightness.
        /// </remarks>
        public int? Brightness(Com com = Com.Enter)
        {
            Failure failure;
            return Brightness(out failure, com);
        }

        /// <summary>Brightness of the display.</summary>
        /// <remarks>
        /// Unit: percent (%), 0 to 100.
        /// Failed or absent: the WMI query failed, or no display reports its brightness.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetMonitorBrightness.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public int? Brightness(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Number(Entries.WMIGetMonitorBrightness, NativeMethods.WMIGetMonitorBrightness((byte)com), out failure);
        }

        /// <summary>Country code of the operating system.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetOSCountryCode.
        /// </remarks>
        public string[] OsCountryCode(Com com = Com.Enter)
        {
            Failure failure;
            return OsCountryCode(out failure, com);
        }

        /// <summary>Country code of the operating system.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetOSCountryCode.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] OsCountryCode(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.WMIGetOSCountryCode, 4096, buffer => NativeMethods.WMIGetOSCountryCode(buffer, (byte)com), out failure), false);
        }

        /// <summary>Name, architecture and version of the operating system.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetOSInfo.
        /// </remarks>
        public string Os(Com com = Com.Enter)
        {
            Failure failure;
            return Os(out failure, com);
        }

        /// <summary>Name, architecture and version of the operating system.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetOSInfo.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string Os(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Wide(Entries.WMIGetOSInfo, 4096, buffer => NativeMethods.WMIGetOSInfo(buffer, (byte)com), out failure);
        }

        /// <summary>Product name of the machine.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetProductName.
        /// </remarks>
        public string[] ProductName(Com com = Com.Enter)
        {
            Failure failure;
            return ProductName(out failure, com);
        }

        /// <summary>Product name of the machine.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetProductName.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] ProductName(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.WMIGetProductName, 4096, buffer => NativeMethods.WMIGetProductName(buffer, (byte)com), out failure), false);
        }

        /// <summary>Serial number of the machine.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetSN.
        /// </remarks>
        public string[] SerialNumber(Com com = Com.Enter)
        {
            Failure failure;
            return SerialNumber(out failure, com);
        }

        /// <summary>Serial number of the machine.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed or found nothing.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetSN.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] SerialNumber(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.WMIGetSN, 4096, buffer => NativeMethods.WMIGetSN(buffer, (byte)com), out failure), false);
        }

        /// <summary>Model of each SSD.</summary>
        /// <remarks>
        /// Absent or failed: no such disk, or the WMI query failed.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetSSDModel.
        /// </remarks>
        public string[] SsdModels(Com com = Com.Enter)
        {
            Failure failure;
            return SsdModels(out failure, com);
        }

        /// <summary>Model of each SSD.</summary>
        /// <remarks>
        /// Absent or failed: no such disk, or the WMI query failed.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetSSDModel.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] SsdModels(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.WMIGetSSDModel, 4096, buffer => NativeMethods.WMIGetSSDModel(buffer, (byte)com), out failure), false);
        }

        /// <summary>Kind of machine: Desktop, Notebook or All in One.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed, or the kind has no name.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetSystemChassisTypes.
        /// </remarks>
        public string Chassis(Com com = Com.Enter)
        {
            Failure failure;
            return Chassis(out failure, com);
        }

        /// <summary>Kind of machine: Desktop, Notebook or All in One.</summary>
        /// <remarks>
        /// Failed or absent: the WMI query failed, or the kind has no name.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetSystemChassisTypes.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string Chassis(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Wide(Entries.WMIGetSystemChassisTypes, 11, buffer => NativeMethods.WMIGetSystemChassisTypes(buffer, (byte)com), out failure);
        }

        /// <summary>The given number plus one: shows that the library answers.</summary>
        /// <remarks>
        /// value: any number; 4294967295 gives 0.
        /// Export: wmiadd.
        /// </remarks>
        public uint? AddOne(uint value)
        {
            Failure failure;
            return AddOne(value, out failure);
        }

        /// <summary>The given number plus one: shows that the library answers.</summary>
        /// <remarks>
        /// value: any number; 4294967295 gives 0.
        /// Export: wmiadd.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? AddOne(uint value, out Failure failure)
        {
            owner.Use();
            return Call.Number(Entries.wmiadd, NativeMethods.wmiadd(value), out failure);
        }
    }

    /// <summary>Network adapters.</summary>
    public sealed class AdaptersReadings
    {
        private readonly Readings owner;

        internal AdaptersReadings(Readings owner)
        {
            this.owner = owner;
        }

        /// <summary>Name of each Wi-Fi adapter.</summary>
        /// <remarks>
        /// Absent or failed: no Wi-Fi adapter, or the WMI query failed.
        /// Absent or failed: the system lists no network adapters.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetWiFiCardName.
        /// </remarks>
        public string[] WifiCards(Com com = Com.Enter)
        {
            Failure failure;
            return WifiCards(out failure, com);
        }

        /// <summary>Name of each Wi-Fi adapter.</summary>
        /// <remarks>
        /// Absent or failed: no Wi-Fi adapter, or the WMI query failed.
        /// Absent or failed: the system lists no network adapters.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetWiFiCardName.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] WifiCards(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.WMIGetWiFiCardName, 1024, buffer => NativeMethods.WMIGetWiFiCardName(buffer, (byte)com), out failure), true);
        }

        /// <summary>Traffic of the Wi-Fi adapter: received, sent.</summary>
        /// <remarks>
        /// Unit: bytes per second (bytes/s).
        /// Failed or absent: the WMI query failed or found nothing.
        /// "0;0" can mean: no traffic, or no counter of this adapter.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetWiFiBytesPersec.
        /// </remarks>
        public Element[] WifiTraffic(Com com = Com.Enter)
        {
            Failure failure;
            return WifiTraffic(out failure, com);
        }

        /// <summary>Traffic of the Wi-Fi adapter: received, sent.</summary>
        /// <remarks>
        /// Unit: bytes per second (bytes/s).
        /// Failed or absent: the WMI query failed or found nothing.
        /// "0;0" can mean: no traffic, or no counter of this adapter.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: WMIGetWiFiBytesPersec.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public Element[] WifiTraffic(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Numbers(Entries.WMIGetWiFiBytesPersec, Call.Wide(Entries.WMIGetWiFiBytesPersec, 64, buffer => NativeMethods.WMIGetWiFiBytesPersec(buffer, (byte)com), out failure), false);
        }
    }

    /// <summary>Wi-Fi.</summary>
    public sealed class WifiReadings
    {
        private readonly Readings owner;

        internal WifiReadings(Readings owner)
        {
            this.owner = owner;
        }

        /// <summary>Whether Wi-Fi is connected.</summary>
        /// <remarks>
        /// Failed: the radio could not be read.
        /// Not read: no Wi-Fi adapter.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// The first successful read is cached to the end of the process.
        /// Export: RF_WiFiIsConnected.
        /// </remarks>
        public bool? Connected()
        {
            Failure failure;
            return Connected(out failure);
        }

        /// <summary>Whether Wi-Fi is connected.</summary>
        /// <remarks>
        /// Failed: the radio could not be read.
        /// Not read: no Wi-Fi adapter.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// The first successful read is cached to the end of the process.
        /// Export: RF_WiFiIsConnected.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public bool? Connected(out Failure failure)
        {
            owner.Use();
            return Call.Flag(Entries.RF_WiFiIsConnected, NativeMethods.RF_WiFiIsConnected(), out failure);
        }

        /// <summary>Name of the Wi-Fi adapter.</summary>
        /// <remarks>
        /// Failed: the radio could not be read.
        /// Not read: no adapter, or no connection.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// The first successful read is cached to the end of the process.
        /// Export: RF_WiFiCardName.
        /// </remarks>
        public string CardName()
        {
            Failure failure;
            return CardName(out failure);
        }

        /// <summary>Name of the Wi-Fi adapter.</summary>
        /// <remarks>
        /// Failed: the radio could not be read.
        /// Not read: no adapter, or no connection.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// The first successful read is cached to the end of the process.
        /// Export: RF_WiFiCardName.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string CardName(out Failure failure)
        {
            owner.Use();
            return Call.Wide(Entries.RF_WiFiCardName, 257, buffer => NativeMethods.RF_WiFiCardName(buffer), out failure);
        }

        /// <summary>Signal of the access point.</summary>
        /// <remarks>
        /// Unit: decibel milliwatts (dBm).
        /// Failed: the radio could not be read.
        /// Not read: no adapter, or no connection.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// The first successful read is cached to the end of the process.
        /// Export: RF_WiFiRssi.
        /// </remarks>
        public int? Signal()
        {
            Failure failure;
            return Signal(out failure);
        }

        /// <summary>Signal of the access point.</summary>
        /// <remarks>
        /// Unit: decibel milliwatts (dBm).
        /// Failed: the radio could not be read.
        /// Not read: no adapter, or no connection.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// The first successful read is cached to the end of the process.
        /// Export: RF_WiFiRssi.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public int? Signal(out Failure failure)
        {
            owner.Use();
            return Call.Number(Entries.RF_WiFiRssi, NativeMethods.RF_WiFiRssi(), out failure);
        }

        /// <summary>Channel number.</summary>
        /// <remarks>
        /// Failed: the radio could not be read.
        /// Not read: no adapter, or no connection.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// The first successful read is cached to the end of the process.
        /// Export: RF_WiFiChannel.
        /// </remarks>
        public int? Channel()
        {
            Failure failure;
            return Channel(out failure);
        }

        /// <summary>Channel number.</summary>
        /// <remarks>
        /// Failed: the radio could not be read.
        /// Not read: no adapter, or no connection.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// The first successful read is cached to the end of the process.
        /// Export: RF_WiFiChannel.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public int? Channel(out Failure failure)
        {
            owner.Use();
            return Call.Number(Entries.RF_WiFiChannel, NativeMethods.RF_WiFiChannel(), out failure);
        }

        /// <summary>First three octets of the access point's address.</summary>
        /// <remarks>
        /// Failed: the radio could not be read.
        /// Not read: no adapter, or no connection.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// The first successful read is cached to the end of the process.
        /// Export: RF_AP_MAC.
        /// </remarks>
        public string AccessPointPrefix()
        {
            Failure failure;
            return AccessPointPrefix(out failure);
        }

        /// <summary>First three octets of the access point's address.</summary>
        /// <remarks>
        /// Failed: the radio could not be read.
        /// Not read: no adapter, or no connection.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// The first successful read is cached to the end of the process.
        /// Export: RF_AP_MAC.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string AccessPointPrefix(out Failure failure)
        {
            owner.Use();
            return Call.Narrow(Entries.RF_AP_MAC, 13, buffer => NativeMethods.RF_AP_MAC(buffer), out failure);
        }

        /// <summary>Highest link rate of the access point.</summary>
        /// <remarks>
        /// Unit: megabits per second (Mbit/s).
        /// Failed: the radio could not be read.
        /// Not read: no adapter, or no connection.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// The first successful read is cached to the end of the process.
        /// Export: RF_WiFiMaxRate.
        /// </remarks>
        public int? MaxRate()
        {
            Failure failure;
            return MaxRate(out failure);
        }

        /// <summary>Highest link rate of the access point.</summary>
        /// <remarks>
        /// Unit: megabits per second (Mbit/s).
        /// Failed: the radio could not be read.
        /// Not read: no adapter, or no connection.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// The first successful read is cached to the end of the process.
        /// Export: RF_WiFiMaxRate.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public int? MaxRate(out Failure failure)
        {
            owner.Use();
            return Call.Number(Entries.RF_WiFiMaxRate, NativeMethods.RF_WiFiMaxRate(), out failure);
        }

        /// <summary>Radio standard of the connection.</summary>
        /// <remarks>
        /// Failed: the radio could not be read.
        /// Not read: no adapter, or no connection.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// The first successful read is cached to the end of the process.
        /// Export: RF_PhyMode.
        /// </remarks>
        public string PhyMode()
        {
            Failure failure;
            return PhyMode(out failure);
        }

        /// <summary>Radio standard of the connection.</summary>
        /// <remarks>
        /// Failed: the radio could not be read.
        /// Not read: no adapter, or no connection.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// The first successful read is cached to the end of the process.
        /// Export: RF_PhyMode.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string PhyMode(out Failure failure)
        {
            owner.Use();
            return Call.String(Entries.RF_PhyMode, NativeMethods.RF_PhyMode, out failure);
        }
    }

    /// <summary>Bluetooth.</summary>
    public sealed class BluetoothReadings
    {
        private readonly Readings owner;

        internal BluetoothReadings(Readings owner)
        {
            this.owner = owner;
        }

        /// <summary>Whether a Bluetooth device is connected.</summary>
        /// <remarks>
        /// Failed: the radio could not be read.
        /// Not read: no Bluetooth radio.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// The first successful read is cached to the end of the process.
        /// Export: RF_BTIsUsed.
        /// </remarks>
        public bool? Connected()
        {
            Failure failure;
            return Connected(out failure);
        }

        /// <summary>Whether a Bluetooth device is connected.</summary>
        /// <remarks>
        /// Failed: the radio could not be read.
        /// Not read: no Bluetooth radio.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// The first successful read is cached to the end of the process.
        /// Export: RF_BTIsUsed.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public bool? Connected(out Failure failure)
        {
            owner.Use();
            return Call.Flag(Entries.RF_BTIsUsed, NativeMethods.RF_BTIsUsed(), out failure);
        }

        /// <summary>Number of connected Bluetooth devices.</summary>
        /// <remarks>
        /// Failed: the radio could not be read.
        /// Not read: no adapter, or no connection.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// The first successful read is cached to the end of the process.
        /// Export: RF_BTConnectedNum.
        /// </remarks>
        public int? DeviceCount()
        {
            Failure failure;
            return DeviceCount(out failure);
        }

        /// <summary>Number of connected Bluetooth devices.</summary>
        /// <remarks>
        /// Failed: the radio could not be read.
        /// Not read: no adapter, or no connection.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// The first successful read is cached to the end of the process.
        /// Export: RF_BTConnectedNum.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public int? DeviceCount(out Failure failure)
        {
            owner.Use();
            return Call.Number(Entries.RF_BTConnectedNum, NativeMethods.RF_BTConnectedNum(), out failure);
        }

        /// <summary>Kind of each connected Bluetooth device.</summary>
        /// <remarks>
        /// Failed: the radio could not be read.
        /// Not read: no adapter, or no connection.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// The first successful read is cached to the end of the process.
        /// Export: RF_BTConnectedType.
        /// </remarks>
        public string[] DeviceTypes()
        {
            Failure failure;
            return DeviceTypes(out failure);
        }

        /// <summary>Kind of each connected Bluetooth device.</summary>
        /// <remarks>
        /// Failed: the radio could not be read.
        /// Not read: no adapter, or no connection.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// The first successful read is cached to the end of the process.
        /// Export: RF_BTConnectedType.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] DeviceTypes(out Failure failure)
        {
            owner.Use();
            return Call.Split(Call.String(Entries.RF_BTConnectedType, NativeMethods.RF_BTConnectedType, out failure), true);
        }
    }

    /// <summary>System.</summary>
    public sealed class SystemReadings
    {
        private readonly Readings owner;

        internal SystemReadings(Readings owner)
        {
            this.owner = owner;
        }

        /// <summary>Whether Windows runs in S mode.</summary>
        /// <remarks>
        /// 0 can mean: not in S mode, or the system did not answer.
        /// Export: System_Check_S_Mode.
        /// </remarks>
        public bool? SMode()
        {
            Failure failure;
            return SMode(out failure);
        }

        /// <summary>Whether Windows runs in S mode.</summary>
        /// <remarks>
        /// 0 can mean: not in S mode, or the system did not answer.
        /// Export: System_Check_S_Mode.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public bool? SMode(out Failure failure)
        {
            owner.Use();
            return Call.Flag(Entries.System_Check_S_Mode, NativeMethods.System_Check_S_Mode(), out failure);
        }

        /// <summary>The user's country, two letters.</summary>
        /// <remarks>
        /// Failed or absent: the user has no country set.
        /// Export: System_GetCountryCode_ISO2.
        /// </remarks>
        public string Country()
        {
            Failure failure;
            return Country(out failure);
        }

        /// <summary>The user's country, two letters.</summary>
        /// <remarks>
        /// Failed or absent: the user has no country set.
        /// Export: System_GetCountryCode_ISO2.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string Country(out Failure failure)
        {
            owner.Use();
            return Call.Wide(Entries.System_GetCountryCode_ISO2, 11, buffer => NativeMethods.System_GetCountryCode_ISO2(buffer), out failure);
        }

        /// <summary>Local date and time.</summary>
        /// <remarks>
        /// Failed: the time cannot be converted to local time.
        /// Export: System_Read_LocalTime.
        /// </remarks>
        public string LocalTime()
        {
            Failure failure;
            return LocalTime(out failure);
        }

        /// <summary>Local date and time.</summary>
        /// <remarks>
        /// Failed: the time cannot be converted to local time.
        /// Export: System_Read_LocalTime.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string LocalTime(out Failure failure)
        {
            owner.Use();
            return Call.Narrow(Entries.System_Read_LocalTime, 20, buffer => NativeMethods.System_Read_LocalTime(buffer), out failure);
        }

        /// <summary>Master volume, muted or not.</summary>
        /// <remarks>
        /// Unit: percent (%), 0 to 100.
        /// Failed or absent: no audio device, or it does not report its volume.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: System_Read_VolumeLevel.
        /// </remarks>
        public int? Volume(Com com = Com.Enter)
        {
            Failure failure;
            return Volume(out failure, com);
        }

        /// <summary>Master volume, muted or not.</summary>
        /// <remarks>
        /// Unit: percent (%), 0 to 100.
        /// Failed or absent: no audio device, or it does not report its volume.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: System_Read_VolumeLevel.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public int? Volume(out Failure failure, Com com = Com.Enter)
        {
            owner.Use();
            return Call.Number(Entries.System_Read_VolumeLevel, NativeMethods.System_Read_VolumeLevel((byte)com), out failure);
        }

        /// <summary>Tablet mode byte of the EC.</summary>
        /// <remarks>
        /// Range: 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Needs a session.
        /// Export: System_Read_TabletMode.
        /// </remarks>
        public uint? TabletMode()
        {
            Failure failure;
            return TabletMode(out failure);
        }

        /// <summary>Tablet mode byte of the EC.</summary>
        /// <remarks>
        /// Range: 0 to 255.
        /// Failed or no session: an EC command failed, or no session is open.
        /// Needs a session.
        /// Export: System_Read_TabletMode.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public uint? TabletMode(out Failure failure)
        {
            owner.Use();
            uint answer;
            using (new Locks(Entries.System_Read_TabletMode.Uses))
            {
                answer = NativeMethods.System_Read_TabletMode();
            }
            return Call.Number(Entries.System_Read_TabletMode, answer, out failure);
        }
    }

    /// <summary>Installed applications.</summary>
    public sealed class ApplicationsReadings
    {
        private readonly Readings owner;

        internal ApplicationsReadings(Readings owner)
        {
            this.owner = owner;
        }

        /// <summary>Installed 64-bit applications with versions.</summary>
        /// <remarks>
        /// JSON in which nothing is escaped, so that a name can make it ill-formed.
        /// "[{"machine":[]},{"user":[]}]" can mean: no such applications, or the registry keys cannot be read.
        /// Export: GetApplist_x64.
        /// The library does not know the size of its buffer; 524288 characters are enough for known machines.
        /// </remarks>
        public string Applications64(int characters = 524288)
        {
            Failure failure;
            return Applications64(out failure, characters);
        }

        /// <summary>Installed 64-bit applications with versions.</summary>
        /// <remarks>
        /// JSON in which nothing is escaped, so that a name can make it ill-formed.
        /// "[{"machine":[]},{"user":[]}]" can mean: no such applications, or the registry keys cannot be read.
        /// Export: GetApplist_x64.
        /// The library does not know the size of its buffer; 524288 characters are enough for known machines.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string Applications64(out Failure failure, int characters = 524288)
        {
            owner.Use();
            return Call.Wide(Entries.GetApplist_x64, characters, buffer => NativeMethods.GetApplist_x64(buffer), out failure);
        }

        /// <summary>Installed 32-bit applications with versions.</summary>
        /// <remarks>
        /// JSON in which nothing is escaped, so that a name can make it ill-formed.
        /// "[{"machine":[]},{"user":[]}]" can mean: no such applications, or the registry keys cannot be read.
        /// Export: GetApplist_x86.
        /// The library does not know the size of its buffer; 524288 characters are enough for known machines.
        /// </remarks>
        public string Applications32(int characters = 524288)
        {
            Failure failure;
            return Applications32(out failure, characters);
        }

        /// <summary>Installed 32-bit applications with versions.</summary>
        /// <remarks>
        /// JSON in which nothing is escaped, so that a name can make it ill-formed.
        /// "[{"machine":[]},{"user":[]}]" can mean: no such applications, or the registry keys cannot be read.
        /// Export: GetApplist_x86.
        /// The library does not know the size of its buffer; 524288 characters are enough for known machines.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string Applications32(out Failure failure, int characters = 524288)
        {
            owner.Use();
            return Call.Wide(Entries.GetApplist_x86, characters, buffer => NativeMethods.GetApplist_x86(buffer), out failure);
        }

        /// <summary>Installed packages with their display names.</summary>
        /// <remarks>
        /// JSON in which nothing is escaped, so that a name can make it ill-formed.
        /// "[]" can mean: no packages, or the package store cannot be read.
        /// Export: GetApplist_UWP.
        /// The library does not know the size of its buffer; 524288 characters are enough for known machines.
        /// </remarks>
        public string Packages(int characters = 524288)
        {
            Failure failure;
            return Packages(out failure, characters);
        }

        /// <summary>Installed packages with their display names.</summary>
        /// <remarks>
        /// JSON in which nothing is escaped, so that a name can make it ill-formed.
        /// "[]" can mean: no packages, or the package store cannot be read.
        /// Export: GetApplist_UWP.
        /// The library does not know the size of its buffer; 524288 characters are enough for known machines.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string Packages(out Failure failure, int characters = 524288)
        {
            owner.Use();
            return Call.Wide(Entries.GetApplist_UWP, characters, buffer => NativeMethods.GetApplist_UWP(buffer), out failure);
        }

        /// <summary>Names of installed packages.</summary>
        /// <remarks>
        /// Absent or failed: no such applications, or the registry key cannot be read.
        /// Export: App_Get_UWPApp.
        /// The library does not know the size of its buffer; 524288 characters are enough for known machines.
        /// </remarks>
        public string[] PackageNames(int characters = 524288)
        {
            Failure failure;
            return PackageNames(out failure, characters);
        }

        /// <summary>Names of installed packages.</summary>
        /// <remarks>
        /// Absent or failed: no such applications, or the registry key cannot be read.
        /// Export: App_Get_UWPApp.
        /// The library does not know the size of its buffer; 524288 characters are enough for known machines.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] PackageNames(out Failure failure, int characters = 524288)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.App_Get_UWPApp, characters, buffer => NativeMethods.App_Get_UWPApp(buffer), out failure), true);
        }

        /// <summary>Names of installed 64-bit applications.</summary>
        /// <remarks>
        /// Absent or failed: no such applications, or the registry key cannot be read.
        /// Export: App_Get_Win32App.
        /// The library does not know the size of its buffer; 524288 characters are enough for known machines.
        /// </remarks>
        public string[] ApplicationNames64(int characters = 524288)
        {
            Failure failure;
            return ApplicationNames64(out failure, characters);
        }

        /// <summary>Names of installed 64-bit applications.</summary>
        /// <remarks>
        /// Absent or failed: no such applications, or the registry key cannot be read.
        /// Export: App_Get_Win32App.
        /// The library does not know the size of its buffer; 524288 characters are enough for known machines.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] ApplicationNames64(out Failure failure, int characters = 524288)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.App_Get_Win32App, characters, buffer => NativeMethods.App_Get_Win32App(buffer), out failure), true);
        }

        /// <summary>Names of installed 32-bit applications.</summary>
        /// <remarks>
        /// Absent or failed: no such applications, or the registry key cannot be read.
        /// Export: App_Get_Win32WOW6432App.
        /// The library does not know the size of its buffer; 524288 characters are enough for known machines.
        /// </remarks>
        public string[] ApplicationNames32(int characters = 524288)
        {
            Failure failure;
            return ApplicationNames32(out failure, characters);
        }

        /// <summary>Names of installed 32-bit applications.</summary>
        /// <remarks>
        /// Absent or failed: no such applications, or the registry key cannot be read.
        /// Export: App_Get_Win32WOW6432App.
        /// The library does not know the size of its buffer; 524288 characters are enough for known machines.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string[] ApplicationNames32(out Failure failure, int characters = 524288)
        {
            owner.Use();
            return Call.Split(Call.Wide(Entries.App_Get_Win32WOW6432App, characters, buffer => NativeMethods.App_Get_Win32WOW6432App(buffer), out failure), true);
        }
    }

    /// <summary>Versions of the maker's software.</summary>
    public sealed class VersionsReadings
    {
        private readonly Readings owner;

        internal VersionsReadings(Readings owner)
        {
            this.owner = owner;
        }

        /// <summary>Version of the maker's driver package.</summary>
        /// <remarks>
        /// Absent or failed: the driver package is not installed, or its version cannot be read.
        /// Export: GetInfVersion.
        /// </remarks>
        public string DriverPackage()
        {
            Failure failure;
            return DriverPackage(out failure);
        }

        /// <summary>Version of the maker's driver package.</summary>
        /// <remarks>
        /// Absent or failed: the driver package is not installed, or its version cannot be read.
        /// Export: GetInfVersion.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string DriverPackage(out Failure failure)
        {
            owner.Use();
            return Call.Wide(Entries.GetInfVersion, 512, buffer => NativeMethods.GetInfVersion(buffer), out failure);
        }

        /// <summary>Version of the maker's assistant package.</summary>
        /// <remarks>
        /// Absent or failed: the assistant package is not installed.
        /// Export: GetUWPVersion.
        /// </remarks>
        public string AssistantPackage()
        {
            Failure failure;
            return AssistantPackage(out failure);
        }

        /// <summary>Version of the maker's assistant package.</summary>
        /// <remarks>
        /// Absent or failed: the assistant package is not installed.
        /// Export: GetUWPVersion.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string AssistantPackage(out Failure failure)
        {
            owner.Use();
            return Call.Wide(Entries.GetUWPVersion, 128, buffer => NativeMethods.GetUWPVersion(buffer), out failure);
        }
    }

    /// <summary>Usage.</summary>
    public sealed class UsageReadings
    {
        private readonly Readings owner;

        internal UsageReadings(Readings owner)
        {
            this.owner = owner;
        }

        /// <summary>Up to five uppermost windows; measures for one second each.</summary>
        /// <remarks>
        /// JSON in which nothing is escaped, so that a name can make it ill-formed.
        /// "[]" can mean: no window counts, or the windows cannot be listed.
        /// Waits 0 to 5000 ms.
        /// Export: AppList_OpenWindows.
        /// </remarks>
        public string OpenWindows()
        {
            Failure failure;
            return OpenWindows(out failure);
        }

        /// <summary>Up to five uppermost windows; measures for one second each.</summary>
        /// <remarks>
        /// JSON in which nothing is escaped, so that a name can make it ill-formed.
        /// "[]" can mean: no window counts, or the windows cannot be listed.
        /// Waits 0 to 5000 ms.
        /// Export: AppList_OpenWindows.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string OpenWindows(out Failure failure)
        {
            owner.Use();
            return Call.Wide(Entries.AppList_OpenWindows, 2048, buffer => NativeMethods.AppList_OpenWindows(buffer), out failure);
        }

        /// <summary>The five busiest processes.</summary>
        /// <remarks>
        /// JSON in which nothing is escaped, so that a name can make it ill-formed.
        /// Failed: the WMI query failed.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: AppList_CpuUsage.
        /// </remarks>
        public string BusiestProcesses()
        {
            Failure failure;
            return BusiestProcesses(out failure);
        }

        /// <summary>The five busiest processes.</summary>
        /// <remarks>
        /// JSON in which nothing is escaped, so that a name can make it ill-formed.
        /// Failed: the WMI query failed.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: AppList_CpuUsage.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string BusiestProcesses(out Failure failure)
        {
            owner.Use();
            return Call.Wide(Entries.AppList_CpuUsage, 4096, buffer => NativeMethods.AppList_CpuUsage(buffer), out failure);
        }

        /// <summary>The ten largest processes.</summary>
        /// <remarks>
        /// JSON in which nothing is escaped, so that a name can make it ill-formed.
        /// Failed: the WMI query failed.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: AppList_MemUsage.
        /// </remarks>
        public string LargestProcesses()
        {
            Failure failure;
            return LargestProcesses(out failure);
        }

        /// <summary>The ten largest processes.</summary>
        /// <remarks>
        /// JSON in which nothing is escaped, so that a name can make it ill-formed.
        /// Failed: the WMI query failed.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: AppList_MemUsage.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string LargestProcesses(out Failure failure)
        {
            owner.Use();
            return Call.Wide(Entries.AppList_MemUsage, 4096, buffer => NativeMethods.AppList_MemUsage(buffer), out failure);
        }

        /// <summary>Brightness and volume.</summary>
        /// <remarks>
        /// JSON in which nothing is escaped, so that a name can make it ill-formed.
        /// Failed or absent: neither value could be read.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: AppList_HardwareConfig.
        /// </remarks>
        public string Settings()
        {
            Failure failure;
            return Settings(out failure);
        }

        /// <summary>Brightness and volume.</summary>
        /// <remarks>
        /// JSON in which nothing is escaped, so that a name can make it ill-formed.
        /// Failed or absent: neither value could be read.
        /// Waits for a service of the system without a limit; the call cannot be cancelled.
        /// Export: AppList_HardwareConfig.
        /// </remarks>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public string Settings(out Failure failure)
        {
            owner.Use();
            return Call.Wide(Entries.AppList_HardwareConfig, 64, buffer => NativeMethods.AppList_HardwareConfig(buffer), out failure);
        }
    }

    /// <summary>All groups of readings: of a <see cref="Session"/>, or of <see cref="Sondrel"/> without one. A reading
    /// without a value is null; its second form also gives the failure. Calls may come from any thread: those that must not
    /// overlap wait for each other.</summary>
    public abstract class Readings
    {
        internal Readings()
        {
        }

        /// <summary>All readings that take no argument, in the order of the library's header.</summary>
        public static IReadOnlyList<ReadingInfo> All { get; } = new[]
        {
            new ReadingInfo("Session", "DriverVersion", "GetDriverVersion", "Version word of the I/O driver", "",
                (Readings readings, Com com, out Failure failure) => readings.Session.DriverVersion(out failure)),
            new ReadingInfo("Session", "DriverReferences", "GetRefCount", "Reference count of the I/O driver", "",
                (Readings readings, Com com, out Failure failure) => readings.Session.DriverReferences(out failure)),
            new ReadingInfo("Session", "IoVersion", "GetIoDllVersion", "Version of the I/O interface, a constant", "",
                (Readings readings, Com com, out Failure failure) => readings.Session.IoVersion(out failure)),
            new ReadingInfo("Identity", "FirmwareRevision", "EC_ReadEcFwRev", "Firmware revision code of the EC: two letters", "",
                (Readings readings, Com com, out Failure failure) => readings.Identity.FirmwareRevision(out failure)),
            new ReadingInfo("Identity", "ChipId", "EC_ReadEcChipId", "Chip id of the EC, which distinguishes variants of one revision code", "",
                (Readings readings, Com com, out Failure failure) => readings.Identity.ChipId(out failure)),
            new ReadingInfo("Identity", "ChipName", "EC_ReadEcChipName", "Chip name of the EC: four characters", "",
                (Readings readings, Com com, out Failure failure) => readings.Identity.ChipName(out failure)),
            new ReadingInfo("Battery", "DesignedCapacity", "Battery_Read_DesignedCapacity", "Capacity that the battery was designed for", "mWh",
                (Readings readings, Com com, out Failure failure) => readings.Battery.DesignedCapacity(out failure)),
            new ReadingInfo("Battery", "FullChargedCapacity", "Battery_Read_FullChargedCapcity", "Capacity of the full battery at present", "mWh",
                (Readings readings, Com com, out Failure failure) => readings.Battery.FullChargedCapacity(out failure)),
            new ReadingInfo("Battery", "Capacity", "Battery_Read_Capacity", "Remaining charge", "mWh",
                (Readings readings, Com com, out Failure failure) => readings.Battery.Capacity(out failure)),
            new ReadingInfo("Battery", "PresentVoltage", "Battery_Read_DesignVoltage", "Present voltage, from the system's battery device", "mV",
                (Readings readings, Com com, out Failure failure) => readings.Battery.PresentVoltage(out failure)),
            new ReadingInfo("Battery", "Health", "Battery_Read_ASOC", "Full capacity as a fraction of the designed capacity", "fraction",
                (Readings readings, Com com, out Failure failure) => readings.Battery.Health(out failure)),
            new ReadingInfo("Battery", "Charge", "Battery_Read_CapacityPercentage", "Remaining charge, rounded to a multiple of ten", "%",
                (Readings readings, Com com, out Failure failure) => readings.Battery.Charge(out failure)),
            new ReadingInfo("BatteryEc", "CycleCount", "Battery_Read_CycleCount", "Charge cycles so far", "cycles",
                (Readings readings, Com com, out Failure failure) => readings.BatteryEc.CycleCount(out failure)),
            new ReadingInfo("BatteryEc", "LidStatus", "Battery_Get_LidStatus", "Lid byte of the EC", "",
                (Readings readings, Com com, out Failure failure) => readings.BatteryEc.LidStatus(out failure)),
            new ReadingInfo("BatteryEc", "ChargingVoltage", "Battery_Read_ChargingVoltage", "Charging voltage, in the EC's own unit", "raw",
                (Readings readings, Com com, out Failure failure) => readings.BatteryEc.ChargingVoltage(out failure)),
            new ReadingInfo("BatteryEc", "PackageVoltage", "Battery_Read_PackageVoltage", "Voltage of the battery pack, in the EC's own unit", "raw",
                (Readings readings, Com com, out Failure failure) => readings.BatteryEc.PackageVoltage(out failure)),
            new ReadingInfo("BatteryEc", "Temperature", "Battery_Read_Temperature", "Temperature of the battery pack, in the EC's own unit", "raw",
                (Readings readings, Com com, out Failure failure) => readings.BatteryEc.Temperature(out failure)),
            new ReadingInfo("BatteryEc", "Current", "Battery_Read_Current", "Battery current, in the EC's own unit", "raw",
                (Readings readings, Com com, out Failure failure) => readings.BatteryEc.Current(out failure)),
            new ReadingInfo("BatteryEc", "CellVoltages", "Battery_Read_CellVoltage", "Voltages of cells 0 to 3, in the EC's own unit", "raw",
                (Readings readings, Com com, out Failure failure) => readings.BatteryEc.CellVoltages(out failure)),
            new ReadingInfo("BatteryEc", "ManufactureDate", "Battery_Read_ManufactureDate", "Date of manufacture of the battery: year-month-day", "",
                (Readings readings, Com com, out Failure failure) => readings.BatteryEc.ManufactureDate(out failure)),
            new ReadingInfo("BatteryEc", "ManufactureName", "Battery_Read_ManufactureName", "Manufacturer of the battery", "",
                (Readings readings, Com com, out Failure failure) => readings.BatteryEc.ManufactureName(out failure)),
            new ReadingInfo("Thermal", "CpuTemperature", "Thermal_Read_Cpu_Temperature", "Processor", "°C",
                (Readings readings, Com com, out Failure failure) => readings.Thermal.CpuTemperature(out failure)),
            new ReadingInfo("Thermal", "BoardLocalTemperature", "Thermal_Read_BoardTS0L_Temperature", "Board, sensor TS0 local", "°C",
                (Readings readings, Com com, out Failure failure) => readings.Thermal.BoardLocalTemperature(out failure)),
            new ReadingInfo("Thermal", "BoardRemoteTemperature", "Thermal_Read_BoardTS0R_Temperature", "Board, sensor TS0 remote", "°C",
                (Readings readings, Com com, out Failure failure) => readings.Thermal.BoardRemoteTemperature(out failure)),
            new ReadingInfo("Thermal", "GpuLocalTemperature", "Thermal_Read_GpuTS1L_Temperature", "Graphics processor, sensor TS1 local", "°C",
                (Readings readings, Com com, out Failure failure) => readings.Thermal.GpuLocalTemperature(out failure)),
            new ReadingInfo("Thermal", "GpuRemoteTemperature", "Thermal_Read_GpuTS1R_Temperature", "Graphics processor, sensor TS1 remote", "°C",
                (Readings readings, Com com, out Failure failure) => readings.Thermal.GpuRemoteTemperature(out failure)),
            new ReadingInfo("Thermal", "BatteryConnectorTemperature", "Thermal_Read_BatteryConnector_Temperature", "Battery connector", "°C",
                (Readings readings, Com com, out Failure failure) => readings.Thermal.BatteryConnectorTemperature(out failure)),
            new ReadingInfo("Thermal", "AcFetTemperature", "Thermal_Read_ACFET_Temperature", "Transistor of the AC input", "°C",
                (Readings readings, Com com, out Failure failure) => readings.Thermal.AcFetTemperature(out failure)),
            new ReadingInfo("Thermal", "ChargerChokeTemperature", "Thermal_Read_ChargerChoke_Temperature", "Choke of the charger", "°C",
                (Readings readings, Com com, out Failure failure) => readings.Thermal.ChargerChokeTemperature(out failure)),
            new ReadingInfo("Thermal", "GpuVrmTemperature", "Thermal_Read_GpuVrm_Temperature", "Voltage regulator of the graphics processor", "°C",
                (Readings readings, Com com, out Failure failure) => readings.Thermal.GpuVrmTemperature(out failure)),
            new ReadingInfo("Thermal", "UpperCpuTemperature", "Thermal_Read_UpCpu_Temperature", "Above the processor", "°C",
                (Readings readings, Com com, out Failure failure) => readings.Thermal.UpperCpuTemperature(out failure)),
            new ReadingInfo("Thermal", "GpuVramTemperature", "Thermal_Read_GpuVram_Temperature", "Graphics memory", "°C",
                (Readings readings, Com com, out Failure failure) => readings.Thermal.GpuVramTemperature(out failure)),
            new ReadingInfo("Thermal", "FanSpeeds", "Thermal_Read_Fan", "Speeds of fans 0 to 3", "rpm",
                (Readings readings, Com com, out Failure failure) => readings.Thermal.FanSpeeds(out failure)),
            new ReadingInfo("Processor", "Usage", "CPU_ReadCPUUsage", "Busy fraction of all processors together, measured for one second", "fraction",
                (Readings readings, Com com, out Failure failure) => readings.Processor.Usage(out failure)),
            new ReadingInfo("Processor", "PackagePower", "Thermal_Read_CpuPackagePower", "Power of the processor package, in the driver's own unit", "raw",
                (Readings readings, Com com, out Failure failure) => readings.Processor.PackagePower(out failure)),
            new ReadingInfo("Processor", "PowerLimit1", "Thermal_Read_CpuDptf_PowerLimit1", "Power limit 1, in the driver's own unit", "raw",
                (Readings readings, Com com, out Failure failure) => readings.Processor.PowerLimit1(out failure)),
            new ReadingInfo("Processor", "PowerLimit2", "Thermal_Read_CpuDptf_PowerLimit2", "Power limit 2, in the driver's own unit", "raw",
                (Readings readings, Com com, out Failure failure) => readings.Processor.PowerLimit2(out failure)),
            new ReadingInfo("Processor", "PowerSource", "Power_Read_ACDCMode", "Battery or AC power", "",
                (Readings readings, Com com, out Failure failure) => readings.Processor.PowerSource(out failure)),
            new ReadingInfo("FirmwareLog", "EventStore", "GetEEPROM_Data", "Version, registers and event log of the firmware's store", "",
                (Readings readings, Com com, out Failure failure) => readings.FirmwareLog.EventStore(out failure)),
            new ReadingInfo("FirmwareLog", "ProximitySensor", "GetSENSOR_WMI_Data", "Status of the proximity sensor", "",
                (Readings readings, Com com, out Failure failure) => readings.FirmwareLog.ProximitySensor(out failure)),
            new ReadingInfo("FirmwareVariables", "RandomUuid", "GPNV_Get_RandomUUID", "Random UUID of the machine", "",
                (Readings readings, Com com, out Failure failure) => readings.FirmwareVariables.RandomUuid(out failure)),
            new ReadingInfo("FirmwareVariables", "ActivatedTime", "GPNV_Get_ActivatedTime", "When the machine was activated", "",
                (Readings readings, Com com, out Failure failure) => readings.FirmwareVariables.ActivatedTime(out failure)),
            new ReadingInfo("FirmwareVariables", "ManufacturedTime", "GPNV_Get_ManufacturedTime", "When the machine was manufactured", "",
                (Readings readings, Com com, out Failure failure) => readings.FirmwareVariables.ManufacturedTime(out failure)),
            new ReadingInfo("Features", "BatteryHealthSupport", "WMICheckBatteryHealthSupport", "Whether the firmware has Battery Health", "",
                (Readings readings, Com com, out Failure failure) => readings.Features.BatteryHealthSupport(out failure, com)),
            new ReadingInfo("Features", "QuietFanSupport", "WMICheckQuietFanSupport", "Whether the firmware has Quiet Fan, and its state", "",
                (Readings readings, Com com, out Failure failure) => readings.Features.QuietFanSupport(out failure, com)),
            new ReadingInfo("Features", "BatteryHealth", "WMIGetBatteryHealth", "Battery Health as last set", "%",
                (Readings readings, Com com, out Failure failure) => readings.Features.BatteryHealth(out failure, com)),
            new ReadingInfo("Features", "QuietFan", "WMIGetQuietFan", "Quiet Fan as last set: 1, 2 or 3", "",
                (Readings readings, Com com, out Failure failure) => readings.Features.QuietFan(out failure, com)),
            new ReadingInfo("Inventory", "MakersNumber", "WMIGet90Number", "The maker's number of the machine: its fifth OEM string", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.MakersNumber(out failure, com)),
            new ReadingInfo("Inventory", "BoardMaker", "WMIGetBiosManufacture", "Manufacturer of the base board", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.BoardMaker(out failure, com)),
            new ReadingInfo("Inventory", "BiosReleaseDate", "WMIGetBiosReleaseDate", "Release date of the BIOS: year, month, day", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.BiosReleaseDate(out failure, com)),
            new ReadingInfo("Inventory", "BiosVersion", "WMIGetBiosVersion", "Version of the BIOS", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.BiosVersion(out failure, com)),
            new ReadingInfo("Inventory", "MachineUuid", "WMIGetBoardUUID", "UUID of the machine", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.MachineUuid(out failure, com)),
            new ReadingInfo("Inventory", "CpuNames", "WMIGetCPUInfo", "Name of each processor", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.CpuNames(out failure, com)),
            new ReadingInfo("Inventory", "CpuLoad", "WMIGetCPUUsg", "Load of the last processor that reports one", "%",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.CpuLoad(out failure, com)),
            new ReadingInfo("Inventory", "ProductFamily", "WMIGetComputerFamilyName", "Product family of the machine", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.ProductFamily(out failure, com)),
            new ReadingInfo("Inventory", "ExternalDisplays", "WMIGetExternMonitorNum", "Number of external displays", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.ExternalDisplays(out failure, com)),
            new ReadingInfo("Inventory", "GpuNames", "WMIGetGPUInfo", "Name of each graphics adapter", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.GpuNames(out failure, com)),
            new ReadingInfo("Inventory", "DiskCaptions", "WMIGetHDDCaption", "Name of each fixed disk", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.DiskCaptions(out failure, com)),
            new ReadingInfo("Inventory", "Disks", "WMIGetHDDInfo", "Model, size in bytes and media type (3 hard disk, 4 SSD) of each disk", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.Disks(out failure, com)),
            new ReadingInfo("Inventory", "HardDiskModels", "WMIGetHDDModel", "Model of each hard disk", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.HardDiskModels(out failure, com)),
            new ReadingInfo("Inventory", "DiskSizes", "WMIGetHDDSize", "Size of each fixed disk", "bytes",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.DiskSizes(out failure, com)),
            new ReadingInfo("Inventory", "DiskTemperatures", "WMIGetHDDTemp", "Temperature of each disk that reports one", "°C",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.DiskTemperatures(out failure, com)),
            new ReadingInfo("Inventory", "DisplayModels", "WMIGetLCDModel", "Name of each monitor", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.DisplayModels(out failure, com)),
            new ReadingInfo("Inventory", "MacAddresses", "WMIGetMacAddress", "Address of each physical network adapter", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.MacAddresses(out failure, com)),
            new ReadingInfo("Inventory", "MemoryMakers", "WMIGetMemManufacture", "Manufacturer of each memory module", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.MemoryMakers(out failure, com)),
            new ReadingInfo("Inventory", "MemoryModels", "WMIGetMemModel", "Part number of each memory module", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.MemoryModels(out failure, com)),
            new ReadingInfo("Inventory", "MemorySizes", "WMIGetMemSize", "Size of each memory module", "bytes",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.MemorySizes(out failure, com)),
            new ReadingInfo("Inventory", "BoardName", "WMIGetModelName", "Product name of the base board", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.BoardName(out failure, com)),
            new ReadingInfo("Inventory", "Brightness", "WMIGetMonitorBrightness", "Brightness of the display", "%",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.Brightness(out failure, com)),
            new ReadingInfo("Inventory", "OsCountryCode", "WMIGetOSCountryCode", "Country code of the operating system", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.OsCountryCode(out failure, com)),
            new ReadingInfo("Inventory", "Os", "WMIGetOSInfo", "Name, architecture and version of the operating system", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.Os(out failure, com)),
            new ReadingInfo("Inventory", "ProductName", "WMIGetProductName", "Product name of the machine", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.ProductName(out failure, com)),
            new ReadingInfo("Inventory", "SerialNumber", "WMIGetSN", "Serial number of the machine", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.SerialNumber(out failure, com)),
            new ReadingInfo("Inventory", "SsdModels", "WMIGetSSDModel", "Model of each SSD", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.SsdModels(out failure, com)),
            new ReadingInfo("Inventory", "Chassis", "WMIGetSystemChassisTypes", "Kind of machine: Desktop, Notebook or All in One", "",
                (Readings readings, Com com, out Failure failure) => readings.Inventory.Chassis(out failure, com)),
            new ReadingInfo("Adapters", "WifiCards", "WMIGetWiFiCardName", "Name of each Wi-Fi adapter", "",
                (Readings readings, Com com, out Failure failure) => readings.Adapters.WifiCards(out failure, com)),
            new ReadingInfo("Adapters", "WifiTraffic", "WMIGetWiFiBytesPersec", "Traffic of the Wi-Fi adapter: received, sent", "bytes/s",
                (Readings readings, Com com, out Failure failure) => readings.Adapters.WifiTraffic(out failure, com)),
            new ReadingInfo("Wifi", "Connected", "RF_WiFiIsConnected", "Whether Wi-Fi is connected", "",
                (Readings readings, Com com, out Failure failure) => readings.Wifi.Connected(out failure)),
            new ReadingInfo("Wifi", "CardName", "RF_WiFiCardName", "Name of the Wi-Fi adapter", "",
                (Readings readings, Com com, out Failure failure) => readings.Wifi.CardName(out failure)),
            new ReadingInfo("Wifi", "Signal", "RF_WiFiRssi", "Signal of the access point", "dBm",
                (Readings readings, Com com, out Failure failure) => readings.Wifi.Signal(out failure)),
            new ReadingInfo("Wifi", "Channel", "RF_WiFiChannel", "Channel number", "",
                (Readings readings, Com com, out Failure failure) => readings.Wifi.Channel(out failure)),
            new ReadingInfo("Wifi", "AccessPointPrefix", "RF_AP_MAC", "First three octets of the access point's address", "",
                (Readings readings, Com com, out Failure failure) => readings.Wifi.AccessPointPrefix(out failure)),
            new ReadingInfo("Wifi", "MaxRate", "RF_WiFiMaxRate", "Highest link rate of the access point", "Mbit/s",
                (Readings readings, Com com, out Failure failure) => readings.Wifi.MaxRate(out failure)),
            new ReadingInfo("Wifi", "PhyMode", "RF_PhyMode", "Radio standard of the connection", "",
                (Readings readings, Com com, out Failure failure) => readings.Wifi.PhyMode(out failure)),
            new ReadingInfo("Bluetooth", "Connected", "RF_BTIsUsed", "Whether a Bluetooth device is connected", "",
                (Readings readings, Com com, out Failure failure) => readings.Bluetooth.Connected(out failure)),
            new ReadingInfo("Bluetooth", "DeviceCount", "RF_BTConnectedNum", "Number of connected Bluetooth devices", "",
                (Readings readings, Com com, out Failure failure) => readings.Bluetooth.DeviceCount(out failure)),
            new ReadingInfo("Bluetooth", "DeviceTypes", "RF_BTConnectedType", "Kind of each connected Bluetooth device", "",
                (Readings readings, Com com, out Failure failure) => readings.Bluetooth.DeviceTypes(out failure)),
            new ReadingInfo("System", "SMode", "System_Check_S_Mode", "Whether Windows runs in S mode", "",
                (Readings readings, Com com, out Failure failure) => readings.System.SMode(out failure)),
            new ReadingInfo("System", "Country", "System_GetCountryCode_ISO2", "The user's country, two letters", "",
                (Readings readings, Com com, out Failure failure) => readings.System.Country(out failure)),
            new ReadingInfo("System", "LocalTime", "System_Read_LocalTime", "Local date and time", "",
                (Readings readings, Com com, out Failure failure) => readings.System.LocalTime(out failure)),
            new ReadingInfo("System", "Volume", "System_Read_VolumeLevel", "Master volume, muted or not", "%",
                (Readings readings, Com com, out Failure failure) => readings.System.Volume(out failure, com)),
            new ReadingInfo("System", "TabletMode", "System_Read_TabletMode", "Tablet mode byte of the EC", "",
                (Readings readings, Com com, out Failure failure) => readings.System.TabletMode(out failure)),
            new ReadingInfo("Applications", "Applications64", "GetApplist_x64", "Installed 64-bit applications with versions", "",
                (Readings readings, Com com, out Failure failure) => readings.Applications.Applications64(out failure)),
            new ReadingInfo("Applications", "Applications32", "GetApplist_x86", "Installed 32-bit applications with versions", "",
                (Readings readings, Com com, out Failure failure) => readings.Applications.Applications32(out failure)),
            new ReadingInfo("Applications", "Packages", "GetApplist_UWP", "Installed packages with their display names", "",
                (Readings readings, Com com, out Failure failure) => readings.Applications.Packages(out failure)),
            new ReadingInfo("Applications", "PackageNames", "App_Get_UWPApp", "Names of installed packages", "",
                (Readings readings, Com com, out Failure failure) => readings.Applications.PackageNames(out failure)),
            new ReadingInfo("Applications", "ApplicationNames64", "App_Get_Win32App", "Names of installed 64-bit applications", "",
                (Readings readings, Com com, out Failure failure) => readings.Applications.ApplicationNames64(out failure)),
            new ReadingInfo("Applications", "ApplicationNames32", "App_Get_Win32WOW6432App", "Names of installed 32-bit applications", "",
                (Readings readings, Com com, out Failure failure) => readings.Applications.ApplicationNames32(out failure)),
            new ReadingInfo("Versions", "DriverPackage", "GetInfVersion", "Version of the maker's driver package", "",
                (Readings readings, Com com, out Failure failure) => readings.Versions.DriverPackage(out failure)),
            new ReadingInfo("Versions", "AssistantPackage", "GetUWPVersion", "Version of the maker's assistant package", "",
                (Readings readings, Com com, out Failure failure) => readings.Versions.AssistantPackage(out failure)),
            new ReadingInfo("Usage", "OpenWindows", "AppList_OpenWindows", "Up to five uppermost windows; measures for one second each", "",
                (Readings readings, Com com, out Failure failure) => readings.Usage.OpenWindows(out failure)),
            new ReadingInfo("Usage", "BusiestProcesses", "AppList_CpuUsage", "The five busiest processes", "",
                (Readings readings, Com com, out Failure failure) => readings.Usage.BusiestProcesses(out failure)),
            new ReadingInfo("Usage", "LargestProcesses", "AppList_MemUsage", "The ten largest processes", "",
                (Readings readings, Com com, out Failure failure) => readings.Usage.LargestProcesses(out failure)),
            new ReadingInfo("Usage", "Settings", "AppList_HardwareConfig", "Brightness and volume", "",
                (Readings readings, Com com, out Failure failure) => readings.Usage.Settings(out failure))
        };

        /// <summary>Session and versions.</summary>
        public SessionReadings Session
        {
            get { return new SessionReadings(this); }
        }

        /// <summary>Embedded controller: identity.</summary>
        public IdentityReadings Identity
        {
            get { return new IdentityReadings(this); }
        }

        /// <summary>Battery: from the system's battery device.</summary>
        public BatteryReadings Battery
        {
            get { return new BatteryReadings(this); }
        }

        /// <summary>Battery: from the embedded controller.</summary>
        public BatteryEcReadings BatteryEc
        {
            get { return new BatteryEcReadings(this); }
        }

        /// <summary>Temperatures and fans.</summary>
        public ThermalReadings Thermal
        {
            get { return new ThermalReadings(this); }
        }

        /// <summary>Processor and power.</summary>
        public ProcessorReadings Processor
        {
            get { return new ProcessorReadings(this); }
        }

        /// <summary>Firmware: event log and sensor.</summary>
        public FirmwareLogReadings FirmwareLog
        {
            get { return new FirmwareLogReadings(this); }
        }

        /// <summary>Firmware: variables.</summary>
        public FirmwareVariablesReadings FirmwareVariables
        {
            get { return new FirmwareVariablesReadings(this); }
        }

        /// <summary>Firmware: Battery Health and Quiet Fan.</summary>
        public FeaturesReadings Features
        {
            get { return new FeaturesReadings(this); }
        }

        /// <summary>Inventory.</summary>
        public InventoryReadings Inventory
        {
            get { return new InventoryReadings(this); }
        }

        /// <summary>Network adapters.</summary>
        public AdaptersReadings Adapters
        {
            get { return new AdaptersReadings(this); }
        }

        /// <summary>Wi-Fi.</summary>
        public WifiReadings Wifi
        {
            get { return new WifiReadings(this); }
        }

        /// <summary>Bluetooth.</summary>
        public BluetoothReadings Bluetooth
        {
            get { return new BluetoothReadings(this); }
        }

        /// <summary>System.</summary>
        public SystemReadings System
        {
            get { return new SystemReadings(this); }
        }

        /// <summary>Installed applications.</summary>
        public ApplicationsReadings Applications
        {
            get { return new ApplicationsReadings(this); }
        }

        /// <summary>Versions of the maker's software.</summary>
        public VersionsReadings Versions
        {
            get { return new VersionsReadings(this); }
        }

        /// <summary>Usage.</summary>
        public UsageReadings Usage
        {
            get { return new UsageReadings(this); }
        }

        internal virtual void Use()
        {
        }
    }

    internal static class StateMeanings
    {
        internal static string Of(State state)
        {
            switch (state)
            {
                case State.Ok:
                    return "a value";
                case State.Failed:
                    return "the reading was tried and failed";
                case State.Absent:
                    return "this machine has no such thing";
                case State.NotRead:
                    return "the read succeeded and found nothing for this field";
                case State.NoSession:
                    return "no driver session is open, and what the reading needs is not cached";
                case State.NotReady:
                    return "the sensor has no measurement yet";
                default:
                    return "";
            }
        }
    }

    internal static class Entries
    {
        internal static readonly Entry InitializeSondrel = new Entry("InitializeSondrel", Resources.Session | Resources.DriverDevice,
            new Answer(Match.Number, 1, null, "the session is open", State.Ok),
            new Answer(Match.Number, 0, null, "the driver's device is missing or refused to open", State.Failed));

        internal static readonly Entry GetDriverVersion = new Entry("GetDriverVersion", Resources.Session,
            new Answer(Match.Number, 0, null, "no session is open, or the driver refused", State.Failed, State.NoSession));

        internal static readonly Entry GetRefCount = new Entry("GetRefCount", Resources.Session,
            new Answer(Match.Number, 0, null, "no session is open, or the driver refused", State.Failed, State.NoSession));

        internal static readonly Entry GetIoDllVersion = new Entry("GetIoDllVersion", Resources.None);

        internal static readonly Entry EC_ReadEcFwRev = new Entry("EC_ReadEcFwRev", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession));

        internal static readonly Entry EC_ReadEcChipId = new Entry("EC_ReadEcChipId", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession));

        internal static readonly Entry EC_ReadEcChipName = new Entry("EC_ReadEcChipName", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession));

        internal static readonly Entry Battery_Read_DesignedCapacity = new Entry("Battery_Read_DesignedCapacity", Resources.None,
            new Answer(Match.Number, 0, null, "no battery, or the device does not give this value", State.Absent, State.Failed));

        internal static readonly Entry Battery_Read_FullChargedCapcity = new Entry("Battery_Read_FullChargedCapcity", Resources.None,
            new Answer(Match.Number, 0, null, "no battery, or the device does not give this value", State.Absent, State.Failed));

        internal static readonly Entry Battery_Read_Capacity = new Entry("Battery_Read_Capacity", Resources.None,
            new Answer(Match.Number, 0, null, "no battery, or the device does not give this value", State.Absent, State.Failed));

        internal static readonly Entry Battery_Read_DesignVoltage = new Entry("Battery_Read_DesignVoltage", Resources.None,
            new Answer(Match.Number, 0, null, "no battery, or the device does not give this value", State.Absent, State.Failed));

        internal static readonly Entry Battery_Read_ASOC = new Entry("Battery_Read_ASOC", Resources.None,
            new Answer(Match.Number, 0, null, "no battery, or the device does not give this value", State.Absent, State.Failed));

        internal static readonly Entry Battery_Read_CapacityPercentage = new Entry("Battery_Read_CapacityPercentage", Resources.None,
            new Answer(Match.Number, 0, null, "empty, or no battery", State.Ok, State.Absent, State.Failed));

        internal static readonly Entry Battery_Read_CycleCount = new Entry("Battery_Read_CycleCount", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession),
            new Answer(Match.Number, 0, null, "no cycles, or this machine does not count them", State.Ok, State.Absent, State.Failed, State.NoSession));

        internal static readonly Entry Battery_Get_LidStatus = new Entry("Battery_Get_LidStatus", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession),
            new Answer(Match.Number, 0, null, "the byte is 0, or no such reading on this machine", State.Ok, State.Absent, State.NoSession));

        internal static readonly Entry Battery_Read_ChargingVoltage = new Entry("Battery_Read_ChargingVoltage", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession),
            new Answer(Match.Number, 0, null, "no such reading on this machine, or the EC cannot be identified", State.Absent, State.NoSession, State.Ok));

        internal static readonly Entry Battery_Read_PackageVoltage = new Entry("Battery_Read_PackageVoltage", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession),
            new Answer(Match.Number, 0, null, "no such reading on this machine, or the EC cannot be identified", State.Absent, State.NoSession, State.Ok));

        internal static readonly Entry Battery_Read_Temperature = new Entry("Battery_Read_Temperature", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession),
            new Answer(Match.Number, 0, null, "no such reading on this machine, or the EC cannot be identified", State.Absent, State.NoSession, State.Ok));

        internal static readonly Entry Battery_Read_Current = new Entry("Battery_Read_Current", Resources.Session | Resources.Ec,
            new Answer(Match.Number, -1, null, "an EC command failed, or no session is open", State.Failed, State.NoSession, State.Ok),
            new Answer(Match.Number, 0, null, "no current, or no such reading on this machine", State.Ok, State.Absent, State.NoSession));

        internal static readonly Entry Battery_Read_CellVoltage = new Entry("Battery_Read_CellVoltage", Resources.Session | Resources.Ec,
            new Answer(Match.Element, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession),
            new Answer(Match.Element, 0, null, "no such cell on this machine, or the EC cannot be identified", State.Absent, State.NoSession, State.Ok));

        internal static readonly Entry Battery_Read_ManufactureDate = new Entry("Battery_Read_ManufactureDate", Resources.Session | Resources.Ec,
            new Answer(Match.String, 0, "1980-01-01", "the battery gives no date, or an EC command failed", State.Absent, State.Failed, State.NoSession));

        internal static readonly Entry Battery_Read_ManufactureName = new Entry("Battery_Read_ManufactureName", Resources.Session | Resources.Ec,
            new Answer(Match.String, 0, "0x7FFFFFFF", "the battery gives no name, or an EC command failed", State.Absent, State.Failed, State.NoSession));

        internal static readonly Entry Thermal_Read_Cpu_Temperature = new Entry("Thermal_Read_Cpu_Temperature", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession),
            new Answer(Match.Number, 0, null, "no such reading on this machine, or the EC cannot be identified", State.Absent, State.NoSession, State.Ok));

        internal static readonly Entry Thermal_Read_BoardTS0L_Temperature = new Entry("Thermal_Read_BoardTS0L_Temperature", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession),
            new Answer(Match.Number, 0, null, "no such reading on this machine, or the EC cannot be identified", State.Absent, State.NoSession, State.Ok));

        internal static readonly Entry Thermal_Read_BoardTS0R_Temperature = new Entry("Thermal_Read_BoardTS0R_Temperature", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession),
            new Answer(Match.Number, 0, null, "no such reading on this machine, or the EC cannot be identified", State.Absent, State.NoSession, State.Ok));

        internal static readonly Entry Thermal_Read_GpuTS1L_Temperature = new Entry("Thermal_Read_GpuTS1L_Temperature", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession),
            new Answer(Match.Number, 0, null, "no such reading on this machine, or the EC cannot be identified", State.Absent, State.NoSession, State.Ok));

        internal static readonly Entry Thermal_Read_GpuTS1R_Temperature = new Entry("Thermal_Read_GpuTS1R_Temperature", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession),
            new Answer(Match.Number, 0, null, "no such reading on this machine, or the EC cannot be identified", State.Absent, State.NoSession, State.Ok));

        internal static readonly Entry Thermal_Read_BatteryConnector_Temperature = new Entry("Thermal_Read_BatteryConnector_Temperature", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession),
            new Answer(Match.Number, 0, null, "no such reading on this machine, or the sensor is not ready", State.Absent, State.NotReady, State.NoSession, State.Ok));

        internal static readonly Entry Thermal_Read_ACFET_Temperature = new Entry("Thermal_Read_ACFET_Temperature", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession),
            new Answer(Match.Number, 0, null, "no such reading on this machine, or the sensor is not ready", State.Absent, State.NotReady, State.NoSession, State.Ok));

        internal static readonly Entry Thermal_Read_ChargerChoke_Temperature = new Entry("Thermal_Read_ChargerChoke_Temperature", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession),
            new Answer(Match.Number, 0, null, "no such reading on this machine, or the sensor is not ready", State.Absent, State.NotReady, State.NoSession, State.Ok));

        internal static readonly Entry Thermal_Read_GpuVrm_Temperature = new Entry("Thermal_Read_GpuVrm_Temperature", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession),
            new Answer(Match.Number, 0, null, "no such reading on this machine, or the sensor is not ready", State.Absent, State.NotReady, State.NoSession, State.Ok));

        internal static readonly Entry Thermal_Read_UpCpu_Temperature = new Entry("Thermal_Read_UpCpu_Temperature", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession),
            new Answer(Match.Number, 0, null, "no such reading on this machine, or the sensor is not ready", State.Absent, State.NotReady, State.NoSession, State.Ok));

        internal static readonly Entry Thermal_Read_GpuVram_Temperature = new Entry("Thermal_Read_GpuVram_Temperature", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession),
            new Answer(Match.Number, 0, null, "no such reading on this machine, or the sensor is not ready", State.Absent, State.NotReady, State.NoSession, State.Ok));

        internal static readonly Entry Thermal_Read_Fan = new Entry("Thermal_Read_Fan", Resources.Session | Resources.Ec,
            new Answer(Match.Element, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession),
            new Answer(Match.Element, 0, null, "the fan does not turn, or this machine does not have it", State.Ok, State.Absent, State.NoSession));

        internal static readonly Entry CPU_ReadCPUUsage = new Entry("CPU_ReadCPUUsage", Resources.None,
            new Answer(Match.Number, 0, null, "idle, or a sample failed", State.Ok, State.Failed));

        internal static readonly Entry CPU_ReadCpuId = new Entry("CPU_ReadCpuId", Resources.Session,
            new Answer(Match.Untouched, 0, null, "no session is open", State.NoSession),
            new Answer(Match.Zeros, 0, null, "the driver refused", State.Failed, State.Ok));

        internal static readonly Entry Thermal_Read_CpuPackagePower = new Entry("Thermal_Read_CpuPackagePower", Resources.Session,
            new Answer(Match.Number, 0, null, "no session is open, or the processor has no such value", State.Absent, State.Failed, State.NoSession));

        internal static readonly Entry Thermal_Read_CpuDptf_PowerLimit1 = new Entry("Thermal_Read_CpuDptf_PowerLimit1", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 0, null, "no session is open, or the processor has no such value", State.Absent, State.Failed, State.NoSession));

        internal static readonly Entry Thermal_Read_CpuDptf_PowerLimit2 = new Entry("Thermal_Read_CpuDptf_PowerLimit2", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 0, null, "no session is open, or the processor has no such value", State.Absent, State.Failed, State.NoSession));

        internal static readonly Entry Power_Read_ACDCMode = new Entry("Power_Read_ACDCMode", Resources.None,
            new Answer(Match.Number, 0, null, "on battery", State.Ok),
            new Answer(Match.Number, 1, null, "on AC power", State.Ok),
            new Answer(Match.Number, 255, null, "the system does not know", State.Failed, State.Absent));

        internal static readonly Entry GetEEPROM_Data = new Entry("GetEEPROM_Data", Resources.AcpiDevice | Resources.EventLog,
            new Answer(Match.String, 0, "{\"version\":\"\",\"register_count\":\"\",\"register\":[\"\"],\"event\":[]}", "the firmware's device does not answer", State.Failed, State.Absent));

        internal static readonly Entry GetSENSOR_WMI_Data = new Entry("GetSENSOR_WMI_Data", Resources.AcpiDevice,
            new Answer(Match.String, 0, "{\"p_sensor\":\"\"}", "the sensor could not be read", State.Failed, State.Absent));

        internal static readonly Entry GPNV_Get_RandomUUID = new Entry("GPNV_Get_RandomUUID", Resources.FirmwareVariables,
            new Answer(Match.Untouched, 0, null, "the firmware variable cannot be read", State.Failed),
            new Answer(Match.ErrorCode, 0, null, "the system's error code of the failed read", State.Failed));

        internal static readonly Entry GPNV_Get_ActivatedTime = new Entry("GPNV_Get_ActivatedTime", Resources.FirmwareVariables,
            new Answer(Match.Untouched, 0, null, "the firmware variable cannot be read", State.Failed));

        internal static readonly Entry GPNV_Get_ManufacturedTime = new Entry("GPNV_Get_ManufacturedTime", Resources.FirmwareVariables,
            new Answer(Match.Untouched, 0, null, "the firmware variable cannot be read", State.Failed),
            new Answer(Match.ErrorCode, 0, null, "the system's error code of the failed read", State.Failed));

        internal static readonly Entry GPNV_Set_RandomUUID = new Entry("GPNV_Set_RandomUUID", Resources.FirmwareVariables,
            new Answer(Match.Number, 0, null, "written, or the variable could not be read and was left as it is", State.Ok, State.Failed),
            new Answer(Match.Number, 13, null, "the variable ends before the field; or the system's code of the failed write", State.Failed),
            new Answer(Match.Other, 0, null, "the system's error code of the failed write", State.Failed));

        internal static readonly Entry GPNV_Set_ActivatedTime = new Entry("GPNV_Set_ActivatedTime", Resources.FirmwareVariables,
            new Answer(Match.Number, 0, null, "written, or the variable could not be read and was left as it is", State.Ok, State.Failed),
            new Answer(Match.Number, 13, null, "the variable ends before the field; or the system's code of the failed write", State.Failed),
            new Answer(Match.Other, 0, null, "the system's error code of the failed write", State.Failed));

        internal static readonly Entry GPNV_Set_ManufacturedTime = new Entry("GPNV_Set_ManufacturedTime", Resources.FirmwareVariables,
            new Answer(Match.Number, 0, null, "written, or the variable could not be read and was left as it is", State.Ok, State.Failed),
            new Answer(Match.Number, 13, null, "the variable ends before the field; or the system's code of the failed write", State.Failed),
            new Answer(Match.Other, 0, null, "the system's error code of the failed write", State.Failed));

        internal static readonly Entry WMICheckBatteryHealthSupport = new Entry("WMICheckBatteryHealthSupport", Resources.None,
            new Answer(Match.Number, 1, null, "supported", State.Ok),
            new Answer(Match.Number, 0, null, "not supported, or the firmware did not answer", State.Ok, State.Failed));

        internal static readonly Entry WMICheckQuietFanSupport = new Entry("WMICheckQuietFanSupport", Resources.None,
            new Answer(Match.Number, 0, null, "supported, off", State.Ok),
            new Answer(Match.Number, 1, null, "supported, on", State.Ok),
            new Answer(Match.Number, -1, null, "not supported, or the firmware did not answer", State.Absent, State.Failed));

        internal static readonly Entry WMIGetBatteryHealth = new Entry("WMIGetBatteryHealth", Resources.AppPath | Resources.BatteryHealthSetting,
            new Answer(Match.Number, 100, null, "also the default where nothing is stored", State.Ok, State.Absent, State.Failed));

        internal static readonly Entry WMIGetQuietFan = new Entry("WMIGetQuietFan", Resources.AppPath | Resources.QuietFanSetting,
            new Answer(Match.Number, 0, null, "off, or nothing is stored", State.Ok, State.Absent, State.Failed));

        internal static readonly Entry WMISetBatteryHealth = new Entry("WMISetBatteryHealth", Resources.AppPath | Resources.BatteryHealthSetting,
            new Answer(Match.Number, 1, null, "the firmware accepted the value", State.Ok),
            new Answer(Match.Number, 0, null, "the firmware did not accept the value, or does not have the feature", State.Failed, State.Absent));

        internal static readonly Entry WMISetQuietFan = new Entry("WMISetQuietFan", Resources.AppPath | Resources.QuietFanSetting,
            new Answer(Match.Number, 1, null, "the firmware accepted the value", State.Ok),
            new Answer(Match.Number, 0, null, "the firmware did not accept the value, or does not have the feature", State.Failed, State.Absent));

        internal static readonly Entry WMISetAppPath = new Entry("WMISetAppPath", Resources.AppPath,
            new Answer(Match.Number, 1, null, "stored", State.Ok),
            new Answer(Match.Number, 0, null, "not stored", State.Failed));

        internal static readonly Entry WMIGet90Number = new Entry("WMIGet90Number", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetBiosManufacture = new Entry("WMIGetBiosManufacture", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetBiosReleaseDate = new Entry("WMIGetBiosReleaseDate", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetBiosVersion = new Entry("WMIGetBiosVersion", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetBoardUUID = new Entry("WMIGetBoardUUID", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetCPUInfo = new Entry("WMIGetCPUInfo", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetCPUUsg = new Entry("WMIGetCPUUsg", Resources.None,
            new Answer(Match.Number, -1, null, "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetComputerFamilyName = new Entry("WMIGetComputerFamilyName", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetExternMonitorNum = new Entry("WMIGetExternMonitorNum", Resources.None,
            new Answer(Match.Number, -1, null, "the WMI query failed", State.Failed),
            new Answer(Match.Number, 0, null, "none, or WMI gave no row", State.Ok, State.Failed));

        internal static readonly Entry WMIGetGPUInfo = new Entry("WMIGetGPUInfo", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetHDDCaption = new Entry("WMIGetHDDCaption", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetHDDInfo = new Entry("WMIGetHDDInfo", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetHDDModel = new Entry("WMIGetHDDModel", Resources.None,
            new Answer(Match.String, 0, "", "no such disk, or the WMI query failed", State.Absent, State.Failed));

        internal static readonly Entry WMIGetHDDSize = new Entry("WMIGetHDDSize", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetHDDTemp = new Entry("WMIGetHDDTemp", Resources.SmartTable,
            new Answer(Match.String, 0, "", "no disk reports a temperature, or the WMI query failed", State.Absent, State.Failed));

        internal static readonly Entry WMIGetLCDModel = new Entry("WMIGetLCDModel", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetMacAddress = new Entry("WMIGetMacAddress", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetMemManufacture = new Entry("WMIGetMemManufacture", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetMemModel = new Entry("WMIGetMemModel", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetMemSize = new Entry("WMIGetMemSize", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetModelName = new Entry("WMIGetModelName", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetMonitorBrightness = new Entry("WMIGetMonitorBrightness", Resources.None,
            new Answer(Match.Number, -1, null, "the WMI query failed, or no display reports its brightness", State.Failed, State.Absent));

        internal static readonly Entry WMIGetOSCountryCode = new Entry("WMIGetOSCountryCode", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetOSInfo = new Entry("WMIGetOSInfo", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetProductName = new Entry("WMIGetProductName", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetSN = new Entry("WMIGetSN", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent));

        internal static readonly Entry WMIGetSSDModel = new Entry("WMIGetSSDModel", Resources.None,
            new Answer(Match.String, 0, "", "no such disk, or the WMI query failed", State.Absent, State.Failed));

        internal static readonly Entry WMIGetSystemChassisTypes = new Entry("WMIGetSystemChassisTypes", Resources.None,
            new Answer(Match.String, 0, "unknown", "the WMI query failed, or the kind has no name", State.Failed, State.Absent));

        internal static readonly Entry wmiadd = new Entry("wmiadd", Resources.None);

        internal static readonly Entry WMIGetWiFiCardName = new Entry("WMIGetWiFiCardName", Resources.None,
            new Answer(Match.String, 0, "", "no Wi-Fi adapter, or the WMI query failed", State.Absent, State.Failed),
            new Answer(Match.Untouched, 0, null, "the system lists no network adapters", State.Absent, State.Failed));

        internal static readonly Entry WMIGetWiFiBytesPersec = new Entry("WMIGetWiFiBytesPersec", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed or found nothing", State.Failed, State.Absent),
            new Answer(Match.String, 0, "0;0", "no traffic, or no counter of this adapter", State.Ok, State.Absent));

        internal static readonly Entry RF_WiFiIsConnected = new Entry("RF_WiFiIsConnected", Resources.None,
            new Answer(Match.Number, 0, null, "not connected", State.Ok),
            new Answer(Match.Number, 1, null, "connected", State.Ok),
            new Answer(Match.Number, 2147483647, null, "the radio could not be read", State.Failed),
            new Answer(Match.Number, -1000, null, "no Wi-Fi adapter", State.NotRead));

        internal static readonly Entry RF_WiFiCardName = new Entry("RF_WiFiCardName", Resources.None,
            new Answer(Match.String, 0, "error_string", "the radio could not be read", State.Failed),
            new Answer(Match.String, 0, "init_string", "no adapter, or no connection", State.NotRead));

        internal static readonly Entry RF_WiFiRssi = new Entry("RF_WiFiRssi", Resources.None,
            new Answer(Match.Number, 2147483647, null, "the radio could not be read", State.Failed),
            new Answer(Match.Number, -1000, null, "no adapter, or no connection", State.NotRead));

        internal static readonly Entry RF_WiFiChannel = new Entry("RF_WiFiChannel", Resources.None,
            new Answer(Match.Number, 2147483647, null, "the radio could not be read", State.Failed),
            new Answer(Match.Number, -1000, null, "no adapter, or no connection", State.NotRead));

        internal static readonly Entry RF_AP_MAC = new Entry("RF_AP_MAC", Resources.None,
            new Answer(Match.String, 0, "error_string", "the radio could not be read", State.Failed),
            new Answer(Match.String, 0, "init_string", "no adapter, or no connection", State.NotRead));

        internal static readonly Entry RF_WiFiMaxRate = new Entry("RF_WiFiMaxRate", Resources.None,
            new Answer(Match.Number, 2147483647, null, "the radio could not be read", State.Failed),
            new Answer(Match.Number, -1000, null, "no adapter, or no connection", State.NotRead));

        internal static readonly Entry RF_PhyMode = new Entry("RF_PhyMode", Resources.None,
            new Answer(Match.String, 0, "error_string", "the radio could not be read", State.Failed),
            new Answer(Match.String, 0, "init_string", "no adapter, or no connection", State.NotRead));

        internal static readonly Entry RF_BTIsUsed = new Entry("RF_BTIsUsed", Resources.None,
            new Answer(Match.Number, 0, null, "no device is connected", State.Ok),
            new Answer(Match.Number, 1, null, "a device is connected", State.Ok),
            new Answer(Match.Number, 2147483647, null, "the radio could not be read", State.Failed),
            new Answer(Match.Number, -1000, null, "no Bluetooth radio", State.NotRead));

        internal static readonly Entry RF_BTConnectedNum = new Entry("RF_BTConnectedNum", Resources.None,
            new Answer(Match.Number, 2147483647, null, "the radio could not be read", State.Failed),
            new Answer(Match.Number, -1000, null, "no adapter, or no connection", State.NotRead));

        internal static readonly Entry RF_BTConnectedType = new Entry("RF_BTConnectedType", Resources.None,
            new Answer(Match.String, 0, "error_string", "the radio could not be read", State.Failed),
            new Answer(Match.String, 0, "init_string", "no adapter, or no connection", State.NotRead));

        internal static readonly Entry System_Check_S_Mode = new Entry("System_Check_S_Mode", Resources.None,
            new Answer(Match.Number, 0, null, "not in S mode, or the system did not answer", State.Ok, State.Failed),
            new Answer(Match.Number, 1, null, "in S mode", State.Ok));

        internal static readonly Entry System_GetCountryCode_ISO2 = new Entry("System_GetCountryCode_ISO2", Resources.None,
            new Answer(Match.String, 0, "", "the user has no country set", State.Failed, State.Absent));

        internal static readonly Entry System_Read_LocalTime = new Entry("System_Read_LocalTime", Resources.None,
            new Answer(Match.String, 0, "", "the time cannot be converted to local time", State.Failed));

        internal static readonly Entry System_Read_VolumeLevel = new Entry("System_Read_VolumeLevel", Resources.None,
            new Answer(Match.Number, -1, null, "no audio device, or it does not report its volume", State.Failed, State.Absent));

        internal static readonly Entry System_Read_TabletMode = new Entry("System_Read_TabletMode", Resources.Session | Resources.Ec,
            new Answer(Match.Number, 2147483647, null, "an EC command failed, or no session is open", State.Failed, State.NoSession));

        internal static readonly Entry GetApplist_x64 = new Entry("GetApplist_x64", Resources.None,
            new Answer(Match.String, 0, "[{\"machine\":[]},{\"user\":[]}]", "no such applications, or the registry keys cannot be read", State.Ok, State.Failed));

        internal static readonly Entry GetApplist_x86 = new Entry("GetApplist_x86", Resources.None,
            new Answer(Match.String, 0, "[{\"machine\":[]},{\"user\":[]}]", "no such applications, or the registry keys cannot be read", State.Ok, State.Failed));

        internal static readonly Entry GetApplist_UWP = new Entry("GetApplist_UWP", Resources.None,
            new Answer(Match.String, 0, "[]", "no packages, or the package store cannot be read", State.Ok, State.Failed));

        internal static readonly Entry App_Get_UWPApp = new Entry("App_Get_UWPApp", Resources.None,
            new Answer(Match.String, 0, "", "no such applications, or the registry key cannot be read", State.Absent, State.Failed));

        internal static readonly Entry App_Get_Win32App = new Entry("App_Get_Win32App", Resources.None,
            new Answer(Match.String, 0, "", "no such applications, or the registry key cannot be read", State.Absent, State.Failed));

        internal static readonly Entry App_Get_Win32WOW6432App = new Entry("App_Get_Win32WOW6432App", Resources.None,
            new Answer(Match.String, 0, "", "no such applications, or the registry key cannot be read", State.Absent, State.Failed));

        internal static readonly Entry GetInfVersion = new Entry("GetInfVersion", Resources.None,
            new Answer(Match.String, 0, "", "the driver package is not installed, or its version cannot be read", State.Absent, State.Failed));

        internal static readonly Entry GetUWPVersion = new Entry("GetUWPVersion", Resources.None,
            new Answer(Match.Untouched, 0, null, "the assistant package is not installed", State.Absent, State.Failed));

        internal static readonly Entry AppList_OpenWindows = new Entry("AppList_OpenWindows", Resources.None,
            new Answer(Match.String, 0, "[]", "no window counts, or the windows cannot be listed", State.Ok, State.Failed));

        internal static readonly Entry AppList_CpuUsage = new Entry("AppList_CpuUsage", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed", State.Failed),
            new Answer(Match.String, 0, "[]", "no process uses any", State.Ok));

        internal static readonly Entry AppList_MemUsage = new Entry("AppList_MemUsage", Resources.None,
            new Answer(Match.String, 0, "", "the WMI query failed", State.Failed),
            new Answer(Match.String, 0, "[]", "no process uses any", State.Ok));

        internal static readonly Entry AppList_HardwareConfig = new Entry("AppList_HardwareConfig", Resources.None,
            new Answer(Match.String, 0, "{\"brightness\":\"\",\"volume\":\"\"}", "neither value could be read", State.Failed, State.Absent));
    }
}
