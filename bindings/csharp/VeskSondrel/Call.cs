using System;
using System.Collections.Generic;
using System.Globalization;
using System.Linq;
using System.Text;

namespace VeskSondrel
{
    internal enum Match
    {
        Number,
        String,
        Element,   // of a list, a number
        Untouched, // the buffer is as it was
        Zeros,     // all registers are 0
        ErrorCode, // the result is not 0
        Other      // every number without an answer before this one
    }

    /// <summary>An answer that has a special meaning; the most likely state comes first.</summary>
    internal sealed class Answer
    {
        internal readonly Match Match;
        internal readonly long Value;
        internal readonly string Text;
        internal readonly string Meaning;
        internal readonly State[] States;

        internal Answer(Match match, long value, string text, string meaning, params State[] states)
        {
            Match = match;
            Value = value;
            Text = text;
            Meaning = meaning;
            States = states;
        }

        /// <summary>The state to assume, where it is known whether this host has a session open.</summary>
        internal State Assumed
        {
            get
            {
                if (!SessionHandle.AnyOpen && States.Contains(State.NoSession))
                {
                    return State.NoSession;
                }
                foreach (State state in States)
                {
                    if (state != State.NoSession)
                    {
                        return state;
                    }
                }
                return States[0];
            }
        }
    }

    /// <summary>What the description has on one export.</summary>
    internal sealed class Entry
    {
        internal readonly string Export;
        internal readonly Resources Uses;
        private readonly Answer[] answers;

        internal Entry(string export, Resources uses, params Answer[] answers)
        {
            Export = export;
            Uses = uses;
            this.answers = answers;
        }

        internal Answer Find(Match match)
        {
            return answers.FirstOrDefault(answer => answer.Match == match);
        }

        internal Answer Find(Match match, long number)
        {
            return answers.FirstOrDefault(answer => (answer.Match == match && answer.Value == number) ||
                                                    (answer.Match == Match.Other && match == Match.Number));
        }

        internal Answer Find(string text)
        {
            return answers.FirstOrDefault(answer => answer.Match == Match.String && answer.Text == text);
        }

        /// <summary>Whether there is a value, and what else it can mean.</summary>
        internal bool Judge(Answer answer, out Failure failure, uint code = 0)
        {
            failure = null;
            if (answer == null || (answer.States.Length == 1 && answer.States[0] == State.Ok))
            {
                return true;
            }
            State state = answer.Assumed;
            string meaning = state == State.NoSession ? StateMeanings.Of(state) : answer.Meaning;
            failure = new Failure(Export, state, answer.States, meaning, code);
            return state == State.Ok;
        }

        internal Failure Malformed(string meaning)
        {
            return new Failure(Export, State.Failed, new[] { State.Failed }, meaning);
        }
    }

    /// <summary>One call of an export: its buffer, its special answers, its value.</summary>
    internal static class Call
    {
        private const char Mark = '\uFFFF'; // no character, so that no text begins with it
        private const int Marks = 4;
        private const uint Fill = 0xA5C3A5C3; // no processor answers all four registers so

        internal static T? Number<T>(Entry entry, T number, out Failure failure) where T : struct, IConvertible
        {
            long whole = number is float || number is double
                ? (number.ToDouble(CultureInfo.InvariantCulture) == 0 ? 0 : long.MinValue) // of fractions only 0 means more
                : number.ToInt64(CultureInfo.InvariantCulture);
            return entry.Judge(entry.Find(Match.Number, whole), out failure) ? number : (T?)null;
        }

        internal static bool? Flag(Entry entry, int number, out Failure failure)
        {
            int? found = Number(entry, number, out failure);
            return found.HasValue ? found.Value != 0 : (bool?)null;
        }

        internal static T? Choice<T>(Entry entry, long number, out Failure failure) where T : struct
        {
            Answer answer = entry.Find(Match.Number, number);
            if (answer == null)
            {
                failure = entry.Malformed("the answer " + number + " is none of the described values");
                return null;
            }
            return entry.Judge(answer, out failure) ? (T)Enum.ToObject(typeof(T), number) : (T?)null;
        }

        /// <summary>Packed into a number, the first in the highest byte that is not 0.</summary>
        internal static string Letters(Entry entry, uint number, out Failure failure)
        {
            if (!Number(entry, number, out failure).HasValue)
            {
                return null;
            }
            var letters = new StringBuilder();
            for (int shift = 24; shift >= 0; shift -= 8)
            {
                var letter = (char)(number >> shift & 0xFF);
                if (letter != 0 || letters.Length > 0)
                {
                    letters.Append(letter);
                }
            }
            return letters.ToString();
        }

        internal static string Wide(Entry entry, int size, Action<char[]> call, out Failure failure)
        {
            var buffer = new char[size];
            int marks = Math.Min(Marks, size - 1);
            for (int i = 0; i < marks; ++i)
            {
                buffer[i] = Mark;
            }
            using (new Locks(entry.Uses))
            {
                call(buffer);
            }
            int end = Array.IndexOf(buffer, '\0');
            string text = new string(buffer, 0, end < 0 ? size : end);
            return Written(entry, text, text == new string(Mark, marks), out failure);
        }

        internal static string Narrow(Entry entry, int size, Action<byte[]> call, out Failure failure)
        {
            var buffer = new byte[size];
            using (new Locks(entry.Uses))
            {
                call(buffer);
            }
            int end = Array.IndexOf(buffer, (byte)0);
            return Written(entry, Encoding.UTF8.GetString(buffer, 0, end < 0 ? size : end), false, out failure);
        }

        internal static string String(Entry entry, Func<IntPtr, IntPtr> call, out Failure failure)
        {
            string text;
            using (new Locks(entry.Uses))
            {
                text = StringObject.Read(call);
            }
            return Written(entry, text, false, out failure);
        }

        /// <summary>In a terminated list the last element is followed by a separator too.</summary>
        internal static string[] Split(string list, bool terminated)
        {
            if (list == null)
            {
                return null;
            }
            string[] elements = list.Split(';');
            if (terminated && elements[elements.Length - 1].Length == 0)
            {
                Array.Resize(ref elements, elements.Length - 1);
            }
            return elements;
        }

        internal static Element[] Numbers(Entry entry, string list, bool terminated)
        {
            return list == null ? null : Split(list, terminated).Select(text => Element(entry, text)).ToArray();
        }

        /// <summary>So many consecutive elements make one record.</summary>
        internal static T[] Records<T>(Entry entry, string list, int fields, Func<string[], T> make, ref Failure failure)
        {
            if (list == null)
            {
                return null;
            }
            string[] elements = Split(list, false);
            if (elements.Length % fields != 0)
            {
                failure = entry.Malformed("the list ends within a record");
                return null;
            }
            var records = new List<T>();
            for (int i = 0; i < elements.Length; i += fields)
            {
                records.Add(make(elements.Skip(i).Take(fields).ToArray()));
            }
            return records.ToArray();
        }

        /// <summary>An element as a number; without one it is absent.</summary>
        internal static Element Element(Entry entry, string text)
        {
            if (text.Length == 0)
            {
                var absent = new[] { State.Absent };
                return new Element(null, new Failure(entry.Export, State.Absent, absent, "the element has no value"));
            }
            long number;
            if (!long.TryParse(text, NumberStyles.AllowLeadingSign, CultureInfo.InvariantCulture, out number) || text[0] == '+')
            {
                return new Element(null, entry.Malformed("the element is not a number"));
            }
            Failure failure;
            bool found = entry.Judge(entry.Find(Match.Element, number), out failure);
            return new Element(found ? number : (long?)null, failure);
        }

        internal static byte[] Bytes(Entry entry, int size, Func<byte[], uint> call, out Failure failure)
        {
            // Not constant, so that it is no answer that the firmware would give.
            byte[] fill = Enumerable.Range(0, size).Select(place => (byte)(0xA5 ^ place * 37)).ToArray();
            var buffer = (byte[])fill.Clone();
            uint code;
            using (new Locks(entry.Uses))
            {
                code = call(buffer);
            }
            Answer answer = (code != 0 ? entry.Find(Match.ErrorCode) : null) ??
                            (buffer.SequenceEqual(fill) ? entry.Find(Match.Untouched) : null);
            return entry.Judge(answer, out failure, code) ? buffer : null;
        }

        internal delegate void CpuId(uint leaf, ref uint eax, ref uint ebx, ref uint ecx, ref uint edx);

        internal static Registers? CpuIdOf(Entry entry, uint leaf, CpuId call, out Failure failure)
        {
            uint eax = Fill, ebx = Fill, ecx = Fill, edx = Fill;
            using (new Locks(entry.Uses))
            {
                call(leaf, ref eax, ref ebx, ref ecx, ref edx);
            }
            var words = new[] { eax, ebx, ecx, edx };
            Answer answer = words.All(word => word == Fill) ? entry.Find(Match.Untouched)
                : words.All(word => word == 0) ? entry.Find(Match.Zeros)
                : null;
            return entry.Judge(answer, out failure) ? new Registers(eax, ebx, ecx, edx) : (Registers?)null;
        }

        /// <summary>A setter's result.</summary>
        internal static void Done(Entry entry, long number)
        {
            Answer answer = entry.Find(Match.Number, number);
            if (answer != null && answer.States[0] != State.Ok)
            {
                uint code = answer.Match == Match.Other ? (uint)number : 0;
                throw new ReadingException(
                    new Failure(entry.Export, answer.States[0], answer.States, answer.Meaning, code));
            }
        }

        internal static byte[] Exactly(byte[] content, int size)
        {
            if (content == null || content.Length != size)
            {
                throw new ArgumentException("expected exactly " + size + " bytes");
            }
            return content;
        }

        private static string Written(Entry entry, string text, bool untouched, out Failure failure)
        {
            if (untouched && entry.Find(Match.Untouched) == null)
            {
                failure = entry.Malformed("the library wrote nothing");
                return null;
            }
            Answer answer = untouched ? entry.Find(Match.Untouched) : entry.Find(text);
            return entry.Judge(answer, out failure) ? text : null;
        }
    }
}
