#!/usr/bin/env python3
"""Compares the public header, which is written by hand, with the description of the exports.

    exports/check_header.py [HEADER]

Reports one line for each difference in names, groups, signatures, buffer sizes, sessions and failure values, with
status 1. A comment has to state, each followed by a colon: "Failure", "Session", "Blocks", the name of each buffer, and "Absent" if
there can be nothing to read; labels can be joined ("Failure or absent"). A value can also be stated in the comment of
the export's group.
"""

from __future__ import annotations

import re
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))

import c_types
from description import Description, load, out_arguments

HEADER = Path(__file__).resolve().parent.parent / "include" / "vesk_sondrel.h"

COMMENT = re.compile(r"/\*\*(.*?)\*/\s*", re.S)
DECLARATION = re.compile(r"VESK_API\s+([^;]+);")
GROUP = re.compile(r"@defgroup (\w+) ([^\n]+)\n")
LABEL = re.compile(r"\b(Failure|Not there|Absent|Session|Blocks|Result)((?: (?:and|or) (?:failure|not there|absent))*): ")

CONSTANTS = {2147483647: "VESK_READ_FAILED", -1000: "VESK_RADIO_NOT_READ"}
# How the comments name what is no plain value.
PHRASES = {
    "": ("empty text", "empty string", "20 zero bytes"),
    "untouched": ("unwritten", "as it was", "as they were", "not written", "unchanged", "untouched"),
    "zeros": ("four zeros",),
    "error_code": ("error code",),
    "other": ("error code",),
}


class Header:
    """What the header says, by the names of groups and exports."""

    def __init__(self, text: str):
        self.groups = []  # (id, title)
        self.group_comments = {}
        self.names = []
        self.group_of = {}
        self.signatures = {}
        self.comments = {}
        group, place = "", 0
        while match := COMMENT.search(text, place):
            place = match.end()
            comment = re.sub(r"\n \* ?", "\n", match.group(1))
            head = GROUP.search(comment)
            if head:
                group = head.group(1)
                self.groups.append(head.groups())
                self.group_comments[group] = words(comment)
            declaration = DECLARATION.match(text, place)
            if declaration:
                self._add(declaration.group(1), group, words(comment))
                place = declaration.end()

    def _add(self, declaration: str, group: str, comment: str) -> None:
        declaration = words(declaration).replace("( ", "(").replace(" )", ")").replace("VESK_STRING ", "std::string ")
        name = re.search(r"(\w+)\(", declaration).group(1)
        self.names.append(name)
        self.group_of[name] = group
        self.signatures[name] = declaration
        self.comments[name] = comment


def words(text: str) -> str:
    return " ".join(text.split())


def clauses(comment: str) -> dict:
    """The text after each label of the comment."""
    found = {}
    matches = list(LABEL.finditer(comment))
    for match, following in zip(matches, matches[1:] + [None]):
        text = comment[match.end() : following.start() if following else len(comment)]
        for label in (match.group(1) + match.group(2)).replace(" or ", " and ").split(" and "):
            found.setdefault(label.lower().replace("not there", "absent"), text.strip())
    return found


def states(text: str, value: dict) -> bool:
    """Whether the text names the value."""
    plain = value.get("value", value.get("special"))
    phrases = list(PHRASES.get(plain, ()))
    if isinstance(plain, int):
        number = rf"(?<![\w.\"-]){plain}(?:\.0)?(?![\w\"]|\.\d|-)"
        if re.search(number, text):
            return True
        phrases += [CONSTANTS[plain]] if plain in CONSTANTS else []
    elif "value" in value and plain:
        quoted = plain if plain.startswith(("[", "{")) else f'"{plain}"'
        phrases.append(quoted)
    return any(phrase in text for phrase in phrases)


def stated_values(text: str) -> list:
    """The values that a failure clause names: at its beginning, or after a comma or a semicolon."""
    found = []
    for constant in CONSTANTS.values():
        if constant in text:
            found.append(constant)
    found += re.findall(r'"[^" ]*"', re.sub(r"[\[{][^ ]*", "", text))
    for match in re.finditer(r"(?:^|[,;] )(-?\d+)(?:\.0)?(?=[,.;: ])(?! zero| bytes| characters)", text):
        found.append(match.group(1))
    return found


def differences(description: Description, header: Header):
    groups = [group for group in header.groups if group[0] in header.group_of.values()]
    yield from list_differences("group", [(group["id"], group["title"]) for group in description.groups], groups)
    names = [export["name"] for export in description.exports]
    yield from list_differences("export", names, header.names)
    for export in description.exports:
        if export["name"] in header.signatures:
            for difference in export_differences(export, header):
                yield f"{export['name']}: {difference}"


def list_differences(what: str, described: list, declared: list):
    for one in described:
        if one not in declared:
            yield f"{what} {one}: the header does not have it"
    for one in declared:
        if one not in described:
            yield f"{what} {one}: the description does not have it"
    common = [one for one in declared if one in described]
    expected = [one for one in described if one in declared]
    for is_there, should_be in zip(common, expected):
        if is_there != should_be:
            yield f"{what} {is_there}: {should_be} is expected in its place"
            return


def export_differences(export: dict, header: Header):
    name = export["name"]
    if header.group_of[name] != export["group"]:
        yield f"it is in the group {header.group_of[name]}, not in {export['group']}"
    expected = c_types.declaration(export)
    if header.signatures[name] != expected:
        yield f"declared as {header.signatures[name]}, described as {expected}"
    comment = header.comments[name]
    stated = clauses(comment)
    for label in ("failure", "session", "blocks"):
        if label not in stated and not (label == "session" and "Session: " in header.group_comments.get(export["group"], "")):
            yield f"the comment does not state: {label.capitalize()}"
    yield from session_differences(export, stated)
    for argument in out_arguments(export):
        yield from size_differences(argument, comment)
    yield from value_differences(export, stated, comment, header)


def session_differences(export: dict, stated: dict):
    described = {"none": "not needed", "opens": "opens", "closes": "closes"}.get(export["session"], "needed")
    if "session" in stated and not stated["session"].startswith(described):
        yield f"the comment states \"Session: {stated['session'].split('.')[0]}\", described is: {described}"


def size_differences(argument: dict, comment: str):
    """Sizes are in the clause of the buffer; those of raw bytes may be anywhere in the comment."""
    size = argument["size"]
    if argument["type"] == "uint32":
        return
    clause = re.search(rf"\b{argument['name']}: (.*?)(?=\. Failure|\. Not there| Failure|$)", comment)
    if argument["type"] != "bytes" and not clause:
        yield f"the comment does not state the size of {argument['name']}"
        return
    text = clause.group(1) if clause else comment
    numbers = [size["count"]]
    if size["kind"] == "grows":
        # The text may leave the terminator out of what an empty list takes.
        numbers = [size["per_item"]] + [size["base"] - (str(size["base"]) not in text)] * (size["base"] > 1)
    for number in numbers:
        if not re.search(rf"\b{number}\b", text):
            yield f"{argument['name']}: {number} {size['unit']} are described, the comment states: {text}"
    if size["kind"] != "grows" and not re.search(rf"\b{size['count']} {size['unit']}\b", text):
        yield f"{argument['name']}: the comment does not give the size in {size['unit']}"
    if argument["type"] != "bytes" and (size["kind"] == "exact") != ("exactly" in text):
        yield f"{argument['name']}: the size is described as {size['kind']}, the comment states: {text}"


def value_differences(export: dict, stated: dict, comment: str, header: Header):
    failures = [value for value in export["values"] if set(value["states"]) != {"ok"}]
    everywhere = comment + " " + header.group_comments.get(export["group"], "")
    reference = re.match(r"as (\w+)\.", stated.get("failure", ""))
    if reference:
        everywhere += " " + header.comments.get(reference.group(1), "")
    for value in failures:
        in_words = export["value"]["kind"] == "document" and ":" in str(value.get("value")) and "failure" in stated
        if not in_words and not states(everywhere, value):
            shown = value.get("value", value.get("special"))
            yield f"the comment does not state the failure value {shown!r} ({value['meaning']})"
    for label in ("failure", "absent"):
        for named in stated_values(stated.get(label, "")):
            constant = named == "0" and export["result"]["role"] == "constant"
            if not constant and not any(names_value(named, value) for value in export["values"]):
                yield f"the comment states {named} after {label.capitalize()}, which is not described"


def names_value(named: str, value: dict) -> bool:
    plain = value.get("value")
    if named.startswith('"'):
        return named[1:-1] == plain
    return named == CONSTANTS.get(plain) or named == str(plain)


def main(arguments: list) -> int:
    if len(arguments) > 1:
        print(__doc__, file=sys.stderr)
        return 2
    file = Path(arguments[0]) if arguments else HEADER
    found = list(differences(load(), Header(file.read_text(encoding="utf-8"))))
    for difference in found:
        print(f"{file.name}: {difference}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
