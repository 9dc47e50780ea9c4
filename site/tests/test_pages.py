"""The built pages have all their sections, and each section has something in it."""

import json
import re
import subprocess
from pathlib import Path

import pytest

ROOT = Path(__file__).resolve().parents[2]
PAGES = ROOT / "build/site-src/pages/reference"
TOOL = ROOT / "build/ci-gcc/bin/vantro-profile"


def described(*name):
    return json.loads(subprocess.run([TOOL, "describe", "--json", *name], capture_output=True, check=True).stdout)


CLASSES = [each["class"] for each in described()]
QUERIES = [query["prefix"] for name in ("CProfile", "CProfileNotes") for query in described(name)["queries"]]

TRANSACTION = [
    "Parameters of the command",
    "Commands",
    "Screens",
    "Collection that is passed with a screen",
    "Results",
]
PARSER = ["Request for elements", "Elements", "Prefixes", "Counts"]
LISTS = {"CPDNTrans", "CPDATrans", "CPDTrans", "CPLTTrans", "CPLCTrans", "CRLPTrans"}
FAMILY = ["Query and answer", "In a display", "Parts and lists", "Errors", "Sample"]
NOT_JOINED = {"PGL", "PAS", "PIV", "PCE", "PID", "PFO"}
OTHERS = {"NM", "RECLOC", "OFFID", "PCN", "PIN", "PSL", "ALL", "ProfileNotes"}


def sections(page):
    """Titles and texts of a page's sections."""
    parts = re.split(r"^## (.*)$", page.read_text(encoding="utf-8"), flags=re.M)
    return dict(zip(parts[1::2], (part.strip() for part in parts[2::2])))


def class_sections(name):
    if name == "CProfile":
        return [*PARSER, "Errors", "Sample exchange"]
    between = ["Columns of a list"] * (name in LISTS) + PARSER * (name == "CProfileNotes")
    between += ["Counts"] * (name == "CRLPTrans")
    return [*TRANSACTION, *between, "Errors", "Sample exchange"]


def query_sections(prefix):
    if prefix in OTHERS:
        return ["Query and answer", "Sample", "Decisions"]
    return [*FAMILY, *(["An element on several lines"] * (prefix not in NOT_JOINED)), "Decisions"]


def test_there_are_pages_for_19_classes_and_29_families_and_8_other_queries():
    assert len(CLASSES) == 19
    assert set(QUERIES) >= OTHERS and len(QUERIES) == 29 + 8
    assert sorted(page.stem for page in (PAGES / "classes").iterdir()) == sorted(CLASSES)
    assert sorted(page.stem for page in (PAGES / "queries").iterdir()) == sorted(QUERIES)


@pytest.mark.parametrize("name", CLASSES)
def test_the_page_of_a_class_is_complete(name):
    found = sections(PAGES / "classes" / f"{name}.md")
    assert list(found) == class_sections(name)
    assert all(found.values())
    if name == "CProfile":
        return
    sample = found["Sample exchange"]
    assert '<div class="screen"' in sample and ".exchange</code>" in sample
    assert "<p>Command</p>" in sample or "<p>Results</p>" in sample


@pytest.mark.parametrize("prefix", QUERIES)
def test_the_page_of_a_query_is_complete(prefix):
    found = sections(PAGES / "queries" / f"{prefix}.md")
    assert list(found) == query_sections(prefix)
    assert all(found.values())
    assert '<mark class="value"' in found["Sample"]
    assert "$ vantro-profile " in found["Sample"]


def test_families_without_a_sample_on_several_lines_are_known():
    said = "No sample display has such an element."
    without = {
        prefix
        for prefix in QUERIES
        if said in sections(PAGES / "queries" / f"{prefix}.md").get("An element on several lines", "")
    }
    assert without == {"PPI"}


@pytest.mark.parametrize("page,rows", [("keys", 40), ("errors", 80)])
def test_the_indexes_have_rows(page, rows):
    lines = (PAGES / f"{page}.md").read_text(encoding="utf-8").splitlines()
    assert sum(line.startswith("| ") for line in lines) > rows
