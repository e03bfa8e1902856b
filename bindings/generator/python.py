"""The generated modules of the Python package: states and signatures; the groups of readings."""

from __future__ import annotations

from model import NOTICE, Model, Reading, pascal

PACKAGE = "bindings/python/src/vesk_sondrel/"
WIDTH = 118
NUMBER_RANGES = {"int32": (-0x80000000, 0x7FFFFFFF), "uint32": (0, 0xFFFFFFFF), "uint8": (0, 0xFF)}


def quoted(text: str) -> str:
    escaped = text.replace("\\", "\\\\").replace('"', '\\"')
    return f'"{escaped}"'


def description_module(model: Model) -> str:
    states = "".join(f'    {name.upper()} = "{name}"\n    """{words.capitalize()}."""\n' for name, words in model.states.items())
    words = "".join(f"    State.{name.upper()}: {quoted(text)},\n" for name, text in model.states.items())
    rows = "".join(f'    "{export["name"]}": {signature(export)},\n' for export in model.exports)
    resources = "".join(f'    "{name}",\n' for name in model.exclusive_resources())
    return f'''"""States, the exports' types and the resources that calls share. {NOTICE}."""

import enum
from typing import Dict, Tuple

VERSION = "{model.version}"


class State(enum.Enum):
    """What an answer means."""

{states}

STATES = {{
{words}}}

EXCLUSIVE_RESOURCES = (
{resources})
"""What a call can need for itself alone."""

SIGNATURES: Dict[str, Tuple[str, Tuple[str, ...]]] = {{
{rows}}}
"""The result and the arguments of each export."""
'''


def signature(export: dict) -> str:
    kinds = []
    for argument in export["arguments"]:
        out_number = argument["direction"] == "out" and argument["type"] == "uint32"
        kinds.append("out_uint32" if out_number else argument["type"])
    arguments = "".join(f'"{kind}", ' for kind in kinds).rstrip(" " if len(kinds) == 1 else ", ")
    return f'("{export["result"]["type"]}", ({arguments}))'


class Answers:
    """The tuples of special answers; equal ones are written once."""

    def __init__(self) -> None:
        self.text = ""
        self._names = {}

    def name(self, reading: Reading) -> str:
        if not reading.answers:
            return ""
        rows = "".join(map(answer_row, reading.answers))
        if rows not in self._names:
            self._names[rows] = f"_{reading.group.upper()}_{reading.short.upper()}"
            self.text += f"{self._names[rows]} = (\n{rows})\n"
        return self._names[rows]


def answer_row(answer: dict) -> str:
    plain = answer.get("value", 0)
    if "special" in answer:
        match = answer["special"].upper()
    elif isinstance(plain, int):
        match = "ELEMENT" if answer["at"] == "element" else "NUMBER"
    else:
        match, plain = "STRING", quoted(plain)
    states = "".join(f"State.{state.upper()}, " for state in answer["states"])
    states = states.rstrip(" ") if len(answer["states"]) == 1 else states.rstrip(", ")
    return f"    Answer(Match.{match}, {plain}, ({states}), {quoted(answer['meaning'])}),\n"


def docstring(lines: list, indent: str) -> str:
    text = [line.replace("\\", "\\\\").replace('"""', "'''") for line in lines]
    if text[-1].endswith('"'):
        text[-1] += " "
    if len(text) == 1:
        return f'{indent}"""{text[0]}"""\n'
    body = "".join(f"{indent}{line}\n" for line in text[1:])
    return f'{indent}"""{text[0]}\n\n{body}{indent}"""\n'


def constructor(reading: Reading) -> str:
    """The class of the reading with the arguments that only it has."""
    kind, shape = reading.kind, reading.shape
    first, extra = "", ""
    if shape in ("narrow", "wide", "string"):
        extra = f", size={0 if shape == 'string' else reading.size}"
        extra += ", wide=True" * (shape == "wide") + ", grows=True" * reading.grows
        extra += ", terminated=True" * bool(reading.value.get("terminated"))
    if kind in ("number", "version"):
        name = "NumberOf" if reading.argument else "Number"
    elif kind == "list" and reading.record:
        name = "RecordList"
        numbers = ", ".join(str(field["kind"] == "number") for field in reading.value["record"])
        first = f"{pascal(reading.record)}, ({numbers}), "
    elif kind == "list":
        name = "NumberList" if reading.value["element"]["kind"] == "number" else "TextList"
    elif kind == "choice":
        name, first = "Choice", f"{pascal(reading.short)}, "
    elif kind == "registers":
        name = "RegistersOf"
    elif kind == "bytes":
        name, extra = "Bytes", f", size={reading.size}"
    else:
        name = {"flag": "Flag", "fraction": "Fraction", "letters": "Letters", "text": "Text", "document": "DocumentText"}[kind]
    return name, first, extra


def common(model: Model, reading: Reading, answers: Answers) -> str:
    table = answers.name(reading)
    locks = "".join(f'"{lock}", ' for lock in model.locks(reading))
    text = f", unit={quoted(reading.unit)}" if reading.unit else ""
    text += f", answers={table}" * bool(table)
    text += ", com=True" * reading.com
    return text + f", locks=({locks.rstrip()})" * bool(locks)


def attribute(model: Model, reading: Reading, answers: Answers) -> str:
    name, first, extra = constructor(reading)
    export, summary = quoted(reading.name), quoted(reading.export["summary"])
    rest = extra + common(model, reading, answers)
    text = f"    {reading.short} = {name}(\n        {first}{export}, {summary}{rest}\n    )\n"
    return text + docstring(model.documentation(reading), "    ")


def setter(model: Model, reading: Reading, answers: Answers) -> str:
    argument = reading.argument
    kind = {"bytes": "bytes", "wide_text": "str"}.get(argument["type"], "int")
    name = argument["name"] if argument["name"] != "bytes" else "content"
    if kind == "bytes":
        given = f"exactly({name}, {reading.size})"
    elif kind == "str":
        given = f"terminated({name})"
    else:
        least, most = NUMBER_RANGES[argument["type"]]
        given = f"checked({name}, {least}, {most})"
    export, summary = quoted(reading.name), quoted(reading.export["summary"])
    table = f"_{reading.short.upper()}_SETTER"
    made = f"{table} = Setter({export}, {summary}{common(model, reading, answers)})\n"
    lines = [line for line in model.documentation(reading)]
    if name != argument["name"]:
        lines = [line.replace(f"{argument['name']}: ", f"{name}: ", 1) for line in lines]
    lines.insert(1, "Raises without success, through or_none too.")
    method = f"    def {reading.short}(self, {name}: {kind}) -> None:\n{docstring(lines, '        ')}"
    return method + f"        {table}.apply(self._caller, {given})\n", made


def choice(reading: Reading) -> str:
    rows = "".join(
        f'    {name.upper()} = {value}\n    """{meaning[:1].upper()}{meaning[1:]}."""\n' for name, value, meaning in reading.choices()
    )
    return f'class {pascal(reading.short)}(enum.IntEnum):\n    """{reading.export["summary"]}."""\n\n{rows}\n\n'


def record(reading: Reading) -> str:
    kinds = {"text": "str", "number": "Optional[int]"}
    rows = "".join(
        f"    {field['name']}: {kinds[field['kind']]}\n" + f'    """Unit: {field.get("unit")}."""\n' * ("unit" in field)
        for field in reading.value["record"]
    )
    return f'class {pascal(reading.record)}(NamedTuple):\n    """{reading.export["summary"]}."""\n\n{rows}\n\n'


def class_name(group: dict) -> str:
    return pascal(group["id"]) + "Readings"


def readings_module(model: Model) -> str:
    answers = Answers()
    opening = Reading(model.opening.export, model.description)
    types = "".join(choice(r) for r in model.readings if r.kind == "choice")
    types += "".join(record(r) for r in model.readings if r.record)
    exported = [pascal(r.short) for r in model.readings if r.kind == "choice"]
    exported += [pascal(r.record) for r in model.readings if r.record]
    locks = "".join(f'"{name}", ' for name in model.locks(opening)).rstrip()
    opened = f'OPENING = Number("{opening.name}", {quoted(opening.export["summary"])}, answers={answers.name(opening)}, locks=({locks}))\n'
    classes, accessors, setters = "", "", ""
    for group in model.groups:
        name, members = class_name(group), []
        for reading in model.of_group(group["id"]):
            if reading.setter:
                method, made = setter(model, reading, answers)
                members.append(method)
                setters += made
            else:
                members.append(attribute(model, reading, answers))
        body = "\n".join(members)
        classes += f'class {name}(Group[M]):\n    """{group["title"]}."""\n\n    GROUP = "{group["id"]}"\n\n{body}\n\n'
        accessors += f'    @property\n    def {group["id"]}(self) -> {name}[M]:\n        """{group["title"]}."""\n        return {name}(self._use())\n\n'
        exported.append(name)
    names = "".join(f'    "{name}",\n' for name in sorted(exported))
    groups = "".join(f"    {class_name(group)},\n" for group in model.groups)
    return f'''"""The readings by group. {NOTICE}."""

import enum
from typing import TYPE_CHECKING, Any, Generic, NamedTuple, Optional, Tuple, Type

from ._description import State
from ._reading import (
    Answer,
    Bytes,
    Choice,
    DocumentText,
    Flag,
    Fraction,
    Group,
    Letters,
    M,
    Match,
    Number,
    NumberList,
    NumberOf,
    Reading,
    RecordList,
    RegistersOf,
    Setter,
    Text,
    TextList,
    checked,
    exactly,
    terminated,
)

if TYPE_CHECKING:
    from ._library import Caller

__all__ = [
{names}]

{answers.text}
{opened}{setters}

{types}{classes}class Groups(Generic[M]):
    """All groups of readings."""

    def __init__(self, caller: "Caller"):
        self._caller = caller

    def _use(self) -> "Caller":
        if self._caller.closed:
            raise ValueError("the session is closed")
        return self._caller

{accessors.rstrip()}


GROUPS: Tuple[Type[Group[Any]], ...] = (
{groups})

READINGS: Tuple[Reading[Any], ...] = tuple(
    reading for group in GROUPS for reading in vars(group).values() if isinstance(reading, Reading)
)
"""All readings in the order of the library's header; those that take an argument are functions."""
'''


def files(model: Model) -> dict:
    return {
        PACKAGE + "_description.py": description_module(model),
        PACKAGE + "_readings.py": readings_module(model),
    }


