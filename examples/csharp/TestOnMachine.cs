// A host's own tests on simulated machines, without a test framework; with one, Machine.Start is the set-up.
//
//   TestOnMachine LIBRARY
//
// What the library caches in a process (Wi-Fi, Bluetooth, disk temperatures) needs a process for each machine; everything
// else can change its machine from test to test.
using System;
using VeskSondrel;
using VeskSondrel.Testing;

internal static class TestOnMachine
{
    private static int passed, failed;

    private static int Main(string[] arguments)
    {
        Sondrel.Load(arguments[0]);
        Test("a machine that does not say", "unknown-code", () => Check(null));
        Test("a machine under load never gets too hot", "living", () =>
        {
            for (int i = 0; i < 60; ++i)
            {
                Machine.PassTime(TimeSpan.FromSeconds(10));
                Check(false);
            }
        });
        Console.WriteLine(passed + " passed, " + failed + " failed");
        return failed == 0 ? 0 : 1;
    }

    /// <summary>The host's rule: null where this machine does not say.</summary>
    private static bool? TooHot(Session session)
    {
        uint? degrees = session.Thermal.CpuTemperature();
        return degrees.HasValue ? degrees > 90 : (bool?)null;
    }

    private static void Check(bool? expected)
    {
        using (Session session = Session.Open())
        {
            bool? found = TooHot(session);
            if (found != expected)
            {
                throw new InvalidOperationException("expected " + expected + ", found " + found);
            }
        }
    }

    private static void Test(string name, string machine, Action body)
    {
        try
        {
            Machine.Start(machine);
            body();
            if (Machine.OpenHandles != 0)
            {
                throw new InvalidOperationException(Machine.OpenHandles + " handles are open");
            }
            ++passed;
        }
        catch (InvalidOperationException error)
        {
            Console.WriteLine(name + ": " + error.Message);
            ++failed;
        }
    }
}
