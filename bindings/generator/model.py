"""What the generators of the three languages have in common: the shape of each call and the words of its documentation.

The description itself is loaded and checked by exports/description.py.
"""

from __future__ import annotations

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "exports"))

from description import Description, in_arguments, load, out_arguments, user_argument  # noqa: E402

NOTICE = "Generated from exports/exports.json by scripts/generate_bindings"

# A failure has no better name in words than its state, except for these.
STATE_WORDS = {
    "failed": "Failed",
    "absent": "Absent",
    "not_read": "Not read",
    "no_session": "No session",
    "not_ready": "Not ready",
}
# The session guard of each language calls these two.
GUARDED = ("InitializeSondrel", "ShutdownSondrel")


class Reading:
    """One export with the shape of its call."""

    def __init__(self, export: dict, description: Description):
        self.export = export
        self.name = export["name"]
        self.short = export["short"]
        self.group = export["group"]
        self.value = export["value"]
        self.kind = export["value"]["kind"]
        self.unit = export["value"].get("unit")
        self.unit_name = description.units[self.unit]["name"] if self.unit else None
        self.com = any(argument["name"] == "initCom" for argument in export["arguments"])
        self.argument = user_argument(export)
        self.setter = export["changes"] == "machine"
        out = out_arguments(export)
        self.out = out[0] if out else None
        self.shape = self._shape()
        self.answers = export["values"]

    def _shape(self) -> str:
        """How the answer comes: number, string (an object of C++), narrow, wide, bytes, registers or status."""
        result = self.export["result"]
        if self.setter:
            return "status"
        if self.kind == "registers":
            return "registers"
        if self.out:
            return {"text": "narrow", "wide_text": "wide", "bytes": "bytes"}[self.out["type"]]
        return "string" if result["type"] == "string" else "number"

    @property
    def size(self) -> int:
        """Of the buffer that is read or written, in characters or bytes; 0 without one of a described size."""
        size = (self.out or self.argument or {}).get("size", {})
        return size.get("count", 0)

    @property
    def grows(self) -> bool:
        return bool(self.out) and self.out["size"]["kind"] == "grows"

    @property
    def record(self) -> str:
        """The name of the type of a record: "disk"."""
        return self.value["element"]["name"] if "record" in self.value else ""

    def whole_answers(self) -> list:
        return [answer for answer in self.answers if answer["at"] == "whole"]

    def element_answers(self) -> list:
        return [answer for answer in self.answers if answer["at"] == "element"]

    def choices(self) -> list:
        """(name, value, meaning) of each ordinary value of a choice."""
        return [(a["name"], a["value"], a["meaning"]) for a in self.answers if "name" in a]


class Model:
    def __init__(self) -> None:
        self.description = load()
        self.states = self.description.states
        self.units = self.description.units
        self.exports = self.description.exports
        self.readings = [
            Reading(export, self.description) for export in self.exports if export["name"] not in GUARDED
        ]
        self.opening = Reading(self._named("InitializeSondrel"), self.description)
        groups = {reading.group for reading in self.readings}
        self.groups = [group for group in self.description.groups if group["id"] in groups]
        self.version = project_version()

    def _named(self, name: str) -> dict:
        return next(export for export in self.exports if export["name"] == name)

    def of_group(self, group_id: str) -> list:
        return [reading for reading in self.readings if reading.group == group_id]

    def exclusive_resources(self) -> list:
        """What at least one call needs for itself alone. Only there can calls get into each other's way."""
        found = {name for e in self.exports for name, use in e["uses"].items() if use == "exclusive"}
        return [name for name in self.description.resources if name in found]

    def locks(self, reading: Reading) -> list:
        """The resources of the call that must not be used by two calls at a time."""
        return [name for name in self.exclusive_resources() if reading.export["uses"].get(name) in ("shared", "exclusive")]

    def documentation(self, reading: Reading) -> list:
        """Sentences: what is read, its unit, what failures mean, what the call needs and how long it takes."""
        lines = [reading.export["summary"] + "."]
        lines += unit_sentence(self, reading)
        if reading.kind == "letters":
            lines.append("The letters that the export packs into a number.")
        if reading.value.get("record"):
            lines.append("One record for each; an element that cannot be read as a number is absent from its record.")
        if reading.kind == "document":
            lines.append("JSON in which nothing is escaped, so that a name can make it ill-formed.")
        if reading.argument:
            lines.append(f"{reading.argument['name']}: {reading.argument['meaning']}.")
        lines += [answer_sentence(answer) for answer in reading.answers if set(answer["states"]) != {"ok"}]
        lines += session_sentence(reading) + blocking_sentence(reading) + cache_sentence(reading)
        lines += self._thread_sentence(reading)
        lines.append(f"Export: {reading.name}.")
        return lines

    def _thread_sentence(self, reading: Reading) -> list:
        alone = [name for name, use in reading.export["uses"].items() if use == "exclusive"]
        if not alone:
            return []
        names = [self.description.resources[name]["meaning"].split(",")[0].split(":")[0] for name in alone]
        return [f"Threads: no other call may use meanwhile: {'; '.join(names)}."]


def unit_sentence(model: Model, reading: Reading) -> list:
    # The range of a list is that of its elements.
    limits = reading.value.get("range") or reading.value.get("element", {}).get("range")
    between = f", {limits[0]} to {limits[1]}" if limits else ""
    if reading.kind == "fraction":
        return ["A fraction: 1 is the whole."]
    if reading.unit:
        words = model.units[reading.unit].get("meaning") or reading.unit_name.replace("_", " ").replace("celsius", "Celsius")
        shown = "" if reading.unit in ("raw", reading.unit_name) else f" ({reading.unit})"
        return [f"Unit: {words}{shown}{between}."]
    return [f"Range: {limits[0]} to {limits[1]}."] if limits else []


def answer_sentence(answer: dict) -> str:
    states, meaning = answer["states"], answer["meaning"]
    element = " (one element)" if answer["at"] == "element" else ""
    if states[0] == "ok":
        shown = answer.get("value")
        shown = f'"{shown}"' if isinstance(shown, str) else shown
        return f"{shown}{element} can mean: {meaning}."
    words = " or ".join(STATE_WORDS[state].lower() for state in states if state != "ok").capitalize()
    either = "; can also be an ordinary value" if "ok" in states else ""
    return f"{words}{element}: {meaning}{either}."


def session_sentence(reading: Reading) -> list:
    return {
        "needed": ["Needs a session."],
        "until_cached": ["Needs a session while the value is not cached in the registry."],
        "some_codes": ["Needs a session on machines with some firmware revision codes."],
    }.get(reading.export["session"], [])


def blocking_sentence(reading: Reading) -> list:
    blocks = reading.export["blocks"]
    lines = []
    if "sleep_ms" in blocks:
        least, most = blocks["sleep_ms"]
        lines.append(f"Waits {least} ms." if least == most else f"Waits {least} to {most} ms.")
    if not blocks.get("limited", True):
        lines.append("Waits for a service of the system without a limit; the call cannot be cancelled.")
    return lines


def cache_sentence(reading: Reading) -> list:
    return {
        "registry": ["The first value that was read is cached in the registry permanently."],
        "process": ["The first successful read is cached to the end of the process."],
        "previous": ["A failed read repeats the previous answer."],
    }.get(reading.export["cached"], [])


def pascal(name: str) -> str:
    return "".join(part[:1].upper() + part[1:] for part in name.split("_"))


def project_version() -> str:
    """Of project() in the top CMakeLists.txt, where the version is given once."""
    text = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
    match = re.search(r"project\(\s*VeskSondrel64\s+VERSION\s+([\d.]+)", text)
    if not match:
        raise SystemExit("CMakeLists.txt: project() gives no version")
    return match.group(1)


__all__ = ["NOTICE", "ROOT", "Model", "Reading", "in_arguments", "pascal"]
