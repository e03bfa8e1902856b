"""The generated sources of the C# binding: the P/Invoke declarations; the groups of readings."""

from __future__ import annotations

from xml.sax.saxutils import escape

from model import NOTICE, Model, Reading, pascal

DIRECTORY = "bindings/csharp/VeskSondrel/"
TYPES = {"none": "void", "uint8": "byte", "int32": "int", "uint32": "uint", "float": "float", "double": "double"}
BUFFERS = {"bytes": "byte[]", "text": "byte[]", "wide_text": "char[]"}


def quoted(text: str) -> str:
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def native(export: dict) -> str:
    if export["result"]["type"] == "string":
        return f"internal static extern IntPtr {export['name']}(IntPtr result);"
    arguments = []
    for argument in export["arguments"]:
        if argument["type"] in BUFFERS:
            kind = BUFFERS[argument["type"]]
            kind = f"[In, Out] {kind}" if argument["direction"] == "out" else kind
        else:
            kind = ("ref " if argument["direction"] == "out" else "") + TYPES[argument["type"]]
        arguments.append(f"{kind} {name_of(argument)}")
    return f"internal static extern {TYPES[export['result']['type']]} {export['name']}({', '.join(arguments)});"


def name_of(argument: dict) -> str:
    return {"out": "buffer"}.get(argument["name"], argument["name"])


def native_source(model: Model) -> str:
    rows = "\n".join(
        "        [DllImport(Library, ExactSpelling = true, CallingConvention = C, CharSet = CharSet.Unicode)]\n"
        f"        {native(export)}\n"
        for export in model.exports
    )
    resources = "".join(
        f"        {pascal(name)} = 1 << {place},\n" for place, name in enumerate(model.exclusive_resources())
    )
    return f"""// {NOTICE}.
using System;
using System.Runtime.InteropServices;

namespace VeskSondrel
{{
    /// <summary>What a call can need for itself alone.</summary>
    [Flags]
    internal enum Resources
    {{
        None = 0,
{resources.rstrip().rstrip(",")}
    }}

    /// <summary>The exports. A char of .NET is the library's UTF-16 character everywhere.</summary>
    internal static class NativeMethods
    {{
        internal const string Library = "{model.description.library}";
        private const CallingConvention C = CallingConvention.Cdecl;

{rows.rstrip()}
    }}
}}
"""


def answer(each: dict) -> str:
    plain, text = each.get("value", 0), "null"
    if "special" in each:
        match = pascal(each["special"])
    elif isinstance(plain, int):
        match = "Element" if each["at"] == "element" else "Number"
    else:
        match, text, plain = "String", quoted(plain), 0
    states = ", ".join(f"State.{pascal(state)}" for state in each["states"])
    return f"\n            new Answer(Match.{match}, {plain}, {text}, {quoted(each['meaning'])}, {states})"


def entry(model: Model, reading: Reading) -> str:
    uses = " | ".join(f"Resources.{pascal(name)}" for name in model.locks(reading)) or "Resources.None"
    answers = "".join("," + answer(each) for each in reading.answers)
    return f"        internal static readonly Entry {reading.name} = new Entry({quoted(reading.name)}, {uses}{answers});\n"


def value_type(reading: Reading) -> str:
    """Null without a value."""
    kind = reading.kind
    if kind in ("number", "version", "fraction"):
        return TYPES[reading.export["result"]["type"]] + "?"
    if kind == "list":
        if reading.record:
            return pascal(reading.record) + "[]"
        return "Element[]" if reading.value["element"]["kind"] == "number" else "string[]"
    return {"flag": "bool?", "choice": pascal(reading.short) + "?", "registers": "Registers?", "bytes": "byte[]"}.get(kind, "string")


def numeric(reading: Reading, given: list) -> str:
    """A call whose result is the answer, within its locks."""
    arguments = ", ".join(given + ["(byte)com"] * reading.com)
    return f"NativeMethods.{reading.name}({arguments})"


def body(model: Model, reading: Reading) -> str:
    entry_name, kind = f"Entries.{reading.name}", reading.kind
    given = [reading.argument["name"]] if reading.argument else []
    if reading.shape == "number":
        call = {"flag": "Flag", "choice": f"Choice<{pascal(reading.short)}>", "letters": "Letters"}.get(kind, "Number")
        made = numeric(reading, given)
        if model.locks(reading):
            kind_of = TYPES[reading.export["result"]["type"]]
            return (
                f"            {kind_of} answer;\n"
                f"            using (new Locks({entry_name}.Uses))\n            {{\n                answer = {made};\n            }}\n"
                f"            return Call.{call}({entry_name}, answer, out failure);\n"
            )
        return f"            return Call.{call}({entry_name}, {made}, out failure);\n"
    if reading.shape == "registers":
        return f"            return Call.CpuIdOf({entry_name}, {given[0]}, NativeMethods.{reading.name}, out failure);\n"
    if reading.shape == "bytes":
        return f"            return Call.Bytes({entry_name}, {reading.size}, NativeMethods.{reading.name}, out failure);\n"
    if reading.shape == "string":
        text = f"Call.String({entry_name}, NativeMethods.{reading.name}, out failure)"
    else:
        call = f"buffer => NativeMethods.{reading.name}(buffer{', (byte)com' * reading.com})"
        size = "characters" if reading.grows else reading.size
        text = f"Call.{'Wide' if reading.shape == 'wide' else 'Narrow'}({entry_name}, {size}, {call}, out failure)"
    if kind != "list":
        return f"            return {text};\n"
    if reading.record:
        fields = reading.value["record"]
        values = ", ".join(
            f"Call.Element({entry_name}, fields[{i}]).Value" if f["kind"] == "number" else f"fields[{i}]"
            for i, f in enumerate(fields)
        )
        make = f"fields => new {pascal(reading.record)}({values})"
        return (
            f"            string list = {text};\n"
            f"            return Call.Records({entry_name}, list, {len(fields)}, {make}, ref failure);\n"
        )
    terminated = "true" if reading.value.get("terminated") else "false"
    if reading.value["element"]["kind"] == "number":
        return f"            return Call.Numbers({entry_name}, {text}, {terminated});\n"
    return f"            return Call.Split({text}, {terminated});\n"


def parameters(reading: Reading) -> tuple:
    """(declared, without their defaults passed on), after the out parameter."""
    declared, passed = [], []
    if reading.com:
        declared.append("Com com = Com.Enter")
        passed.append("com")
    if reading.grows:
        declared.append(f"int characters = {reading.size}")
        passed.append("characters")
    return declared, passed


def given_parameter(reading: Reading) -> list:
    if not reading.argument:
        return []
    kind = {"bytes": "byte[]", "wide_text": "string"}.get(reading.argument["type"]) or TYPES[reading.argument["type"]]
    return [f"{kind} {reading.argument['name']}"]


def documentation(model: Model, reading: Reading) -> str:
    lines = [escape(line) for line in model.documentation(reading)]
    remarks = "".join(f"        /// {line}\n" for line in lines[1:])
    grows = f"        /// The library does not know the size of its buffer; {reading.size} characters are enough for known machines.\n"
    return f"        /// <summary>{lines[0]}</summary>\n        /// <remarks>\n{remarks}{grows * reading.grows}        /// </remarks>\n"


def method(model: Model, reading: Reading) -> str:
    name, kind, text = pascal(reading.short), value_type(reading), documentation(model, reading)
    declared, passed = parameters(reading)
    given = given_parameter(reading)
    names = [each.split()[-1] for each in given]
    if reading.setter:
        return setter(reading, name, text, given + declared)
    short = (
        f"{text}        public {kind} {name}({', '.join(given + declared)})\n        {{\n            Failure failure;\n"
        f"            return {name}({', '.join(names + ['out failure'] + passed)});\n        }}\n\n"
    )
    long = (
        f"{text}        [MethodImpl(MethodImplOptions.NoInlining)]\n"
        f"        public {kind} {name}({', '.join(given + ['out Failure failure'] + declared)})\n        {{\n"
        f"            owner.Use();\n{body(model, reading)}        }}\n"
    )
    return short + long


def setter(reading: Reading, name: str, text: str, declared: list) -> str:
    argument = reading.argument
    given = argument["name"]
    if argument["type"] == "bytes":
        given = f"Call.Exactly({given}, {reading.size})"
    elif argument["type"] == "wide_text":
        given = f'({given} + "\\0").ToCharArray()'
    result = f"NativeMethods.{reading.name}({given}{', (byte)com' * reading.com})"
    return (
        f'{text}        /// <exception cref="ReadingException">It did not succeed.</exception>\n'
        f"        public void {name}({', '.join(declared)})\n        {{\n            owner.Use();\n"
        f"            using (new Locks(Entries.{reading.name}.Uses))\n            {{\n"
        f"                Call.Done(Entries.{reading.name}, {result});\n            }}\n        }}\n"
    )


def choice(reading: Reading) -> str:
    rows = ",\n\n".join(
        f"        /// <summary>{escape(meaning[:1].upper() + meaning[1:])}.</summary>\n        {pascal(name)} = {value}"
        for name, value, meaning in reading.choices()
    )
    return f"    /// <summary>{escape(reading.export['summary'])}.</summary>\n    public enum {pascal(reading.short)} : long\n    {{\n{rows}\n    }}\n\n"


def record(reading: Reading) -> str:
    name, fields = pascal(reading.record), reading.value["record"]
    kind = {"text": "string", "number": "long?"}
    parameters_ = ", ".join(f"{kind[f['kind']]} {f['name'].replace('_', '')}" for f in fields)
    sets = "".join(f"            {pascal(f['name'])} = {f['name'].replace('_', '')};\n" for f in fields)
    members = "".join(
        f"\n        /// <summary>{f['name'].replace('_', ' ').capitalize()}{', in ' + f.get('unit', '') if 'unit' in f else ''}.</summary>\n"
        f"        public {kind[f['kind']]} {pascal(f['name'])} {{ get; }}\n"
        for f in fields
    )
    return (
        f"    /// <summary>{escape(reading.export['summary'])}.</summary>\n    public sealed class {name}\n    {{\n"
        f"        internal {name}({parameters_})\n        {{\n{sets}        }}\n{members}    }}\n\n"
    )


def group_class(model: Model, group: dict) -> str:
    name = pascal(group["id"]) + "Readings"
    methods = "\n".join(method(model, reading) for reading in model.of_group(group["id"]))
    return f"""    /// <summary>{escape(group['title'])}.</summary>
    public sealed class {name}
    {{
        private readonly Readings owner;

        internal {name}(Readings owner)
        {{
            this.owner = owner;
        }}

{methods}    }}

"""


def readings_source(model: Model) -> str:
    states = ",\n\n".join(
        f"        /// <summary>{escape(words.capitalize())}.</summary>\n        {pascal(name)}"
        for name, words in model.states.items()
    )
    meanings = "".join(
        f"                case State.{pascal(name)}:\n                    return {quoted(words)};\n"
        for name, words in model.states.items()
    )
    entries = "\n".join(entry(model, reading) for reading in [model.opening] + model.readings)
    types = "".join(choice(r) for r in model.readings if r.kind == "choice")
    types += "".join(record(r) for r in model.readings if r.record)
    classes = "".join(group_class(model, group) for group in model.groups)
    properties = "\n".join(
        f"        /// <summary>{escape(group['title'])}.</summary>\n        public {pascal(group['id'])}Readings {pascal(group['id'])}\n"
        f"        {{\n            get {{ return new {pascal(group['id'])}Readings(this); }}\n        }}\n"
        for group in model.groups
    )
    infos = ",\n".join(
        f"            new ReadingInfo({quoted(pascal(r.group))}, {quoted(pascal(r.short))}, {quoted(r.name)}, "
        f"{quoted(r.export['summary'])}, {quoted(r.unit or '')},\n"
        f"                (Readings readings, Com com, out Failure failure) => "
        f"readings.{pascal(r.group)}.{pascal(r.short)}(out failure{', com' * r.com}))"
        for r in model.readings
        if not r.setter and not r.argument
    )
    return f"""// {NOTICE}.
using System;
using System.Collections.Generic;
using System.Runtime.CompilerServices;

// Not inlined: a runtime can look for the library while it compiles the caller, before Sondrel.Load() has run there.
namespace VeskSondrel
{{
    /// <summary>What an answer means.</summary>
    public enum State
    {{
{states}
    }}

{types}{classes}    /// <summary>All groups of readings: of a <see cref="Session"/>, or of <see cref="Sondrel"/> without one. A reading
    /// without a value is null; its second form also gives the failure. Calls may come from any thread: those that must not
    /// overlap wait for each other.</summary>
    public abstract class Readings
    {{
        internal Readings()
        {{
        }}

        /// <summary>All readings that take no argument, in the order of the library's header.</summary>
        public static IReadOnlyList<ReadingInfo> All {{ get; }} = new[]
        {{
{infos}
        }};

{properties}
        internal virtual void Use()
        {{
        }}
    }}

    internal static class StateMeanings
    {{
        internal static string Of(State state)
        {{
            switch (state)
            {{
{meanings}                default:
                    return "";
            }}
        }}
    }}

    internal static class Entries
    {{
{entries}    }}
}}
"""


def files(model: Model) -> dict:
    return {
        DIRECTORY + "NativeMethods.g.cs": native_source(model),
        DIRECTORY + "Readings.g.cs": readings_source(model),
    }
