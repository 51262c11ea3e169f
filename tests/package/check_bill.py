#!/usr/bin/env python3
"""The bill of materials in the prefix is SPDX 2.3 as far as that can be told without its schema, and has what the
library and the programs really link: check_bill.py PREFIX"""

import functools
import json
import pathlib
import re
import shutil
import subprocess
import sys

prefix = pathlib.Path(sys.argv[1])
bill = json.loads((prefix / "share/doc/halvex/halvex.spdx.json").read_text())

assert bill["spdxVersion"] == "SPDX-2.3" and bill["dataLicense"] == "CC0-1.0" and bill["SPDXID"] == "SPDXRef-DOCUMENT"
assert re.fullmatch(r"https?://[^#\s]+", bill["documentNamespace"])
assert re.fullmatch(r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ", bill["creationInfo"]["created"])
assert all(re.match(r"(Tool|Person|Organization): .", creator) for creator in bill["creationInfo"]["creators"])

packages = {package["SPDXID"]: package for package in bill["packages"]}
assert len(packages) == len(bill["packages"]), "two packages have one identifier"
for identifier, package in packages.items():
    assert re.fullmatch(r"SPDXRef-[A-Za-z0-9.-]+", identifier), identifier
    assert package["name"] and package["downloadLocation"] == "NOASSERTION" and package["filesAnalyzed"] is False
described = set()
for relationship in bill["relationships"]:
    ends = relationship["spdxElementId"], relationship["relatedSpdxElement"]
    assert ends[0] == "SPDXRef-DOCUMENT" or ends[0] in packages, ends
    assert ends[1] in packages, ends
    if relationship["relationshipType"] == "DESCRIBES":
        described.add(ends[1])


@functools.lru_cache(maxsize=None)
def identifier_of(library):
    """Of the package that has a library of the system, where dpkg says which; else of the library itself."""
    owner = ""
    if shutil.which("dpkg-query"):
        said = subprocess.run(["dpkg-query", "-S", f"*/{library}"], capture_output=True, text=True).stdout
        owner = said.partition(":")[0]
    return "SPDXRef-" + re.sub(r"[^A-Za-z0-9.-]", "-", owner or library)


# What is ours is there, and nothing that the loader would look for is missing.
files = [file for file in prefix.glob("lib*/**/libHalvex*.so*") if not file.is_symlink()]
files += [file for file in prefix.glob("bin/halvex-*") if file.read_bytes()[:4] == b"\x7fELF"]
assert len(files) == len(described), (files, described)
for file in files:
    own = re.sub(r"\.so\..*", ".so", file.name)
    linked = {relationship["relatedSpdxElement"] for relationship in bill["relationships"]
              if relationship["spdxElementId"] == f"SPDXRef-{own}"}
    needed = re.findall(r"NEEDED.*\[(.*)\]", subprocess.run(["readelf", "-d", file], check=True, capture_output=True,
                                                             text=True).stdout)
    needed = [name for name in needed if not name.startswith(("ld-linux", "libHalvex.so"))]
    assert "libc.so.6" in needed, (file, needed)
    for name in needed:
        assert identifier_of(name) in linked, (file, name, linked)
    assert own == "libHalvex.so" or "SPDXRef-libHalvex.so" in linked, (file, linked)
    assert any(re.search(r"qt\dcore", name.lower()) for name in linked), (file, linked)

# A version for everything that dpkg knows.
for package in packages.values():
    for reference in package.get("externalRefs", []):
        assert package["versionInfo"] and reference["referenceLocator"].startswith("pkg:deb/debian/"), package
print(len(packages), "packages,", len(bill["relationships"]), "relationships")
