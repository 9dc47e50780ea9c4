"""Tests of sbom.py: python3 -m unittest sbom_test"""
import hashlib
import json
import tempfile
import unittest
from pathlib import Path

import sbom


def written(*names: str) -> list[Path]:
    folder = Path(tempfile.mkdtemp())
    for name in names:
        (folder / name).write_bytes(name.encode())
    return [folder / name for name in names]


def made(*names: str) -> dict:
    return sbom.document(written(*names), "1.2.3", "c0ffee", 1_700_000_000, version_of=lambda package: "7 of " + package)


class BillOfMaterials(unittest.TestCase):
    def test_a_file_has_its_checksums_and_what_it_contains(self):
        bill = made("VantroProfileUtils-1.2.3-windows.zip")
        file, *components = bill["packages"]
        self.assertEqual(file["name"], "VantroProfileUtils-1.2.3-windows.zip")
        sums = {entry["algorithm"]: entry["checksumValue"] for entry in file["checksums"]}
        self.assertEqual(sums["SHA256"], hashlib.sha256(b"VantroProfileUtils-1.2.3-windows.zip").hexdigest())
        self.assertEqual([part["name"] for part in components],
                         ["CLI11", "simdjson", "xxHash", "libstdc++ and libgcc for Windows", "mingw-w64 runtime"])
        self.assertEqual(components[0]["versionInfo"], "7 of libcli11-dev")

    def test_the_package_of_the_tool_contains_what_is_compiled_into_it(self):
        _, *components = made("vantro-profile_1.2.3-1_amd64.deb")["packages"]
        self.assertEqual([(part["name"], part["licenseDeclared"]) for part in components],
                         [("CLI11", "BSD-3-Clause"), ("xxHash", "BSD-2-Clause")])

    def test_every_relationship_is_between_known_elements(self):
        bill = made("a.whl", "b-npm.tgz", "vantro-profile_1.2.3-1_amd64.deb", "libvantro-c1_1.2.3-1_amd64.deb", "s.tar.gz")
        known = {"SPDXRef-DOCUMENT"} | {package["SPDXID"] for package in bill["packages"]}
        self.assertEqual(len(known), 1 + len(bill["packages"]), "identifiers must differ")
        for relationship in bill["relationships"]:
            self.assertLessEqual({relationship["spdxElementId"], relationship["relatedSpdxElement"]}, known)

    def test_identifiers_have_only_the_characters_that_the_format_allows(self):
        for package in made("a_1+2~3.tar.gz", "x.whl")["packages"]:
            self.assertRegex(package["SPDXID"], r"^SPDXRef-[A-Za-z0-9.-]+$")

    def test_the_first_kind_that_fits_decides(self):
        self.assertEqual(sbom.kind_of("v-site.tar.gz").purpose, "ARCHIVE")
        self.assertEqual(sbom.kind_of("v-source.tar.gz").purpose, "SOURCE")

    def test_a_file_of_no_kind_is_refused(self):
        with self.assertRaises(LookupError):
            made("notes.txt")

    def test_a_component_of_a_kind_exists(self):
        names = {component.name for component in sbom.COMPONENTS}
        for kind in sbom.KINDS:
            self.assertLessEqual(set(kind.contains), names)

    def test_versions_are_those_of_the_makers(self):
        for debian, makers in (("12.2.0-14", "12.2.0"), ("2.1.2+ds-1", "2.1.2"), ("3.1.6~dfsg-5", "3.1.6"),
                               ("1:1.1.0+dfsg2-7.1", "1.1.0"), ("10", "10")):
            self.assertEqual(sbom.without_debian_part(debian), makers)

    def test_a_package_that_is_not_installed_is_refused(self):
        with self.assertRaises(LookupError):
            sbom.debian_version("no-such-package-of-ours")

    def test_the_same_release_gives_the_same_document(self):
        files = written("a.whl")
        again = [json.dumps(sbom.document(files, "1", "c", 9, version_of=str)) for _ in range(2)]
        self.assertEqual(*again)
        self.assertIn("1970-01-01T00:00:09Z", again[0])


if __name__ == "__main__":
    unittest.main()
