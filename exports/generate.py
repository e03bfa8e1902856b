#!/usr/bin/env python3
"""Generates what is made from exports.json.

    exports/generate.py            writes the files
    exports/generate.py --check    changes nothing; reports each file that would change, with status 1
"""

from __future__ import annotations

import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))

import cpp_files
import text_files
from description import DescriptionError, load

ROOT = Path(__file__).resolve().parent.parent
CPP_NOTICE = f"// {text_files.NOTICE}.\n"
BEGIN, END = "<!-- failure table: " + text_files.NOTICE + " -->\n", "<!-- end of the failure table -->\n"


def host_page(table: str) -> str:
    """The host page with its failure table replaced."""
    page = (ROOT / "docs/host-engineer.md").read_text(encoding="utf-8")
    before, begin, rest = page.partition(BEGIN)
    _, end, after = rest.partition(END)
    if not begin or not end:
        raise DescriptionError("docs/host-engineer.md: the lines around the failure table are missing")
    return before + begin + table + end + after


def files() -> dict:
    """All generated files by their paths below the root."""
    description = load()
    made = "exports/generated/"
    return {
        "src/frame/VeskSondrel64.def": text_files.definition(description),
        made + "VeskSondrel64.map": text_files.version_script(description),
        made + "enums.h": CPP_NOTICE + cpp_files.enums(description),
        made + "export_names.inc": CPP_NOTICE + cpp_files.names(description),
        made + "export_table.cpp": CPP_NOTICE + cpp_files.table(description),
        made + "fault_expectations.h": CPP_NOTICE + cpp_files.fault_expectations(description),
        made + "observed/VeskSondrel64.def": text_files.observed_definition(description),
        made + "observed/symbols.txt": text_files.observed_symbols(description),
        made + "observed/wrappers.cpp": CPP_NOTICE + cpp_files.observed_wrappers(description),
        "docs/host-engineer.md": host_page(text_files.failure_table(description)),
    }


def main(arguments: list) -> int:
    if arguments not in ([], ["--check"]):
        print(__doc__, file=sys.stderr)
        return 2
    try:
        made = files()
    except DescriptionError as problem:
        print(problem, file=sys.stderr)
        return 2
    changed = 0
    for path, text in made.items():
        file = ROOT / path
        content = text.encode("utf-8")
        if file.exists() and file.read_bytes() == content:
            continue
        changed += 1
        if arguments:
            print(f"{path}: is not what exports/generate.py makes of exports/exports.json")
        else:
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_bytes(content)
    if arguments:
        made_paths = {ROOT / path for path in made}
        for file in sorted((ROOT / "exports/generated").rglob("*")):
            if file.is_file() and file.name != ".clang-format" and file not in made_paths:
                changed += 1
                print(f"{file.relative_to(ROOT)}: exports/generate.py does not make it")
        return 1 if changed else 0
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
