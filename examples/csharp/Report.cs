// Every reading as JSON: value, unit, state, and what a failure means.
//
//   Report [LIBRARY [MACHINE]]      MACHINE: a simulated machine, on Linux
//
// Without a driver session the readings that need one have the state "NoSession".
using System;
using System.Collections.Generic;
using System.Globalization;
using System.Linq;
using System.Text;
using VeskSondrel;
using VeskSondrel.Testing;

internal static class Report
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
            Print();
            return 0;
        }
        catch (DllNotFoundException error)
        {
            Console.Error.WriteLine(error.Message); // the system's
            return 1;
        }
    }

    private static void Print()
    {
        Failure refused;
        using (Session session = Session.TryOpen(out refused))
        {
            Readings readings = (Readings)session ?? new Sondrel();
            IEnumerable<string> groups = Readings.All.GroupBy(info => info.Group).Select(
                group => "  " + Quoted(group.Key) + ": {\n" + string.Join(",\n", group.Select(info => Row(info, readings))) + "\n  }");
            Console.WriteLine("{\n" + string.Join(",\n", groups) + "\n}");
        }
    }

    private static string Row(ReadingInfo info, Readings readings)
    {
        Failure failure;
        object value = info.Read(readings, out failure);
        State state = value != null ? State.Ok : failure.State;
        var members = new List<string> { "\"state\": \"" + state + "\"" };
        if (value != null)
        {
            members.Add("\"value\": " + Json(value));
            if (info.Unit.Length > 0)
            {
                members.Add("\"unit\": " + Quoted(info.Unit));
            }
        }
        if (failure != null)
        {
            members.Add("\"meaning\": " + Quoted(failure.Meaning));
        }
        return "    " + Quoted(info.Name) + ": {" + string.Join(", ", members) + "}";
    }

    private static string Json(object value)
    {
        if (value is Element element)
        {
            return element.Value.HasValue ? Json(element.Value.Value) : "null";
        }
        if (value is Disk disk)
        {
            return "{\"model\": " + Quoted(disk.Model) + ", \"size\": " + (disk.Size?.ToString() ?? "null") + "}";
        }
        if (value is byte[] bytes)
        {
            return Quoted(string.Concat(bytes.Select(each => each.ToString("x2"))));
        }
        if (value is Array list)
        {
            return "[" + string.Join(", ", list.Cast<object>().Select(Json)) + "]";
        }
        if (value is bool flag)
        {
            return flag ? "true" : "false";
        }
        return value is string || value is Enum ? Quoted(value.ToString())
            : Convert.ToString(value, CultureInfo.InvariantCulture);
    }

    private static string Quoted(string text)
    {
        var quoted = new StringBuilder("\"");
        foreach (char each in text)
        {
            quoted.Append(each == '"' || each == '\\' ? "\\" + each : each < ' ' ? "\\u" + ((int)each).ToString("x4") : each.ToString());
        }
        return quoted.Append('"').ToString();
    }
}
