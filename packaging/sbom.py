#!/usr/bin/env python3
"""Writes the software bill of materials of a kit: SPDX 2.3, JSON.

    sbom.py --version V --kit NAME --cxx COMPILER --include DIRECTORY --output FILE COMPONENT...

A component is what CMake knows it by: a header library of cmake/HostedHeaders.cmake, gcc-runtime, mingw-w64, or with
"system:" in front a library of the system that the files of the kit load. Its version comes from the headers and the
compiler that the build uses. A component without a row here is an error.
"""

from __future__ import annotations

import argparse
import hashlib
import json
import re
import subprocess
import sys
import time
import uuid
from pathlib import Path

sys.dont_write_bytecode = True

import archives

ROOT = Path(__file__).resolve().parent.parent


def macros(compiler: str, include: str, header: str, kind: str = "c++") -> dict:
    """What a header defines."""
    asked = subprocess.run(
        [compiler, "-x", kind, "-E", "-dM", f"-I{include}", "-"],
        input=f"#include <{header}>\n", capture_output=True, text=True, check=False,
    )
    return dict(re.findall(r"^#define (\w+) (.*)$", asked.stdout, re.M))


def nlohmann_version(compiler: str, include: str) -> str:
    found = macros(compiler, include, "nlohmann/json.hpp")
    return ".".join(found[f"NLOHMANN_JSON_VERSION_{part}"] for part in ("MAJOR", "MINOR", "PATCH"))


def cli11_version(compiler: str, include: str) -> str:
    return macros(compiler, include, "CLI/Version.hpp")["CLI11_VERSION"].strip('"')


def debian_version(package: str) -> str:
    """Of a package of the build machine; without what its packaging adds."""
    asked = subprocess.run(
        ["dpkg-query", "--show", "--showformat=${Version}", package], capture_output=True, text=True, check=False
    )
    return re.sub(r"^\d+:|[+-].*$", "", asked.stdout.strip())


def compiler_version(compiler: str, _: str) -> str:
    asked = subprocess.run([compiler, "-dumpfullversion"], capture_output=True, text=True, check=True)
    return asked.stdout.strip().partition("-")[0]


def mingw_version(compiler: str, include: str) -> str:
    found = macros(compiler, include, "_mingw.h", "c")
    return ".".join(found[f"__MINGW64_VERSION_{part}"] for part in ("MAJOR", "MINOR", "BUGFIX"))


def sqlite_version(compiler: str, include: str) -> str:
    return macros(compiler, include, "sqlite3.h", "c")["SQLITE_VERSION"].strip('"')


def zlib_version(compiler: str, include: str) -> str:
    # A kit that has the tool of another compiler's build has no such header.
    found = macros(compiler, include, "zlib.h", "c").get("ZLIB_VERSION", "").strip('"')
    return found or debian_version("libz-mingw-w64-dev")


# Name, licence, how its version is found.
COMPONENTS = {
    "nlohmann_json": ("JSON for Modern C++", "MIT", nlohmann_version),
    "cli11": ("CLI11", "BSD-3-Clause", cli11_version),
    "valijson": ("valijson", "BSD-2-Clause", lambda *_: debian_version("libvalijson-dev")),
    "gcc-runtime": ("GCC runtime libraries", "GPL-3.0-or-later WITH GCC-exception-3.1", compiler_version),
    "mingw-w64": ("mingw-w64 runtime", "LicenseRef-mingw-w64", mingw_version),
    "zlib": ("zlib", "Zlib", zlib_version),
    "system:zlib": ("zlib", "Zlib", zlib_version),
    "system:sqlite3": ("SQLite", "blessing", sqlite_version),
    "system:libstdc++": ("GCC runtime libraries", "GPL-3.0-or-later WITH GCC-exception-3.1", lambda *_: ""),
}


def package(identifier: str, name: str, version: str, licence: str) -> dict:
    found = {
        "SPDXID": identifier,
        "name": name,
        "downloadLocation": "NOASSERTION",
        "filesAnalyzed": False,
        "licenseConcluded": licence,
        "licenseDeclared": licence,
        "copyrightText": "NOASSERTION",
    }
    return {**found, "versionInfo": version} if version else found


def document(options: argparse.Namespace) -> dict:
    own = "SPDXRef-VeskSondrel64"
    packages = [package(own, "VeskSondrel64", options.version, "LicenseRef-VeskSondrel64")]
    relationships = [{"spdxElementId": "SPDXRef-DOCUMENT", "relationshipType": "DESCRIBES", "relatedSpdxElement": own}]
    for component in options.components:
        name, licence, version = COMPONENTS[component]
        identifier = "SPDXRef-" + re.sub(r"[^A-Za-z0-9.]+", "-", component)
        packages.append(package(identifier, name, version(options.cxx, options.include), licence))
        kind = "DYNAMIC_LINK" if component.startswith("system:") else "STATIC_LINK"
        relationships.append({"spdxElementId": own, "relationshipType": kind, "relatedSpdxElement": identifier})
    texts = {"LicenseRef-VeskSondrel64": ROOT / "LICENSE", "LicenseRef-mingw-w64": ROOT / "licences/mingw-w64.txt"}
    used = {each["licenseDeclared"] for each in packages}
    created = time.strftime("%Y-%m-%dT%H:%M:%SZ", time.gmtime(archives.epoch(ROOT)))
    name = f"VeskSondrel64-{options.version}-{options.kit}"
    content = hashlib.sha256(json.dumps([packages, relationships, created], sort_keys=True).encode()).hexdigest()
    return {
        "spdxVersion": "SPDX-2.3",
        "dataLicense": "CC0-1.0",
        "SPDXID": "SPDXRef-DOCUMENT",
        "name": name,
        "documentNamespace": "urn:uuid:" + str(uuid.uuid5(uuid.NAMESPACE_URL, f"{name}-{content}")),
        "creationInfo": {"created": created, "creators": ["Tool: packaging/sbom.py"]},
        "packages": packages,
        "relationships": relationships,
        "hasExtractedLicensingInfos": [
            {"licenseId": reference, "extractedText": text.read_text(encoding="utf-8")}
            for reference, text in texts.items() if reference in used
        ],
    }


def main() -> int:
    options = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    for name in ("version", "kit", "cxx", "include", "output"):
        options.add_argument("--" + name, required=True)
    options.add_argument("components", nargs="*")
    chosen = options.parse_args()
    unknown = [component for component in chosen.components if component not in COMPONENTS]
    if unknown:
        print(f"sbom.py: no row for {', '.join(unknown)}", file=sys.stderr)
        return 1
    text = json.dumps(document(chosen), indent=2, ensure_ascii=False) + "\n"
    Path(chosen.output).write_text(text, encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
