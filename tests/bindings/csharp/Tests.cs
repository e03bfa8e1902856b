// The C# binding on a library whose answers the test chooses.
//
//   Tests ANSWERS
using System;
using System.Collections;
using System.Collections.Generic;
using System.Globalization;
using System.IO;
using System.Linq;
using System.Runtime.InteropServices;
using System.Text;
using System.Threading;
using VeskSondrel;

internal static class Double
{
    private const string Library = "VeskSondrel64";
    private const CallingConvention C = CallingConvention.Cdecl;

    internal static void Set(string name, string answer)
    {
        Double_Set(Utf8(name), Utf8(answer));
    }

    internal static void SetAll(string answer)
    {
        Double_SetAll(Utf8(answer));
    }

    internal static void Reset()
    {
        Double_Reset();
        Set("InitializeSondrel", "number 1");
    }

    internal static string[] Called()
    {
        return Marshal.PtrToStringAnsi(Double_Called()).Split(new[] { ' ' }, StringSplitOptions.RemoveEmptyEntries);
    }

    internal static string[] All()
    {
        return Marshal.PtrToStringAnsi(Double_All()).Split(' ');
    }

    internal static string Argument(string name, string argument)
    {
        return Marshal.PtrToStringAnsi(Double_Argument(Utf8(name), Utf8(argument)));
    }

    internal static int Size(string name)
    {
        return Double_Size(Utf8(name));
    }

    internal static int MostOverlapping()
    {
        return Double_MostOverlapping();
    }

    private static byte[] Utf8(string text)
    {
        return Encoding.UTF8.GetBytes(text + "\0");
    }

    [DllImport(Library, CallingConvention = C)]
    private static extern void Double_Set(byte[] name, byte[] answer);

    [DllImport(Library, CallingConvention = C)]
    private static extern void Double_SetAll(byte[] answer);

    [DllImport(Library, CallingConvention = C)]
    private static extern IntPtr Double_Called();

    [DllImport(Library, CallingConvention = C)]
    private static extern IntPtr Double_All();

    [DllImport(Library, CallingConvention = C)]
    private static extern IntPtr Double_Argument(byte[] name, byte[] argument);

    [DllImport(Library, CallingConvention = C)]
    private static extern int Double_Size(byte[] name);

    [DllImport(Library, CallingConvention = C)]
    private static extern int Double_MostOverlapping();

    [DllImport(Library, CallingConvention = C)]
    private static extern void Double_Reset();
}

internal static class Tests
{
    private static int failures;

    private static int Main(string[] arguments)
    {
        TestAnswers(arguments[0]);
        TestEveryExport();
        TestFullBuffers();
        TestFailures();
        TestSessions();
        TestThreads();
        TestStringObjects();
        Console.WriteLine(failures == 0 ? "all as expected" : failures + " failures");
        return failures == 0 ? 0 : 1;
    }

    private static void Expect(string what, object expected, object found)
    {
        if (!Equals(expected, found))
        {
            Console.WriteLine(what + ": expected " + expected + ", found " + found);
            ++failures;
        }
    }

    private static void Throws<T>(string what, Action action, Action<T> check = null) where T : Exception
    {
        try
        {
            action();
            Expect(what, typeof(T), "nothing thrown");
        }
        catch (T error)
        {
            check?.Invoke(error);
        }
    }

    /// <summary>"not_read" of NotRead.</summary>
    private static string Snake(string name)
    {
        return string.Concat(name.Select((c, i) => (i > 0 && char.IsUpper(c) ? "_" : "") + char.ToLowerInvariant(c)));
    }

    private static string Shown(object value)
    {
        if (value is string text) // a surrogate without its partner becomes U+FFFD in UTF-8
        {
            return Encoding.UTF8.GetString(Encoding.UTF8.GetBytes(text));
        }
        if (value is byte[] bytes)
        {
            return string.Concat(bytes.Select(each => each.ToString("x2")));
        }
        if (value is Array list)
        {
            return string.Join("|", list.Cast<object>().Select(Shown));
        }
        if (value is Element element)
        {
            return element.Value.HasValue ? Shown(element.Value.Value) : "[" + Snake(element.Failure.State.ToString()) + "]";
        }
        if (value is Disk disk)
        {
            return disk.Model + "," + OrAbsent(disk.Size) + "," + OrAbsent(disk.MediaType);
        }
        return value is bool || value is Enum ? Snake(value.ToString())
            : Convert.ToString(value, CultureInfo.InvariantCulture);
    }

    private static string OrAbsent(long? value)
    {
        return value.HasValue ? Shown(value.Value) : "[absent]";
    }

    private static void TestAnswers(string file)
    {
        Dictionary<string, ReadingInfo> byExport = Readings.All.ToDictionary(each => each.Export);
        int count = 0;
        foreach (string row in File.ReadAllLines(file, Encoding.UTF8))
        {
            if (row.Length == 0 || row[0] == '#')
            {
                continue;
            }
            string[] columns = row.Split('\t');
            string name = columns[0], answer = columns[2];
            Double.Reset();
            Double.Set(name, answer);
            Session session = columns[1] == "yes" ? Session.Open() : null;
            Failure failure;
            object value = byExport[name].Read((Readings)session ?? new Sondrel(), out failure);
            session?.Dispose();
            string state = value != null ? "ok" : Snake(failure.State.ToString());
            Expect(name + " <- " + answer, columns[3] + " " + columns[4], state + " " + (value == null ? "" : Shown(value)));
            Expect(name + ": a failure has a meaning", true, value != null || failure.Meaning.Length > 0);
            ++count;
        }
        Console.WriteLine(count + " answers");
        Expect("rows of the table", true, count > 80);
    }

    private static void TestEveryExport()
    {
        Double.Reset();
        using (Session session = Session.Open())
        {
            Failure failure;
            foreach (ReadingInfo info in Readings.All)
            {
                info.Read(session, out failure);
            }
            session.Processor.Cpuid(0x80000002);
            session.Inventory.AddOne(41);
            var uuid = new byte[16];
            uuid[0] = 1;
            session.FirmwareVariables.SetRandomUuid(uuid);
            session.FirmwareVariables.SetActivatedTime(new byte[19]);
            session.FirmwareVariables.SetManufacturedTime(new byte[23]);
            foreach (string setter in new[] { "WMISetBatteryHealth", "WMISetQuietFan", "WMISetAppPath" })
            {
                Double.Set(setter, "number 1");
            }
            session.Features.SetBatteryHealth(-80);
            session.Features.SetQuietFan(3, Com.Entered);
            session.Features.SetAppPath("C:😀");
        }
        string[] called = Double.Called(), all = Double.All();
        Console.WriteLine(called.Length + " of " + all.Length + " exports");
        Expect("exports that were not called", "", string.Join(" ", all.Except(called)));
        Expect("number of exports", 114, all.Length);
        Expect("leaf", 0x80000002.ToString(), Double.Argument("CPU_ReadCpuId", "leaf"));
        Expect("value", "41", Double.Argument("wmiadd", "value"));
        Expect("bytes", "01" + new string('0', 30), Double.Argument("GPNV_Set_RandomUUID", "bytes"));
        Expect("number", "-80", Double.Argument("WMISetBatteryHealth", "value"));
        Expect("COM entered by the call", "1", Double.Argument("WMISetBatteryHealth", "initCom"));
        Expect("COM entered by the caller", "0", Double.Argument("WMISetQuietFan", "initCom"));
        Expect("path", "0043003ad83dde00", Double.Argument("WMISetAppPath", "path"));
        Expect("COM of a reading", "1", Double.Argument("WMIGetSN", "initCom"));
    }

    /// <summary>A string that fills the buffer that the header promises arrives whole.</summary>
    private static void TestFullBuffers()
    {
        Double.Reset();
        Double.SetAll("full");
        int count = 0;
        foreach (ReadingInfo info in Readings.All)
        {
            Failure failure;
            object value = info.Read(new Sondrel(), out failure);
            int size = Double.Size(info.Export);
            string text = value as string ?? (value as string[])?.FirstOrDefault();
            if (text != null && size > 0)
            {
                Expect(info.Export, size - 1, text.Length);
                ++count;
            }
        }
        Console.WriteLine(count + " full buffers");
        Expect("full buffers", true, count > 35);
    }

    private static void TestFailures()
    {
        Double.Reset();
        var sondrel = new Sondrel();
        Failure failure;
        Double.Set("GPNV_Get_RandomUUID", "number 1314");
        sondrel.FirmwareVariables.RandomUuid(out failure);
        Expect("code of a reading", 1314u, failure.Code);
        Double.Set("GPNV_Set_RandomUUID", "number 5");
        Throws<ReadingException>("refused setter", () => sondrel.FirmwareVariables.SetRandomUuid(new byte[16]),
            error => Expect("code of a setter", 5u, error.Failure.Code));
        Double.Set("WMISetQuietFan", "number 0");
        Throws<ReadingException>("refused feature", () => sondrel.Features.SetQuietFan(1));
        Throws<ArgumentException>("bytes too short", () => sondrel.FirmwareVariables.SetRandomUuid(new byte[15]));

        Double.Set("CPU_ReadCpuId", "number 1 2 3 4294967295");
        Expect("EDX", uint.MaxValue, sondrel.Processor.Cpuid(0).Value.Edx);
        Double.Set("CPU_ReadCpuId", "number 0 0 0 0");
        Expect("refused leaf", State.Failed, Failed(f => sondrel.Processor.Cpuid(0, out f[0])));
        Double.Set("CPU_ReadCpuId", "untouched");
        Expect("leaf without a session", State.NoSession, Failed(f => sondrel.Processor.Cpuid(0, out f[0])));

        Double.Set("Battery_Read_CapacityPercentage", "number 0");
        Expect("charge", 0u, sondrel.Battery.Charge(out failure));
        Expect("note", "empty, or no battery", failure.Meaning);
        Double.Set("Battery_Read_DesignedCapacity", "number 0");
        Expect("no capacity", null, sondrel.Battery.DesignedCapacity(out failure));
        Expect("other state", true, failure.CouldBe(State.Failed) && !failure.CouldBe(State.NotRead));
    }

    private static State Failed(Action<Failure[]> read)
    {
        var failure = new Failure[1];
        read(failure);
        return failure[0].State;
    }

    private static void TestSessions()
    {
        Double.Reset();
        Session session = Session.Open();
        session.Dispose();
        Expect("closed", 1, Double.Called().Count(name => name == "ShutdownSondrel"));
        Double.Reset();
        session.Dispose();
        Expect("closed once", 0, Double.Called().Length);
        Throws<ObjectDisposedException>("reading after the end", () => session.Thermal.CpuTemperature());
        Double.Set("InitializeSondrel", "number 0");
        Throws<ReadingException>("refused session", () => Session.Open(), error => Expect("why",
            "InitializeSondrel: the driver's device is missing or refused to open", error.Message));
        Failure failure;
        Expect("refused session", null, Session.TryOpen(out failure));
        GC.Collect();
        GC.WaitForPendingFinalizers();
        Expect("a refused session is not closed", false, Double.Called().Contains("ShutdownSondrel"));
    }

    private static int MostOverlapping(params Action[] calls)
    {
        Double.Reset();
        Double.SetAll("slow text 1;2;3;4");
        List<Thread> threads = calls.Concat(calls).Select(call => new Thread(() => call())).ToList();
        threads.ForEach(thread => thread.Start());
        threads.ForEach(thread => thread.Join());
        return Double.MostOverlapping();
    }

    private static void TestThreads()
    {
        var sondrel = new Sondrel();
        Expect("EC readings that overlap", 1,
            MostOverlapping(() => sondrel.Thermal.FanSpeeds(), () => sondrel.BatteryEc.CellVoltages()));
        Expect("WMI readings that overlap", true,
            MostOverlapping(() => sondrel.Inventory.SerialNumber(), () => sondrel.Inventory.Os()) > 1);
    }

    private static long Resident()
    {
        return long.Parse(File.ReadAllText("/proc/self/statm").Split(' ')[1]) * 4;
    }

    private static void TestStringObjects()
    {
        Double.Reset();
        Double.Set("RF_PhyMode", "text " + new string('x', 200000));
        var sondrel = new Sondrel();
        Expect("long string", 200000, sondrel.Wifi.PhyMode().Length);
        GC.Collect();
        long before = Resident();
        for (int i = 0; i < 200; ++i)
        {
            sondrel.Wifi.PhyMode();
            GC.Collect();
        }
        Expect("blocks are freed", true, Resident() - before < 20000); // kilobytes of 40,000 made

        // Typed from the documentation of the two runtimes.
        Expect("libstdc++, short", "2 in the object", TakenApart(false, at => new[] { at + 16, 2, 0, 0 }));
        Expect("libstdc++, long", "40 in a block", TakenApart(false, at => new long[] { 5000, 40, 40, 0 }));
        Expect("msvc, short", "2 in the object", TakenApart(true, at => new long[] { 0, 0, 2, 15 }));
        Expect("msvc, long", "40 in a block", TakenApart(true, at => new long[] { 5000, 0, 40, 47 }));
        Expect("msvc, shortest block", "16 in a block", TakenApart(true, at => new long[] { 5000, 0, 16, 16 }));

        // Three words, the key, padding to an even number of words, the value.
        byte[] resource = Encoding.Unicode.GetBytes(
            "\u0028\u0004\u0001InternalName\0x\0\u0028\u0005\u0001StringLayout\0msvc\0\u0028\u0004\u0001Even\0\0yes\0");
        Expect("version string", "msvc", StringObject.VersionString(resource, "StringLayout"));
        Expect("padded version string", "yes", StringObject.VersionString(resource, "Even"));
        Expect("no such version string", "", StringObject.VersionString(resource, "Missing"));
    }

    private static string TakenApart(bool msvc, Func<long, long[]> words)
    {
        IntPtr place = Marshal.AllocHGlobal(StringObject.Size);
        long[] content = words(place.ToInt64());
        for (int i = 0; i < content.Length; ++i)
        {
            Marshal.WriteInt64(place, 8 * i, content[i]);
        }
        IntPtr text, block;
        long size = StringObject.TakeApart(place, msvc, out text, out block);
        bool inside = text.ToInt64() >= place.ToInt64() && text.ToInt64() < place.ToInt64() + StringObject.Size;
        Marshal.FreeHGlobal(place);
        return size + (inside && block == IntPtr.Zero ? " in the object"
            : text == block && block.ToInt64() == 5000 ? " in a block" : " elsewhere");
    }
}
