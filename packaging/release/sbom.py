#!/usr/bin/env python3
"""Writes the bill of materials of a release as SPDX 2.3 (JSON): every file with its checksums, and what is linked or
compiled into it, with version and licence.

    sbom.py FOLDER VERSION COMMIT TIME

FOLDER contains the files of the release; TIME is the second of the commit, so that the same sources give the same
document. The document is FOLDER/vantro-profile-utils-VERSION.spdx.json.
"""
import datetime
import fnmatch
import hashlib
import json
import re
import subprocess
import sys
from dataclasses import dataclass
from pathlib import Path

NAME = "VantroProfileUtils"


@dataclass(frozen=True)
class Component:
    """Something that others write and that a file of the release contains."""

    name: str
    debian: str  # the package whose version is the component's
    licence: str  # as an SPDX expression
    supplier: str
    home: str


COMPONENTS = (
    Component("CLI11", "libcli11-dev", "BSD-3-Clause", "Organization: CLIUtils", "https://github.com/CLIUtils/CLI11"),
    Component("simdjson", "libsimdjson-dev", "Apache-2.0", "Organization: simdjson", "https://simdjson.org"),
    Component("zlib", "zlib1g-dev", "Zlib", "Organization: zlib", "https://zlib.net"),
    Component("zstd", "libzstd-dev", "BSD-3-Clause OR GPL-2.0-only", "Organization: Meta Platforms",
              "https://facebook.github.io/zstd"),
    Component("SQLite", "libsqlite3-dev", "blessing", "Organization: SQLite", "https://sqlite.org"),
    Component("xxHash", "libxxhash-dev", "BSD-2-Clause", "Person: Yann Collet", "https://xxhash.com"),
    Component("libstdc++ and libgcc", "g++-12", "GPL-3.0-or-later WITH GCC-exception-3.1",
              "Organization: Free Software Foundation", "https://gcc.gnu.org"),
    Component("libstdc++ and libgcc for Windows", "g++-mingw-w64-x86-64-posix",
              "GPL-3.0-or-later WITH GCC-exception-3.1", "Organization: Free Software Foundation",
              "https://gcc.gnu.org"),
    Component("mingw-w64 runtime", "mingw-w64-x86-64-dev", "ZPL-2.1", "Organization: mingw-w64",
              "https://www.mingw-w64.org"),
    Component("Emscripten runtime", "emscripten", "MIT OR NCSA", "Organization: Emscripten",
              "https://emscripten.org"),
    Component("Material for MkDocs", "mkdocs-material", "MIT", "Organization: Material for MkDocs",
              "https://squidfunk.github.io/mkdocs-material"),
)


@dataclass(frozen=True)
class Kind:
    """A kind of file, by a pattern of its name, and the components that such a file contains."""

    pattern: str
    purpose: str  # SPDX: ARCHIVE, INSTALL, SOURCE, LIBRARY
    contains: tuple[str, ...] = ()


KINDS = (
    Kind("*-windows.zip", "ARCHIVE", ("CLI11", "simdjson", "xxHash", "libstdc++ and libgcc for Windows",
                                      "mingw-w64 runtime")),
    Kind("*.whl", "INSTALL", ("libstdc++ and libgcc",)),
    Kind("vantro-profile_*.deb", "INSTALL", ("CLI11", "xxHash")),
    Kind("*.deb", "INSTALL"),
    Kind("*-npm.tgz", "INSTALL", ("Emscripten runtime",)),
    Kind("*-site.tar.gz", "ARCHIVE", ("Emscripten runtime", "Material for MkDocs")),
    Kind("*.tar.gz", "SOURCE"),
)


def kind_of(name: str) -> Kind:
    """The first kind whose pattern fits; raises LookupError for a file that none fits."""
    for kind in KINDS:
        if fnmatch.fnmatchcase(name, kind.pattern):
            return kind
    raise LookupError(f"{name} is of no kind that the bill of materials knows")


def identifier(text: str) -> str:
    return "SPDXRef-" + re.sub(r"[^A-Za-z0-9.]+", "-", text).strip("-")


def without_debian_part(version: str) -> str:
    """The version as its makers number it: 12.2.0 of 12.2.0-14, 1.1.0 of 1:1.1.0+dfsg2-7."""
    return re.sub(r"^\d+:|[-+~].*$", "", version)


def debian_version(package: str) -> str:
    """The version of an installed package, without Debian's own part."""
    found = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", package], capture_output=True, text=True,
                           check=False)
    if found.returncode != 0 or not found.stdout:
        raise LookupError(f"{package} is not installed: the version of a component of the release is not known")
    return without_debian_part(found.stdout)


def digest(path: Path, algorithm: str) -> str:
    return hashlib.new(algorithm, path.read_bytes()).hexdigest()


def package_of_component(component: Component, version: str) -> dict:
    return {
        "SPDXID": identifier(component.name),
        "name": component.name,
        "versionInfo": version,
        "supplier": component.supplier,
        "downloadLocation": component.home,
        "filesAnalyzed": False,
        "licenseConcluded": component.licence,
        "licenseDeclared": component.licence,
        "copyrightText": "NOASSERTION",
    }


def package_of_file(path: Path, version: str) -> dict:
    return {
        "SPDXID": identifier("File-" + path.name),
        "name": path.name,
        "versionInfo": version,
        "packageFileName": path.name,
        "supplier": "Organization: the VantroProfileUtils founders",
        "downloadLocation": "NOASSERTION",
        "filesAnalyzed": False,
        "primaryPackagePurpose": kind_of(path.name).purpose,
        "licenseConcluded": "MIT",
        "licenseDeclared": "MIT",
        "copyrightText": "Copyright (c) 2026 the VantroProfileUtils founders",
        "checksums": [{"algorithm": name.upper(), "checksumValue": digest(path, name)} for name in ("sha1", "sha256")],
    }


def relationship(element: str, kind: str, related: str) -> dict:
    return {"spdxElementId": element, "relationshipType": kind, "relatedSpdxElement": related}


def document(files: list[Path], version: str, commit: str, time: int, version_of=debian_version) -> dict:
    """The bill of materials. Raises LookupError for a file of no known kind and for a component without a version."""
    contained = {path.name: kind_of(path.name).contains for path in files}
    used = [component for component in COMPONENTS if any(component.name in names for names in contained.values())]
    created = datetime.datetime.fromtimestamp(time, datetime.timezone.utc).strftime("%Y-%m-%dT%H:%M:%SZ")
    relationships = []
    for path in files:
        of_file = identifier("File-" + path.name)
        relationships.append(relationship("SPDXRef-DOCUMENT", "DESCRIBES", of_file))
        relationships += [relationship(of_file, "CONTAINS", identifier(name)) for name in contained[path.name]]
    return {
        "spdxVersion": "SPDX-2.3",
        "dataLicense": "CC0-1.0",
        "SPDXID": "SPDXRef-DOCUMENT",
        "name": f"{NAME}-{version}",
        "documentNamespace": f"urn:vantro:{NAME}:{version}:{commit}",
        "creationInfo": {"created": created, "creators": ["Organization: the VantroProfileUtils founders"]},
        "packages": [package_of_file(path, version) for path in files]
        + [package_of_component(component, version_of(component.debian)) for component in used],
        "relationships": relationships,
    }


def main() -> None:
    folder, version, commit, time = Path(sys.argv[1]), sys.argv[2], sys.argv[3], int(sys.argv[4])
    out = folder / f"vantro-profile-utils-{version}.spdx.json"
    files = sorted(path for path in folder.iterdir() if path.is_file() and path not in (out, folder / "SHA256SUMS"))
    out.write_text(json.dumps(document(files, version, commit, time), indent=2) + "\n", encoding="utf-8")
    print(out)


if __name__ == "__main__":
    main()
