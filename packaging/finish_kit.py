#!/usr/bin/env python3
"""The last step of a kit: its archive again, with bytes that depend on its content alone.

    finish_kit.py ARCHIVE

A second build of the same tree then gives the same file.
"""

from __future__ import annotations

import sys
from pathlib import Path

sys.dont_write_bytecode = True

import archives


def main(arguments: list) -> int:
    if len(arguments) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    file = Path(arguments[0])
    draft = file.with_name("unfinished-" + file.name)
    archives.write(draft, archives.read(file), archives.epoch(Path(__file__).resolve().parent))
    draft.replace(file)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
