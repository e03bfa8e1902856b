#!/usr/bin/env python3
"""Writes the source archive that the ports are built from: the files of the last commit.

    make_dist.py OUTPUT_DIRECTORY

Prints the archive's name and its SHA-512, which the port of vcpkg wants.
"""

from __future__ import annotations

import hashlib
import subprocess
import sys
from pathlib import Path

sys.dont_write_bytecode = True
ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "bindings" / "generator"))

import archives  # noqa: E402
from model import project_version  # noqa: E402

# What is of no use to a port, and the larger part of the tree.
LEFT_OUT = ("fuzz/corpus/", ".ci/")


def main(arguments: list) -> int:
    if len(arguments) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    name = f"VeskSondrel64-{project_version()}-src"
    listed = subprocess.run(["git", "-C", str(ROOT), "ls-files", "-s", "-z"], capture_output=True, check=True).stdout
    entries = {}
    for row in listed.decode("utf-8").rstrip("\0").split("\0"):
        mode, _, path = row.partition("\t")
        if not path.startswith(LEFT_OUT):
            entries[f"{name}/{path}"] = ((ROOT / path).read_bytes(), mode.startswith("100755"))
    output = Path(arguments[0])
    output.mkdir(parents=True, exist_ok=True)
    file = output / f"{name}.tar.gz"
    archives.write_tar_gz(file, entries, archives.epoch(ROOT))
    print(file, hashlib.sha512(file.read_bytes()).hexdigest())
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
