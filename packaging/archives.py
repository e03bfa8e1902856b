"""Archives whose bytes depend on their content alone: entries in the order of their names, one time stamp for all."""

from __future__ import annotations

import gzip
import io
import os
import subprocess
import tarfile
import time
import zipfile
from pathlib import Path

EARLIEST = 315532800  # 1980-01-01, before which a ZIP file knows no time


def epoch(tree: Path) -> int:
    """SOURCE_DATE_EPOCH, or the time of the tree's last commit; the earliest one where there is neither."""
    given = os.environ.get("SOURCE_DATE_EPOCH", "")
    if not given:
        asked = subprocess.run(
            ["git", "-C", str(tree), "log", "-1", "--format=%ct"], capture_output=True, text=True, check=False
        )
        given = asked.stdout.strip()
    return max(int(given), EARLIEST) if given.isdigit() else EARLIEST


def write_zip(file: Path, entries: dict, stamp: int) -> None:
    """entries: content by name. A content can be (bytes, executable)."""
    with zipfile.ZipFile(file, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
        for name in sorted(entries):
            content, executable = entries[name] if isinstance(entries[name], tuple) else (entries[name], False)
            info = zipfile.ZipInfo(name, time.gmtime(stamp)[:6])
            info.compress_type = zipfile.ZIP_DEFLATED
            info.create_system = 3  # which has the permissions below
            info.external_attr = (0o100755 if executable else 0o100644) << 16
            archive.writestr(info, content)


def write_tar_gz(file: Path, entries: dict, stamp: int) -> None:
    tape = io.BytesIO()
    with tarfile.open(fileobj=tape, mode="w", format=tarfile.PAX_FORMAT) as archive:
        for name in sorted(entries):
            content, executable = entries[name] if isinstance(entries[name], tuple) else (entries[name], False)
            info = tarfile.TarInfo(name)
            info.size, info.mtime, info.mode = len(content), stamp, 0o755 if executable else 0o644
            archive.addfile(info, io.BytesIO(content))
    with open(file, "wb") as raw, gzip.GzipFile("", "wb", 9, raw, mtime=stamp) as packed:
        packed.write(tape.getvalue())


def read(file: Path) -> dict:
    """The files of an archive; symbolic links are not expected."""
    entries = {}
    if file.name.endswith(".zip"):
        with zipfile.ZipFile(file) as archive:
            for info in archive.infolist():
                if not info.is_dir():
                    entries[info.filename] = (archive.read(info), bool(info.external_attr >> 16 & 0o100))
        return entries
    with tarfile.open(file) as archive:
        for member in archive.getmembers():
            if member.isfile():
                content = archive.extractfile(member)
                entries[member.name] = (content.read() if content else b"", bool(member.mode & 0o100))
            elif not member.isdir():
                raise SystemExit(f"{file}: {member.name} is neither a file nor a directory")
    return entries


def write(file: Path, entries: dict, stamp: int) -> None:
    (write_zip if file.name.endswith(".zip") else write_tar_gz)(file, entries, stamp)
