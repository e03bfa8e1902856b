"""The part of JSON Schema that exports.schema.json uses. A keyword that is not here is an error, not ignored."""

from __future__ import annotations

import json
import re

TYPES = {
    "object": dict,
    "array": list,
    "string": str,
    "boolean": bool,
    "integer": int,
    "number": (int, float),
    "null": type(None),
}
WITHOUT_EFFECT = {"$schema", "$defs", "title", "description"}


def has_type(value: object, name: str) -> bool:
    """True and false are no numbers."""
    if isinstance(value, bool):
        return name == "boolean"
    return isinstance(value, TYPES[name])


class Validator:
    """Collects the errors of a document, each with the JSON pointer of its place."""

    def __init__(self, schema: dict):
        self._schema = schema

    def errors(self, value: object) -> list:
        return list(self._check(self._schema, value, ""))

    def _check(self, schema: dict, value: object, place: str):
        for keyword, rule in schema.items():
            if keyword in WITHOUT_EFFECT:
                continue
            check = getattr(self, "_" + keyword.lstrip("$").lower(), None)
            if check is None:
                raise ValueError(f"the schema uses {keyword}, which json_schema.py does not know")
            yield from check(rule, value, place, schema)

    def _ref(self, rule, value, place, _):
        yield from self._check(self._schema["$defs"][rule[len("#/$defs/") :]], value, place)

    def _type(self, rule, value, place, _):
        if not has_type(value, rule):
            yield f"{place}: {shown(value)} is not of type {rule}"

    def _enum(self, rule, value, place, _):
        if value not in rule:
            yield f"{place}: {shown(value)} is none of {', '.join(rule)}"

    def _anyof(self, rule, value, place, _):
        """The errors of the alternative for the value's type, if there is one."""
        tries = [list(self._check(alternative, value, place)) for alternative in rule]
        if all(tries):
            yield from max(tries, key=lambda errors: not errors[0].startswith(place + ": " + shown(value)))

    def _properties(self, rule, value, place, _):
        if isinstance(value, dict):
            for name, member in value.items():
                if name in rule:
                    yield from self._check(rule[name], member, f"{place}/{name}")

    def _additionalproperties(self, rule, value, place, schema):
        if not isinstance(value, dict):
            return
        for name in value.keys() - schema.get("properties", {}).keys():
            if rule is False:
                yield f"{place}: there is no member {name}"
            else:
                yield from self._check(rule, value[name], f"{place}/{name}")

    def _propertynames(self, rule, value, place, _):
        if isinstance(value, dict):
            for name in value:
                yield from self._check(rule, name, f"{place}/{name}")

    def _required(self, rule, value, place, _):
        if isinstance(value, dict):
            for name in rule:
                if name not in value:
                    yield f"{place}: {name} is missing"

    def _items(self, rule, value, place, _):
        if isinstance(value, list):
            for index, item in enumerate(value):
                yield from self._check(rule, item, f"{place}/{index}")

    def _minitems(self, rule, value, place, _):
        if isinstance(value, list) and len(value) < rule:
            yield f"{place}: fewer than {rule} items"

    def _maxitems(self, rule, value, place, _):
        if isinstance(value, list) and len(value) > rule:
            yield f"{place}: more than {rule} items"

    def _uniqueitems(self, rule, value, place, _):
        if rule and isinstance(value, list) and len(set(map(shown, value))) != len(value):
            yield f"{place}: an item is listed twice"

    def _minlength(self, rule, value, place, _):
        if isinstance(value, str) and len(value) < rule:
            yield f"{place}: an empty string"

    def _minimum(self, rule, value, place, _):
        if has_type(value, "number") and value < rule:
            yield f"{place}: {value} is less than {rule}"

    def _pattern(self, rule, value, place, _):
        if isinstance(value, str) and not re.search(rule, value):
            yield f"{place}: {shown(value)} does not match {rule}"


def shown(value: object) -> str:
    return json.dumps(value, ensure_ascii=False, sort_keys=True)
