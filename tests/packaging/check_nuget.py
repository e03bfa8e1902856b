#!/usr/bin/env python3
"""The NuGet package is laid out by NuGet's rules, and every path that it names is there.

    check_nuget.py VERSION DIRECTORY LIBRARY
"""

from __future__ import annotations

import re
import sys
import xml.etree.ElementTree as xml
import zipfile
from fnmatch import fnmatch
from pathlib import Path

version, directory, library = sys.argv[1], Path(sys.argv[2]), Path(sys.argv[3])
short = version[:-2] if re.fullmatch(r"\d+\.\d+\.\d+\.0", version) else version
packages = [file for file in directory.glob("*.nupkg") if file.stat().st_size > 0]
assert [file.name for file in packages] == [f"VeskSondrel.{short}.nupkg"], packages
package = zipfile.ZipFile(packages[0])
names = set(package.namelist())


def tree(name: str) -> xml.Element:
    return xml.fromstring(package.read(name))


def texts(root: xml.Element, tag: str) -> list:
    return [element.text for element in root.iter() if element.tag.endswith("}" + tag)]


# The container: each part has a content type, each relationship a target.
types = tree("[Content_Types].xml")
extensions = {each.get("Extension") for each in types if each.tag.endswith("}Default")}
overrides = {each.get("PartName", "").lstrip("/") for each in types if each.tag.endswith("}Override")}
for name in names - {"[Content_Types].xml"}:
    assert name in overrides or name.rpartition(".")[2] in extensions, f"{name} has no content type"
targets = [each.get("Target", "").lstrip("/") for each in tree("_rels/.rels")]
assert set(targets) <= names and "VeskSondrel.nuspec" in targets, targets

# The manifest: identity, and the files that it names.
manifest = tree("VeskSondrel.nuspec")
assert texts(manifest, "id") == ["VeskSondrel"] and texts(manifest, "version") == [short]
for tag in ("license", "readme"):
    assert set(texts(manifest, tag)) <= names and texts(manifest, tag), tag
content = next(element for element in manifest.iter() if element.tag.endswith("}files"))
sources = {name for name in names if fnmatch(name, "contentFiles/" + content.get("include", ""))}
assert content.get("buildAction") == "Compile" and len(sources) > 5, sources
assert {name for name in names if name.endswith(".cs")} == sources, "a source that is not compiled"
frameworks = {each.get("targetFramework") for each in manifest.iter() if each.tag.endswith("}group")}
places = {f".NETFramework{name[7:8]}.{name[8:9]}" if name.startswith("lib/net4") else ".NETStandard2.0"
          for name in names if name.startswith("lib/")}
assert frameworks == places, (frameworks, places)

# The library where .NET looks for it, and where the targets for the .NET Framework copy it from.
native = "runtimes/win-x64/native/VeskSondrel64.dll"
assert package.read(native) == library.read_bytes()
for name in ("build/VeskSondrel.targets", "buildTransitive/VeskSondrel.targets"):
    include = next(element.get("Include", "") for element in tree(name).iter() if element.tag.endswith("}None"))
    place = include.replace("$(MSBuildThisFileDirectory)", name.rpartition("/")[0] + "/").replace("\\", "/")
    parts: list = []
    for part in place.split("/"):
        parts = parts[:-1] if part == ".." else parts + [part]
    assert "/".join(parts) == native, f"{name}: {include}"
imported = re.findall(rb'internal const string Library = "(\w+)"', package.read("contentFiles/cs/any/VeskSondrel/NativeMethods.g.cs"))
assert imported == [b"VeskSondrel64"], imported
print(f"{packages[0].name}: {len(names)} parts, as they should be")
