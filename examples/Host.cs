// A host in C#: opens a session, reads a few values, closes the session. The runtime finds the library beside the
// program: VeskSondrel64.dll on Windows, libVeskSondrel64.so elsewhere.
using System;
using System.Runtime.InteropServices;
using System.Text;

internal static class Sondrel
{
    private const string Library = "VeskSondrel64";
    private const CallingConvention C = CallingConvention.Cdecl;

    public const uint ReadFailed = 0x7FFFFFFF;
    public const int RadioNotRead = -1000;
    public const byte EnterComForThisCall = 1;

    [DllImport(Library, ExactSpelling = true, CallingConvention = C)]
    public static extern int InitializeSondrel();

    [DllImport(Library, ExactSpelling = true, CallingConvention = C)]
    public static extern void ShutdownSondrel();

    [DllImport(Library, ExactSpelling = true, CallingConvention = C)]
    public static extern uint Thermal_Read_Cpu_Temperature();

    // Narrow text: bytes, decoded by hand as UTF-8.
    [DllImport(Library, ExactSpelling = true, CallingConvention = C)]
    public static extern void Thermal_Read_Fan([Out] byte[] text);

    // C's float and double are .NET's.
    [DllImport(Library, ExactSpelling = true, CallingConvention = C)]
    public static extern float Battery_Read_ASOC();

    [DllImport(Library, ExactSpelling = true, CallingConvention = C)]
    public static extern int RF_WiFiRssi();

    // Wide text: a char of .NET is the library's VeskChar16, UTF-16 everywhere. CharSet says so; without it the runtime
    // would pass one byte for each. An array, not a StringBuilder or a marshalled wchar_t, whose size is the system's.
    [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]
    public static extern void WMIGetSN([Out] char[] text, byte initCom);
}

internal static class Host
{
    // The buffer as long as the header says: the library writes the whole text, whatever the array holds.
    private static string Wide(Action<char[]> call, int characters)
    {
        var buffer = new char[characters];
        call(buffer);
        int end = Array.IndexOf(buffer, '\0');
        return new string(buffer, 0, end < 0 ? characters : end);
    }

    private static string Narrow(Action<byte[]> call, int size)
    {
        var buffer = new byte[size];
        call(buffer);
        int end = Array.IndexOf(buffer, (byte)0);
        return Encoding.UTF8.GetString(buffer, 0, end < 0 ? size : end);
    }

    private static void Main()
    {
        if (Sondrel.InitializeSondrel() == 1)
        {
            try
            {
                uint degrees = Sondrel.Thermal_Read_Cpu_Temperature();
                Console.WriteLine("processor: " + (degrees == Sondrel.ReadFailed ? "the read failed"
                    : degrees == 0 ? "no such sensor" : degrees + " degrees Celsius"));
                string[] speeds = Narrow(Sondrel.Thermal_Read_Fan, 44).Split(';');
                for (int fan = 0; fan < speeds.Length; ++fan)
                {
                    bool failed = uint.Parse(speeds[fan]) == Sondrel.ReadFailed;
                    Console.WriteLine("fan " + fan + ": " + (failed ? "the read failed" : speeds[fan] + " rpm"));
                }
            }
            finally
            {
                Sondrel.ShutdownSondrel();
            }
        }
        else
        {
            Console.WriteLine("no driver session");
        }

        // These need no session.
        float share = Sondrel.Battery_Read_ASOC();
        Console.WriteLine("battery: holds " + Math.Round(share * 100) + "% of what it was designed for");
        string serial = Wide(text => Sondrel.WMIGetSN(text, Sondrel.EnterComForThisCall), 4096);
        Console.WriteLine("serial number: " + (serial.Length == 0 ? "the read failed" : serial));
        int signal = Sondrel.RF_WiFiRssi();
        Console.WriteLine("signal: " + (signal == (int)Sondrel.ReadFailed ? "the read failed"
            : signal == Sondrel.RadioNotRead ? "no connection" : signal + " dBm"));
    }
}
