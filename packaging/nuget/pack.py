#!/usr/bin/env python3
"""Packs the NuGet package, without network: the library for Windows and the C# binding as source.

    pack.py VERSION LIBRARY OUTPUT_DIRECTORY
"""

from __future__ import annotations

import hashlib
import sys
from pathlib import Path

sys.dont_write_bytecode = True
HERE = Path(__file__).resolve().parent
ROOT = HERE.parent.parent
sys.path.insert(0, str(HERE.parent))

import archives  # noqa: E402

ID = "VeskSondrel"
SUMMARY = "VeskSondrel64 for .NET: what a notebook's or desktop's hardware and system are doing."
CONTENT_TYPES = """<?xml version="1.0" encoding="utf-8"?>
<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">
  <Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml" />
  <Default Extension="psmdcp" ContentType="application/vnd.openxmlformats-package.core-properties+xml" />
{rows}</Types>
"""
RELATIONSHIPS = """<?xml version="1.0" encoding="utf-8"?>
<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">
  <Relationship Type="http://schemas.microsoft.com/packaging/2010/07/manifest" Target="/{id}.nuspec" Id="R1" />
  <Relationship Type="http://schemas.openxmlformats.org/package/2006/relationships/metadata/core-properties" \
Target="/{properties}" Id="R2" />
</Relationships>
"""
PROPERTIES = """<?xml version="1.0" encoding="utf-8"?>
<coreProperties xmlns:dc="http://purl.org/dc/elements/1.1/" \
xmlns="http://schemas.openxmlformats.org/package/2006/metadata/core-properties">
  <dc:creator>Vesk</dc:creator>
  <dc:description>{summary}</dc:description>
  <dc:identifier>{id}</dc:identifier>
  <version>{version}</version>
</coreProperties>
"""
NUSPEC = """<?xml version="1.0" encoding="utf-8"?>
<package xmlns="http://schemas.microsoft.com/packaging/2013/05/nuspec.xsd">
  <metadata minClientVersion="5.0">
    <id>{id}</id>
    <version>{version}</version>
    <authors>Vesk</authors>
    <license type="file">LICENSE</license>
    <readme>README.md</readme>
    <description>{summary}</description>
    <dependencies>
      <group targetFramework=".NETFramework4.6" />
      <group targetFramework=".NETStandard2.0" />
    </dependencies>
    <contentFiles>
      <files include="cs/any/{id}/*.cs" buildAction="Compile" copyToOutput="false" />
    </contentFiles>
  </metadata>
</package>
"""


def normalized(version: str) -> str:
    """As NuGet names versions: a fourth part of 0 is left out."""
    parts = version.split(".")
    return ".".join(parts[:3] if len(parts) == 4 and parts[3] == "0" else parts)


def main(arguments: list) -> int:
    if len(arguments) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    version, library, output = normalized(arguments[0]), Path(arguments[1]), Path(arguments[2])
    targets = (HERE / "VeskSondrel.targets").read_bytes()
    entries = {
        "LICENSE": (ROOT / "LICENSE").read_bytes(),
        "README.md": (HERE / "README.md").read_bytes(),
        f"build/{ID}.targets": targets,
        f"buildTransitive/{ID}.targets": targets,
        "runtimes/win-x64/native/VeskSondrel64.dll": library.read_bytes(),
        # The package has nothing to refer to for these, and goes with them.
        "lib/net46/_._": b"",
        "lib/netstandard2.0/_._": b"",
        f"{ID}.nuspec": NUSPEC.format(id=ID, version=version, summary=SUMMARY).encode("utf-8"),
    }
    for source in sorted((ROOT / "bindings/csharp/VeskSondrel").glob("*.cs")):
        entries[f"contentFiles/cs/any/{ID}/{source.name}"] = source.read_bytes()
    name = hashlib.sha256(b"".join(entries[key] for key in sorted(entries))).hexdigest()[:32]
    properties = f"package/services/metadata/core-properties/{name}.psmdcp"
    entries[properties] = PROPERTIES.format(id=ID, version=version, summary=SUMMARY).encode("utf-8")
    entries["_rels/.rels"] = RELATIONSHIPS.format(id=ID, properties=properties).encode("utf-8")
    endings = sorted({key.rpartition(".")[2] for key in entries if "." in key} - {"rels", "psmdcp", "_"})
    rows = "".join(f'  <Default Extension="{ending}" ContentType="application/octet" />\n' for ending in endings)
    for part in ("LICENSE", "lib/net46/_._", "lib/netstandard2.0/_._"):
        rows += f'  <Override PartName="/{part}" ContentType="application/octet" />\n'
    entries["[Content_Types].xml"] = CONTENT_TYPES.format(rows=rows).encode("utf-8")
    output.mkdir(parents=True, exist_ok=True)
    file = output / f"{ID}.{version}.nupkg"
    archives.write_zip(file, entries, archives.epoch(ROOT))
    print(file)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
