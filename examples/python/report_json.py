#!/usr/bin/env python3
"""Every reading as JSON: value, unit, state, and what a failure means.

    report_json.py [LIBRARY] [--machine NAME]

Without a driver session the readings that need one have the state "no_session".
"""

from __future__ import annotations

import argparse
import json
import sys
from typing import Any, Dict

from vesk_sondrel import READINGS, Document, Library, LibraryError, Machine, ReadFailed, Readings, Result, Session


def as_json(value: Any) -> Any:
    if isinstance(value, Document):
        try:
            return value.parse()
        except ValueError:  # a name in it contains a quotation mark
            return str(value)
    if isinstance(value, bytes):
        return value.hex()
    if isinstance(value, list):
        return [as_json(each._asdict() if hasattr(each, "_asdict") else each) for each in value]
    return value


def row(result: Result[Any], unit: str) -> Dict[str, Any]:
    found: Dict[str, Any] = {"value": as_json(result.value), "unit": unit, "state": result.state.value}
    if result.meaning:
        found["meaning"] = result.meaning
    return {name: value for name, value in found.items() if value != ""}


def report(readings: Readings[Any]) -> Dict[str, Dict[str, Any]]:
    groups: Dict[str, Dict[str, Any]] = {}
    for reading in READINGS:
        if reading.export not in ("CPU_ReadCpuId", "wmiadd"):  # these take an argument
            groups.setdefault(reading.group, {})[reading.name] = row(readings.result(reading), reading.unit)
    return groups


def main() -> int:
    options = argparse.ArgumentParser(description=__doc__)
    options.add_argument("library", nargs="?")
    options.add_argument("--machine")
    chosen = options.parse_args()
    try:
        if chosen.machine:
            Machine(chosen.machine, library=chosen.library)
        library = Library(chosen.library)
    except LibraryError as error:
        print(error, file=sys.stderr)
        return 1
    try:
        with Session(library) as session:
            groups = report(session)
    except ReadFailed:
        groups = report(library)
    json.dump(groups, sys.stdout, indent=2, ensure_ascii=False)
    print()
    return 0


if __name__ == "__main__":
    sys.exit(main())
