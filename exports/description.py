"""exports.json: loading, validating and completing the description of the exports.

    from description import load
    for export in load().exports: ...

Each export is a dictionary with every member of the schema's "export" filled in: the defaults of its group are
applied, and references to common arguments and value sets are replaced by what they refer to. It also has "index"
(in the order of the header), "group" (the group's id) and "label" (where it has a metric).
"""

from __future__ import annotations

import json
import re
from pathlib import Path

from json_schema import Validator, shown

HERE = Path(__file__).resolve().parent

DEFAULTS = {
    "result": None,
    "arguments": [],
    "values": [],
    "session": "none",
    "identity": False,
    "com": None,
    "sources": [],
    "uses": {},
    "blocks": {},
    "cached": "never",
    "changes": "nothing",
    "report": "called",
    "moves": False,
    "load_sensitive": False,
    "telemetry": None,
    "metric": None,
    "info_label": None,
    "after_failure": {"form": "exact"},
}

RANGES = {
    "uint8": (0, 0xFF),
    "int32": (-0x80000000, 0x7FFFFFFF),
    "uint32": (0, 0xFFFFFFFF),
    "float": (0, 0),
    "double": (0, 0),
}


class DescriptionError(Exception):
    """One line for each error."""


class Description:
    def __init__(self, document: dict):
        self.library = document["library"]
        self.states = document["states"]
        self.sources = document["sources"]
        self.resources = document["resources"]
        self.units = document["units"]
        self.charts = document["charts"]
        self.groups = [{"id": group["id"], "title": group["title"]} for group in document["groups"]]
        self.exports = []
        for group in document["groups"]:
            for own in group["exports"]:
                self.exports.append(self._completed(document, group, own))

    def _completed(self, document: dict, group: dict, own: dict) -> dict:
        export = {**DEFAULTS, **group["defaults"], **own}
        export["index"] = len(self.exports)
        export["group"] = group["id"]
        export["arguments"] = [
            document["arguments"][each] if isinstance(each, str) else each for each in export["arguments"]
        ]
        values = []
        for each in export["values"]:
            values += document["value_sets"][each] if isinstance(each, str) else [each]
        export["values"] = [{"at": "whole", **value} for value in values]
        return export

    def of_group(self, group_id: str) -> list:
        return [export for export in self.exports if export["group"] == group_id]


def load(file: Path = HERE / "exports.json") -> Description:
    """Raises DescriptionError."""
    document = parse(file)
    schema = json.loads((HERE / "exports.schema.json").read_text(encoding="utf-8"))
    # Only what has the right form can be completed, and only what is complete can be checked.
    errors = Validator(schema).errors(document) or list(reference_errors(document))
    if errors:
        raise DescriptionError("\n".join(f"{file.name}{named(document, error)}" for error in errors))
    description = Description(document)
    errors = list(export_errors(description))
    if errors:
        raise DescriptionError("\n".join(f"{file.name}: {error}" for error in errors))
    return description


def parse(file: Path) -> dict:
    def without_duplicates(pairs: list) -> dict:
        names = [name for name, _ in pairs]
        for name in names:
            if names.count(name) > 1:
                raise DescriptionError(f"{file.name}: the member {name} is given twice in one object")
        return dict(pairs)

    try:
        return json.loads(file.read_text(encoding="utf-8"), object_pairs_hook=without_duplicates)
    except ValueError as problem:
        raise DescriptionError(f"{file.name}: {problem}") from problem


def named(document: dict, error: str) -> str:
    """The error with the name of the export in place of its number."""
    match = re.match(r"/groups/(\d+)/exports/(\d+)", error)
    if not match:
        return error
    export = document["groups"][int(match.group(1))]["exports"][int(match.group(2))]
    name = export.get("name", match.group(0)) if isinstance(export, dict) else match.group(0)
    return f": {name}{error[match.end():]}"


def in_arguments(export: dict) -> list:
    return [argument for argument in export["arguments"] if argument["direction"] == "in"]


def out_arguments(export: dict) -> list:
    return [argument for argument in export["arguments"] if argument["direction"] == "out"]


def user_argument(export: dict):
    """The argument that a user has to give: all but initCom. None without one."""
    given = [argument for argument in in_arguments(export) if argument["name"] != "initCom"]
    return given[0] if given else None


def reference_errors(document: dict):
    """References to what is not there, and definitions that nothing refers to."""
    used = {kind: set() for kind in ("arguments", "value_sets", "sources", "resources", "units", "states", "charts")}

    def refer(kind: str, name: str, place: str):
        used[kind].add(name)
        if name not in document[kind]:
            yield f"{place}: {kind} has no {name}"

    def check_value(value: dict, place: str):
        for state in value["states"]:
            yield from refer("states", state, place)

    def check_members(members: dict, place: str):
        for argument in members.get("arguments", []):
            if isinstance(argument, str):
                yield from refer("arguments", argument, place)
        for value in members.get("values", []):
            yield from refer("value_sets", value, place) if isinstance(value, str) else check_value(value, place)
        for source in members.get("sources", []):
            yield from refer("sources", source, place)
        for resource in members.get("uses", {}):
            yield from refer("resources", resource, place)
        value = members.get("value", {})
        for part in [value, *value.get("record", [])]:
            if "unit" in part:
                yield from refer("units", part["unit"], place)
        if "telemetry" in members:
            yield from refer("charts", members["telemetry"]["chart"], place)

    for name, values in document["value_sets"].items():
        for value in values:
            yield from check_value(value, f"/value_sets/{name}")
    for number, group in enumerate(document["groups"]):
        yield from check_members(group["defaults"], f"/groups/{number}/defaults")
        for export in group["exports"]:
            yield from check_members(export, f": {export['name']}")
    for kind, names in used.items():
        for name in document[kind].keys() - names:
            yield f"/{kind}/{name}: nothing refers to it"


def export_errors(description: Description):
    """What a schema cannot say."""
    yield from duplicates("group", [group["id"] for group in description.groups])
    yield from duplicates("export", [export["name"] for export in description.exports])
    yield from duplicates("info_label", [e["info_label"] for e in description.exports if e["info_label"]])
    for group in description.groups:
        yield from duplicates(f"{group['id']}: short", [e["short"] for e in description.of_group(group["id"])])
    for export in description.exports:
        for check in EXPORT_CHECKS:
            for error in check(export):
                yield f"{export['name']}: {error}"
    yield from metric_family_errors(description)


def duplicates(what: str, names: list):
    for name in sorted({name for name in names if names.count(name) > 1}):
        yield f"{what} {name} is there twice"


def result_errors(export: dict):
    result, kind = export["result"], export["value"]["kind"]
    if result is None:
        yield "result is missing, in the export and in its group's defaults"
        export["result"] = {"type": "none", "role": "none"}
        return
    if (result["type"] == "none") != (result["role"] == "none"):
        yield "a result of type none has the role none, and no other has"
    if result["type"] == "none" and not out_arguments(export) and kind != "none":
        yield f"nothing carries a value of kind {kind}"
    if (kind == "list") != ("element" in export["value"]):
        yield "element belongs to a list, and only to a list"
    if (kind == "document") != ("example" in export["value"]):
        yield "example belongs to a document, and only to a document"
    if kind == "document":
        try:
            json.loads(export["value"]["example"])
        except ValueError:
            yield "the example is not well-formed JSON"


def argument_errors(export: dict):
    yield from duplicates("argument", [argument["name"] for argument in export["arguments"]])
    for argument in export["arguments"]:
        name = argument["name"]
        pointer = argument["direction"] == "out" or argument["type"] in ("bytes", "text", "wide_text")
        if argument["direction"] == "out" and "size" not in argument:
            yield f"the size of {name} is missing"
        if pointer != ("encoding" in argument):
            yield f"encoding belongs to pointers, and only to pointers: {name}"
        size = argument.get("size")
        if size and (argument["type"] == "wide_text") != (size["unit"] == "characters"):
            yield f"{name}: wide text is sized in characters, everything else in bytes"
        if size and (size["kind"] == "grows") != {"base", "per_item", "item", "plus"}.issubset(size):
            yield f"{name}: base, per_item, item and plus belong to a size that grows"
        allowed = argument.get("allowed")
        if allowed:
            least, most = RANGES[argument["type"]]
            if not least <= allowed["min"] <= allowed["max"] <= most:
                yield f"{name}: the allowed values do not fit its type"
        if argument["direction"] == "in":
            for member in ("meaning", "sample"):
                if member not in argument:
                    yield f"the {member} of {name} is missing"
    if len([a for a in in_arguments(export) if a["name"] != "initCom"]) > 1:
        yield "more than one argument for a user to give"


def role_errors(export: dict):
    init_com = any(argument["name"] == "initCom" for argument in export["arguments"])
    if init_com != (export["com"] is not None and export["com"]["entered_by"] == "argument"):
        yield "com is entered by the argument initCom exactly where there is one"
    if (export["report"] == "session") != (export["session"] == "opens"):
        yield "a report answers with its own session what opens one, and nothing else"
    changes = export["changes"] in ("session", "machine") and export["session"] != "opens"
    if changes != (export["report"] == "skipped"):
        yield "a report skips what changes the session or the machine, and nothing else"
    needs = export["session"] in ("needed", "until_cached", "some_codes")
    if needs and export["uses"].get("session") != "shared":
        yield "what needs a session uses the resource session shared"
    if "ec_commands" in export["blocks"] and "ec" not in export["uses"]:
        yield "what sends EC commands uses the resource ec"
    if (export["cached"] == "process") != (export["blocks"].get("first_call_only", False)):
        yield "only the first call blocks exactly where the process caches the answer"


def value_errors(export: dict):
    seen = set()
    for value in export["values"]:
        if ("value" in value) == ("special" in value):
            yield f"a special value has either value or special: {shown(value)}"
            continue
        key = (value.get("value"), type(value.get("value")), value.get("special"), value["at"])
        if key in seen:
            yield f"{shown(value.get('value', value.get('special')))} is there twice"
        seen.add(key)
        if value["at"] == "element" and export["value"]["kind"] != "list":
            yield "only a list has elements"
        if "special" in value:
            yield from special_errors(export, value["special"])
        else:
            yield from plain_value_errors(export, value)
    specials = [value.get("special") for value in export["values"]]
    if "other" in specials[:-1]:
        yield "other comes last"


def choice_errors(export: dict):
    """The ordinary values of a choice have names, and nothing else has."""
    names = [value.get("name") for value in export["values"] if value["states"] == ["ok"]]
    if export["value"]["kind"] == "choice":
        yield from duplicates("name", [name for name in names if name])
    if any((name is not None) != (export["value"]["kind"] == "choice") for name in names):
        yield "the ordinary values of a choice have a name, and no other values"
    if any("name" in value and value["states"] != ["ok"] for value in export["values"]):
        yield "a value with a name has the state ok, and no other"
    value = export["value"]
    if "record" in value and ("name" not in value["element"] or value["element"]["kind"] != "text"):
        yield "a record is made of elements of text, and their name is the record's"


def special_errors(export: dict, special: str):
    if special == "untouched" and not out_arguments(export):
        yield "without a buffer nothing is left untouched"
    if special == "zeros" and export["value"]["kind"] != "registers":
        yield "zeros is for registers"
    if special == "error_code" and export["result"]["role"] != "error_code":
        yield "error_code is for a result that is one"


def plain_value_errors(export: dict, value: dict):
    """The value has to be one that the call can give."""
    plain = value["value"]
    in_element = value["at"] == "element"
    result = export["result"]["type"]
    element = export["value"].get("element", {})
    numeric = element.get("kind") == "number" if in_element else result in RANGES
    if numeric != isinstance(plain, int):
        yield f"{shown(plain)} is not of the type of the answer"
    elif numeric:
        least, most = RANGES["int32" if in_element else result]
        if not least <= plain <= most:
            yield f"{plain} does not fit the answer's type"
    elif not in_element:
        for argument in out_arguments(export):
            if "size" in argument and len(plain) >= argument["size"]["count"]:
                yield f"{shown(plain)} does not fit the buffer {argument['name']}"


def metric_errors(export: dict):
    metric, value = export["metric"], export["value"]
    if metric is None:
        return
    is_list = value["kind"] == "list"
    if value["kind"] not in ("number", "fraction", "flag", "choice", "list"):
        yield f"a value of kind {value['kind']} is no metric"
    if is_list and value["element"]["kind"] != "number":
        yield "a list of text is no metric"
    label = metric.get("label") or value.get("element", {}).get("name")
    if is_list and label is None:
        yield "a list's metric needs a label"
    values = metric.get("label_values")
    if values and is_list and len(values) != value.get("count"):
        yield "as many label_values as the list has elements"
    if not is_list and (label is None) != (values is None):
        yield "label and label_values belong together"
    if not is_list and values and len(values) != 1:
        yield "one value has one label value"
    metric["label"] = label


def metric_family_errors(description: Description):
    families = {}
    for export in description.exports:
        metric = export["metric"]
        if metric is None:
            continue
        first = families.setdefault(metric["name"], [])
        first.append(export)
        head = first[0]["metric"]
        for member in ("help", "type", "label"):
            if metric.get(member) != head.get(member):
                yield f"{export['name']}: {member} differs from {first[0]['name']}, which has the same metric"
        if (metric.get("type") == "counter") != metric["name"].endswith("_total"):
            yield f"{export['name']}: a counter ends in _total, and no other metric does"
    for name, exports in families.items():
        if len(exports) > 1:
            labels = [tuple(export["metric"].get("label_values") or ()) for export in exports]
            if () in labels or len(set(labels)) != len(labels):
                yield f"{name}: the exports of one metric need different label_values"


def sentence_errors(export: dict):
    sentences = [export["summary"]] + [value["meaning"] for value in export["values"]]
    sentences += [argument["meaning"] for argument in export["arguments"] if "meaning" in argument]
    for sentence in sentences:
        if sentence.endswith(".") or sentence != sentence.strip():
            yield f"no full stop and no blank at the end: {shown(sentence)}"


EXPORT_CHECKS = (
    result_errors,
    argument_errors,
    role_errors,
    value_errors,
    choice_errors,
    metric_errors,
    sentence_errors,
)
