using System;
using System.Collections.Generic;
using System.Linq;

namespace VeskSondrel
{
    /// <summary>Whether a call that uses COM enters an apartment for itself.</summary>
    public enum Com : byte
    {
        /// <summary>The calling thread is in an apartment, of either kind: an [STAThread], or the user interface's.</summary>
        Entered = 0,

        /// <summary>The call enters an apartment and leaves it again: right on a thread of the host's own.</summary>
        Enter = 1
    }

    /// <summary>Why a reading has no value, or what else its value can mean.</summary>
    public sealed class Failure
    {
        internal Failure(string export, State state, IReadOnlyList<State> states, string meaning, uint code = 0)
        {
            Export = export;
            State = state;
            States = states;
            Meaning = meaning;
            Code = code;
        }

        /// <summary>The name of the export.</summary>
        public string Export { get; }

        /// <summary>The most likely state; <see cref="State.Ok"/> where there is a value that can also mean something
        /// else.</summary>
        public State State { get; }

        /// <summary>All that the library's answer can mean.</summary>
        public IReadOnlyList<State> States { get; }

        /// <summary>In words.</summary>
        public string Meaning { get; }

        /// <summary>The system's error code; 0 where the export gives none.</summary>
        public uint Code { get; }

        /// <summary>Whether the answer can mean this state too.</summary>
        public bool CouldBe(State state)
        {
            return States.Contains(state);
        }

        /// <inheritdoc/>
        public override string ToString()
        {
            return Export + ": " + Meaning + (Code == 0 ? "" : " (error " + Code + ")");
        }
    }

    /// <summary>A setter or the opening of a session failed.</summary>
    public sealed class ReadingException : Exception
    {
        internal ReadingException(Failure failure) : base(failure.ToString())
        {
            Failure = failure;
        }

        /// <summary>Why.</summary>
        public Failure Failure { get; }
    }

    /// <summary>An element of a list of numbers.</summary>
    public struct Element
    {
        internal Element(long? value, Failure failure)
        {
            Value = value;
            Failure = failure;
        }

        /// <summary>The number, or null.</summary>
        public long? Value { get; }

        /// <summary>Why there is no number, or what else it can mean; null usually.</summary>
        public Failure Failure { get; }

        /// <inheritdoc/>
        public override string ToString()
        {
            return Value.HasValue ? Value.Value.ToString(global::System.Globalization.CultureInfo.InvariantCulture) : "";
        }
    }

    /// <summary>The registers of a CPUID leaf.</summary>
    public struct Registers
    {
        internal Registers(uint eax, uint ebx, uint ecx, uint edx)
        {
            Eax = eax;
            Ebx = ebx;
            Ecx = ecx;
            Edx = edx;
        }

        /// <summary>EAX.</summary>
        public uint Eax { get; }

        /// <summary>EBX.</summary>
        public uint Ebx { get; }

        /// <summary>ECX.</summary>
        public uint Ecx { get; }

        /// <summary>EDX.</summary>
        public uint Edx { get; }
    }

    /// <summary>A reading in words, for hosts that go through all of them: <see cref="Readings.All"/>.</summary>
    public sealed class ReadingInfo
    {
        internal delegate object Reader(Readings readings, Com com, out Failure failure);

        private readonly Reader read;

        internal ReadingInfo(string group, string name, string export, string summary, string unit, Reader read)
        {
            Group = group;
            Name = name;
            Export = export;
            Summary = summary;
            Unit = unit;
            this.read = read;
        }

        /// <summary>"Thermal".</summary>
        public string Group { get; }

        /// <summary>"CpuTemperature".</summary>
        public string Name { get; }

        /// <summary>"Thermal_Read_Cpu_Temperature".</summary>
        public string Export { get; }

        /// <summary>What is read.</summary>
        public string Summary { get; }

        /// <summary>"mV"; empty without one.</summary>
        public string Unit { get; }

        /// <summary>Makes the reading: its value, or null and the failure.</summary>
        public object Read(Readings readings, out Failure failure, Com com = Com.Enter)
        {
            return read(readings, com, out failure);
        }
    }
}
