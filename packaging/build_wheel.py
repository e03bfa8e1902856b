#!/usr/bin/python3
"""Builds the wheel of the Python package, without network: Debian's python3-setuptools and python3-wheel.

    build_wheel.py OUTPUT_DIRECTORY
"""

from __future__ import annotations

import os
import shutil
import sys
import tempfile
from pathlib import Path

sys.dont_write_bytecode = True

import archives

SOURCE = Path(__file__).resolve().parent.parent / "bindings" / "python"


def main(arguments: list) -> int:
    if len(arguments) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    try:
        from setuptools import build_meta
        import wheel  # noqa: F401
    except ImportError as problem:
        print(f"build_wheel.py: {problem}: install python3-setuptools and python3-wheel", file=sys.stderr)
        return 1
    output = Path(arguments[0]).resolve()
    output.mkdir(parents=True, exist_ok=True)
    os.environ["SOURCE_DATE_EPOCH"] = str(archives.epoch(SOURCE))
    os.umask(0o022)
    # setuptools writes into the sources' directory.
    with tempfile.TemporaryDirectory() as directory:
        copy = Path(directory) / "python"
        shutil.copytree(SOURCE, copy, ignore=shutil.ignore_patterns("__pycache__", "*.egg-info", ".mypy_cache"))
        for file in copy.rglob("*"):
            file.chmod(0o755 if file.is_dir() else 0o644)
        os.chdir(copy)
        standard_output = os.dup(1)
        os.dup2(2, 1)  # what it prints is no output of ours
        name = build_meta.build_wheel(directory)
        os.dup2(standard_output, 1)
        shutil.copyfile(Path(directory) / name, output / name)
    print(output / name)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
