using System;
using System.ComponentModel;
using System.IO;
using System.Runtime.InteropServices;
using System.Text;
using System.Threading;

namespace VeskSondrel
{
    /// <summary>Calls that must not overlap wait for each other: one lock for each resource, taken in one order.</summary>
    internal struct Locks : IDisposable
    {
        private static readonly object[] All = MakeAll();
        private readonly Resources taken;

        internal Locks(Resources resources)
        {
            taken = resources;
            for (int i = 0; i < All.Length; ++i)
            {
                if (((int)resources & 1 << i) != 0)
                {
                    Monitor.Enter(All[i]);
                }
            }
        }

        public void Dispose()
        {
            for (int i = All.Length - 1; i >= 0; --i)
            {
                if (((int)taken & 1 << i) != 0)
                {
                    Monitor.Exit(All[i]);
                }
            }
        }

        private static object[] MakeAll()
        {
            var locks = new object[Enum.GetValues(typeof(Resources)).Length - 1]; // without None
            for (int i = 0; i < locks.Length; ++i)
            {
                locks[i] = new object();
            }
            return locks;
        }
    }

    internal static class Loader
    {
        internal static bool OnWindows
        {
            get { return Path.DirectorySeparatorChar == '\\'; }
        }

        internal static void Load(string path)
        {
            string full = Path.GetFullPath(path);
            if (OnWindows)
            {
                const uint AlteredSearchPath = 8;
                if (LoadLibraryExW(full, IntPtr.Zero, AlteredSearchPath) == IntPtr.Zero)
                {
                    throw new DllNotFoundException(full + ": " + new Win32Exception().Message);
                }
                return;
            }
            const int Now = 2, Global = 0x100;
            if (dlopen(Encoding.UTF8.GetBytes(full + "\0"), Now | Global) == IntPtr.Zero)
            {
                throw new DllNotFoundException(Marshal.PtrToStringAnsi(dlerror()));
            }
        }

        [DllImport("kernel32", ExactSpelling = true, SetLastError = true, CharSet = CharSet.Unicode)]
        private static extern IntPtr LoadLibraryExW(string path, IntPtr reserved, uint flags);

        [DllImport("libdl.so.2", ExactSpelling = true)]
        private static extern IntPtr dlopen(byte[] path, int flags);

        [DllImport("libdl.so.2", ExactSpelling = true)]
        private static extern IntPtr dlerror();
    }

    /// <summary>The string object of C++ that an export returned, taken apart by the layout of the library's
    /// compiler.</summary>
    internal static class StringObject
    {
        internal const int Size = 32;
        private const int Word = 8;
        private static readonly Lazy<bool> IsMsvc = new Lazy<bool>(
            () => Loader.OnWindows && VersionString(VersionResource(), "StringLayout") == "msvc");

        internal static string Read(Func<IntPtr, IntPtr> call)
        {
            IntPtr place = Marshal.AllocHGlobal(Size);
            try
            {
                call(place);
                IntPtr text, block;
                long size = TakeApart(place, IsMsvc.Value, out text, out block);
                var bytes = new byte[size];
                Marshal.Copy(text, bytes, 0, bytes.Length);
                if (block != IntPtr.Zero)
                {
                    Free(block);
                }
                return Encoding.UTF8.GetString(bytes);
            }
            finally
            {
                Marshal.FreeHGlobal(place);
            }
        }

        /// <summary>The size of the text, its place, and the block to be freed, which a short text does not have.</summary>
        internal static long TakeApart(IntPtr place, bool msvc, out IntPtr text, out IntPtr block)
        {
            IntPtr pointer = Marshal.ReadIntPtr(place);
            if (msvc) // 16 bytes of small form or a pointer, size, capacity
            {
                const long SmallCapacity = 15;
                bool inBlock = Marshal.ReadInt64(place, 3 * Word) > SmallCapacity;
                text = inBlock ? pointer : place;
                block = inBlock ? pointer : IntPtr.Zero;
                return Marshal.ReadInt64(place, 2 * Word);
            }
            // pointer, size, 16 bytes of small form or capacity
            text = pointer;
            block = pointer == IntPtr.Add(place, 2 * Word) ? IntPtr.Zero : pointer;
            return Marshal.ReadInt64(place, Word);
        }

        /// <summary>A string of a version resource: three words, the key with its terminator, padding to four bytes, the
        /// value.</summary>
        internal static string VersionString(byte[] resource, string key)
        {
            byte[] wanted = Encoding.Unicode.GetBytes(key + "\0");
            for (int place = 0; place + wanted.Length <= resource.Length; place += 2)
            {
                int same = 0;
                while (same < wanted.Length && resource[place + same] == wanted[same])
                {
                    ++same;
                }
                if (same == wanted.Length)
                {
                    int start = (place + wanted.Length + 3) / 4 * 4, end = start;
                    while (end + 1 < resource.Length && (resource[end] | resource[end + 1]) != 0)
                    {
                        end += 2;
                    }
                    return Encoding.Unicode.GetString(resource, Math.Min(start, resource.Length), Math.Max(end - start, 0));
                }
            }
            return "";
        }

        private static byte[] VersionResource()
        {
            const int VersionType = 16;
            IntPtr module = GetModuleHandleW(NativeMethods.Library + ".dll");
            IntPtr resource = FindResourceW(module, new IntPtr(1), new IntPtr(VersionType));
            IntPtr loaded = resource == IntPtr.Zero ? IntPtr.Zero : LoadResource(module, resource);
            if (loaded == IntPtr.Zero)
            {
                return new byte[0];
            }
            var bytes = new byte[SizeofResource(module, resource)];
            Marshal.Copy(LockResource(loaded), bytes, 0, bytes.Length);
            return bytes;
        }

        /// <summary>As the library's own runtime frees it.</summary>
        private static void Free(IntPtr block)
        {
            if (!Loader.OnWindows)
            {
                OperatorDelete(block);
            }
            else if (IsMsvc.Value)
            {
                HeapFree(GetProcessHeap(), 0, block); // the heap of the release runtime
            }
            else
            {
                FreeOfRuntime(block); // the runtime that the library imports
            }
        }

        [DllImport("libstdc++.so.6", EntryPoint = "_ZdlPv", ExactSpelling = true, CallingConvention = CallingConvention.Cdecl)]
        private static extern void OperatorDelete(IntPtr block);

        [DllImport("msvcrt", EntryPoint = "free", ExactSpelling = true, CallingConvention = CallingConvention.Cdecl)]
        private static extern void FreeOfRuntime(IntPtr block);

        [DllImport("kernel32", ExactSpelling = true)]
        private static extern IntPtr GetProcessHeap();

        [DllImport("kernel32", ExactSpelling = true)]
        private static extern int HeapFree(IntPtr heap, uint flags, IntPtr block);

        [DllImport("kernel32", ExactSpelling = true, CharSet = CharSet.Unicode)]
        private static extern IntPtr GetModuleHandleW(string name);

        [DllImport("kernel32", ExactSpelling = true)]
        private static extern IntPtr FindResourceW(IntPtr module, IntPtr name, IntPtr type);

        [DllImport("kernel32", ExactSpelling = true)]
        private static extern IntPtr LoadResource(IntPtr module, IntPtr resource);

        [DllImport("kernel32", ExactSpelling = true)]
        private static extern IntPtr LockResource(IntPtr loaded);

        [DllImport("kernel32", ExactSpelling = true)]
        private static extern uint SizeofResource(IntPtr module, IntPtr resource);
    }
}
