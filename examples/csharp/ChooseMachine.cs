// One host, any machine: the simulated machine is chosen from outside, and the host's own code knows nothing of it.
//
//   ChooseMachine LIBRARY MACHINE      a built-in machine, or the file of a profile
using System;
using VeskSondrel;
using VeskSondrel.Testing;

internal static class ChooseMachine
{
    private static int Main(string[] arguments)
    {
        if (arguments.Length != 2)
        {
            Console.Error.WriteLine("usage: ChooseMachine LIBRARY MACHINE");
            return 2;
        }
        try
        {
            Sondrel.Load(arguments[0]);
            Machine.Start(arguments[1]);
            Console.WriteLine(Host());
            return 0;
        }
        catch (Exception error) when (error is DllNotFoundException || error is InvalidOperationException)
        {
            Console.Error.WriteLine(error.Message);
            return 1;
        }
    }

    /// <summary>What the host does, on a real machine as on a simulated one.</summary>
    private static string Host()
    {
        using (Session session = Session.Open())
        {
            string[] makers = session.Inventory.BoardMaker();
            return "firmware " + session.Identity.FirmwareRevision() + ", " +
                   (makers == null ? "maker not known" : string.Join(", ", makers));
        }
    }
}
