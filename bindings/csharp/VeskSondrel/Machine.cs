using System;
using System.Collections.Generic;
using System.Runtime.CompilerServices;
using System.Runtime.InteropServices;
using System.Text;

namespace VeskSondrel.Testing
{
    /// <summary>Simulated machines for a host's own tests. Only the library for Linux answers from one.</summary>
    /// <remarks>What the library caches in a process stays: tests that read Wi-Fi, Bluetooth or disk temperatures of
    /// several machines need a process for each.</remarks>
    public static class Machine
    {
        private const string Library = "VeskMachine";
        private const CallingConvention C = CallingConvention.Cdecl;

        /// <summary>The names of the built-in machines, the default first.</summary>
        public static IReadOnlyList<string> BuiltIn
        {
            get
            {
                var names = new List<string>();
                for (IntPtr name; (name = VeskMachine_BuiltIn(new UIntPtr((uint)names.Count))) != IntPtr.Zero;)
                {
                    names.Add(Marshal.PtrToStringAnsi(name));
                }
                return names;
            }
        }

        /// <summary>The machine's own time since its start.</summary>
        public static TimeSpan Time
        {
            [MethodImpl(MethodImplOptions.NoInlining)]
            get { return TimeSpan.FromTicks((long)VeskMachine_Microseconds() * 10); }
        }

        /// <summary>What was opened on the machine and not closed: 0 after a test that leaks nothing.</summary>
        public static long OpenHandles
        {
            [MethodImpl(MethodImplOptions.NoInlining)]
            get { return (long)VeskObserver_ListOpen(IntPtr.Zero, IntPtr.Zero).ToUInt64(); }
        }

        /// <summary>Starts a machine in place of the process's present one.</summary>
        /// <param name="machine">The name of a built-in machine, or the file of a profile or of a recording
        /// (NAME.rec).</param>
        /// <param name="store">The SQLite file of its registry and firmware variables; by default nothing is stored.</param>
        /// <exception cref="InvalidOperationException">It cannot be started: the message says what is wrong.</exception>
        public static void Start(string machine, string store = ":memory:")
        {
            var problem = new byte[1024];
            if (VeskMachine_Start(Utf8(machine), Utf8(store), problem, new UIntPtr((uint)problem.Length)) != 1)
            {
                throw new InvalidOperationException(
                    Encoding.UTF8.GetString(problem, 0, Math.Max(Array.IndexOf(problem, (byte)0), 0)));
            }
        }

        /// <summary>Makes the machine's waits take as long as they say, or no time again.</summary>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public static void TieToRealTime(bool tied)
        {
            VeskMachine_TieToRealTime(tied ? 1 : 0);
        }

        /// <summary>Lets the machine's own time advance immediately.</summary>
        [MethodImpl(MethodImplOptions.NoInlining)]
        public static void PassTime(TimeSpan time)
        {
            if (time < TimeSpan.Zero)
            {
                throw new ArgumentOutOfRangeException(nameof(time));
            }
            VeskMachine_PassTime((ulong)time.Ticks / 10);
        }

        private static byte[] Utf8(string text)
        {
            return Encoding.UTF8.GetBytes(text + "\0");
        }

        [DllImport(Library, ExactSpelling = true, CallingConvention = C)]
        private static extern int VeskMachine_Start(byte[] machine, byte[] store, [In, Out] byte[] problem, UIntPtr size);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C)]
        private static extern IntPtr VeskMachine_BuiltIn(UIntPtr index);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C)]
        private static extern void VeskMachine_TieToRealTime(int tied);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C)]
        private static extern void VeskMachine_PassTime(ulong microseconds);

        [DllImport(Library, ExactSpelling = true, CallingConvention = C)]
        private static extern ulong VeskMachine_Microseconds();

        [DllImport(Library, ExactSpelling = true, CallingConvention = C)]
        private static extern UIntPtr VeskObserver_ListOpen(IntPtr sink, IntPtr context);
    }
}
