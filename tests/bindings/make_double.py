#!/usr/bin/env python3
"""Writes the sources of a library whose answers a test chooses.

    make_double.py SOURCE [DEFINITION]

It exports what the public header declares, and the functions of double_control.h. The sizes of the buffers are those
that the header's comments state, in characters or bytes.
"""

from __future__ import annotations

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "exports"))
sys.dont_write_bytecode = True

from check_header import Header  # noqa: E402

ARGUMENT = re.compile(r"(?P<type>.+?)(?P<name>\w+)$")
CONTROLS = ("Double_Set", "Double_SetAll", "Double_Called", "Double_All", "Double_Size", "Double_Argument",
            "Double_MostOverlapping", "Double_Reset")
# Where the header names no limit.
LONG_BUFFER = 524288


def stated_size(comment: str, variable: str) -> int:
    clause = re.search(rf"\b{variable}: (.*?)(?=Failure|Not there|Absent|$)", comment)
    sizes = re.findall(r"\b(\d+) (?:characters|bytes)\b", clause.group(1) if clause else comment)
    limit = re.search(r"\bbelow ([\d,]+)", clause.group(1) if clause else "")
    if limit:
        return int(limit.group(1).rstrip(",").replace(",", ""))
    grows = clause is not None and (" each " in clause.group(1) or "registers" in clause.group(1) or "an entry" in clause.group(1))
    records = clause is not None and re.match(r"\d{4} characters", clause.group(1))
    return LONG_BUFFER if grows and not records else int(sizes[0])


def function(name: str, signature: str, comment: str) -> str:
    result, listed = re.match(rf"(.*?)\b{name}\((.*)\)", signature).groups()
    result = result.strip()
    arguments = [each.strip() for each in listed.split(",") if each.strip() not in ("", "void")]
    found = []
    for argument in arguments:
        match = ARGUMENT.match(argument)
        found.append((match.group("type").strip(), match.group("name")))
    body = [f'    const Call call("{name}");']
    pointers = [(kind, variable) for kind, variable in found if kind.endswith("*")]
    for kind, variable in found:
        if kind in ("uint8_t", "int32_t", "uint32_t"):
            body.append(f'    call.Pass("{variable}", {variable});')
    if result in ("std::string", "VESK_STRING"):
        return f"VESK_DOUBLE_STRING({name})\n"
    if name == "CPU_ReadCpuId":
        body.append("    call.WriteRegisters(eax, ebx, ecx, edx);")
    elif pointers and "const" not in pointers[0][0]:
        body.append(f"    call.Write({pointers[0][1]});")
    elif pointers:
        size = 0 if "VeskChar16" in pointers[0][0] else stated_size(comment, pointers[0][1])
        body.append(f"    call.Read({pointers[0][1]}, {size});")
    if result != "void":
        body.append(f"    return call.Number<{result}>();")
    return f"{signature} {{\n" + "\n".join(body) + "\n}\n"


def main(arguments: list) -> int:
    if len(arguments) not in (1, 2):
        print(__doc__, file=sys.stderr)
        return 2
    header = Header((ROOT / "include/vesk_sondrel.h").read_text(encoding="utf-8"))
    functions = "\n".join(function(name, header.signatures[name], header.comments[name]) for name in header.names)
    rows = []
    for name in header.names:
        signature = header.signatures[name]
        size = 0
        if re.search(r"(char|VeskChar16|uint8_t)\* out", signature):
            size = stated_size(header.comments[name], "out")
        rows.append(f'    {{"{name}", {size}}},\n')
    text = f"""// The exports of the double: made by make_double.py from the public header.
#include "double_library.h"

const std::vector<Known> known = {{
{''.join(rows)}}};

extern "C" {{

{functions}
}} // extern "C"
"""
    Path(arguments[0]).write_text(text, encoding="utf-8")
    if len(arguments) == 2:
        names = "".join(f"    {name}\n" for name in [*header.names, *CONTROLS])
        Path(arguments[1]).write_text(f"LIBRARY VeskSondrel64.dll\nEXPORTS\n{names}", encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
