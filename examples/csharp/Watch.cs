// Watches temperatures and fans; a reading without a value says why.
//
//   Watch [LIBRARY [MACHINE [SAMPLES]]]      MACHINE: a simulated machine, on Linux
using System;
using System.Linq;
using System.Threading;
using VeskSondrel;
using VeskSondrel.Testing;

internal static class Watch
{
    private static int Main(string[] arguments)
    {
        try
        {
            if (arguments.Length > 0)
            {
                Sondrel.Load(arguments[0]);
            }
            if (arguments.Length > 1)
            {
                Machine.Start(arguments[1]);
            }
            int samples = arguments.Length > 2 ? int.Parse(arguments[2]) : int.MaxValue;
            using (Session session = Session.Open())
            {
                for (int taken = 0; taken < samples; ++taken)
                {
                    if (taken > 0)
                    {
                        Thread.Sleep(1000);
                    }
                    Console.WriteLine(Line(session));
                }
            }
            return 0;
        }
        catch (DllNotFoundException error)
        {
            Console.Error.WriteLine(error.Message); // the system's
            return 1;
        }
        catch (ReadingException error)
        {
            Console.Error.WriteLine("no session: " + error.Message);
            return 1;
        }
    }

    private static string Line(Session session)
    {
        Failure failure;
        uint? degrees = session.Thermal.CpuTemperature(out failure);
        string cpu = degrees.HasValue ? degrees + " °C" : failure.State + " (" + failure.Meaning + ")";
        Element[] fans = session.Thermal.FanSpeeds() ?? new Element[0];
        return "cpu " + cpu + ", fans " + string.Join(" ", fans.Select(fan => fan.Value?.ToString() ?? "-")) + " rpm";
    }
}
