"""What carries the version of project() and is checked in: the header's macros and the packages' metadata."""

from __future__ import annotations

import re

from model import ROOT, Model

# File, pattern whose first group stays, and what follows it.
PLACES = (
    ("include/vesk_sondrel.h", r'(#define VESK_SONDREL_VERSION )"[^"]*"', '"{version}"'),
    ("include/vesk_sondrel.h", r"(#define VESK_SONDREL_VERSION_NUMBER )0x[0-9A-F]+", "{number}"),
    ("bindings/python/pyproject.toml", r'(?m)(^version = )"[^"]*"', '"{version}"'),
    ("bindings/csharp/VeskSondrel/VeskSondrel.csproj", r"(<Version>)[^<]*", "{version}"),
    ("packaging/vcpkg/vesk-sondrel/vcpkg.json", r'("version": )"[^"]*"', '"{version}"'),
    ("packaging/conan/conanfile.py", r'(?m)(^    version = )"[^"]*"', '"{version}"'),
)


def files(model: Model) -> dict:
    parts = [int(part) for part in model.version.split(".")]
    number = "0x" + "".join(f"{part:02X}" for part in parts)
    made = {}
    for path, pattern, value in PLACES:
        text = made.get(path) or (ROOT / path).read_text(encoding="utf-8")
        value = value.format(version=model.version, number=number)
        text, count = re.subn(pattern, lambda match: match.group(1) + value, text)
        if count != 1:
            raise SystemExit(f"{path}: expected one place for the version, found {count}")
        made[path] = text
    return made
