"""The tables of an export: their columns, and rows in CSV."""

from __future__ import annotations

from collections.abc import Iterable

_ORIGIN = ("display_id", "source", "display", "line")
ELEMENT_PARTS = ("number", "kind", "text", "code", "airline", "frequent_flyer_number", "free_text")
TABLES = {
    "profiles": (*_ORIGIN, "hash", "kind", "record_locator", "name", "office", "company_number", "company",
                 "pin_number", "pin", "psl_number", "psl", "elements", "notes", "problems", "sections"),
    "elements": ("display_id", "family", "position", *ELEMENT_PARTS),
    "notes": ("display_id", "number", "qualifier", "text"),
    "problems": (*_ORIGIN, "query", "error", "description"),
}
"""The names of the tables, with those of their columns."""


def csv_line(cells: Iterable[str]) -> str:
    """A row in CSV, with quotation marks only where they are needed."""
    cells = list(cells)
    line = ",".join(cells)
    # Nearly all rows need none, and this sees it at once.
    if (" ," in line or ", " in line or '"' in line or "\r" in line or "\n" in line or " " in (line[:1], line[-1:])
            or line.count(",") >= len(cells)):
        line = ",".join(map(_quoted, cells))
    return line + "\n"


def _quoted(cell: str) -> str:
    if cell.strip(" ") == cell and not any(mark in cell for mark in ',"\r\n'):
        return cell
    return '"' + cell.replace('"', '""') + '"'
