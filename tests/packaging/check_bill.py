#!/usr/bin/env python3
"""The bill of materials is SPDX 2.3 as far as its required members go, and names what has a licence in the kit.

    check_bill.py FILE VERSION LICENCES
"""

from __future__ import annotations

import json
import re
import sys
from pathlib import Path

bill = json.loads(Path(sys.argv[1]).read_text(encoding="utf-8"))
version, licences = sys.argv[2], Path(sys.argv[3])

assert bill["spdxVersion"] == "SPDX-2.3" and bill["dataLicense"] == "CC0-1.0" and bill["SPDXID"] == "SPDXRef-DOCUMENT"
assert re.match(r"[a-z]+:", bill["documentNamespace"]) and "#" not in bill["documentNamespace"]
assert re.fullmatch(r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ", bill["creationInfo"]["created"]) and bill["creationInfo"]["creators"]
identifiers = [package["SPDXID"] for package in bill["packages"]]
assert len(set(identifiers)) == len(identifiers)
known = {*identifiers, bill["SPDXID"]}
for each in bill["relationships"]:
    assert each["spdxElementId"] in known and each["relatedSpdxElement"] in known, each
related = {each["relatedSpdxElement"] for each in bill["relationships"]}
assert related == set(identifiers), "a package without a relationship"
extracted = {each["licenseId"] for each in bill["hasExtractedLicensingInfos"] if each["extractedText"].strip()}
for package in bill["packages"]:
    assert re.fullmatch(r"SPDXRef-[A-Za-z0-9.-]+", package["SPDXID"])
    assert package["name"] and package["downloadLocation"] and package["licenseDeclared"], package
    for reference in re.findall(r"LicenseRef-[\w.-]+", package["licenseDeclared"]):
        assert reference in extracted, reference
    linked = any(e["relatedSpdxElement"] == package["SPDXID"] and e["relationshipType"] == "STATIC_LINK" for e in bill["relationships"])
    if linked:
        assert re.match(r"\d+(\.\d+)*$", package.get("versionInfo", "")), package
assert bill["packages"][0]["versionInfo"] == version

# Each statically linked component has its licence's whole text in the tree.
for identifier in (e["relatedSpdxElement"] for e in bill["relationships"] if e["relationshipType"] == "STATIC_LINK"):
    names = {file.stem.replace("_", "-"): file for file in licences.glob("*.txt")}
    text = names[identifier[len("SPDXRef-") :]].read_text(encoding="utf-8")
    assert len(text.split()) > 140, f"{identifier}: its licence is not whole"
print(f"{len(identifiers)} packages")
