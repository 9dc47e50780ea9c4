"""The displays of a block as rows of the tables that `vantro-profile export` writes."""

from __future__ import annotations

from dataclasses import dataclass, field
from operator import attrgetter

import xxhash
from vantro_profile import Profile, parse_profile

from display_blocks import display_starts
from export_tables import ELEMENT_PARTS, TABLES, csv_line

FAMILY_ORDER = (
    "SR RM AP OS FFN ST PHI PPH PCI PPC RC PPR PPS PGL PPA PPK PPI PXC PXA PXK PSH PSC PPT PXT "
    "PAS PIV PCE PID PFO").split()
"""The families in the order in which the tool prints them."""

_WIDTH = 80
_MARK_LINES = 7
_MARKS = {"*T*": "traveller", "*C*": "company"}
_parts_of = attrgetter(*ELEMENT_PARTS)


def _units(text: str) -> int:
    """The characters that a terminal counts: UTF-16 code units."""
    return len(text) if text.isascii() else len(text.encode("utf-16-le", "surrogatepass")) // 2


def _lines(data: bytes) -> list[bytes]:
    """The lines of a display, without the blank ones after it."""
    lines = data.replace(b"\r\n", b"\n").split(b"\n")
    lines[-1] = lines[-1].removesuffix(b"\r")
    while lines and not lines[-1].strip(b" "):
        lines.pop()
    return lines


def fault_in(lines: list[bytes], first_line: int) -> str | None:
    """What is wrong with the first line that no screen can contain, in the words of the tool."""
    for number, line in enumerate(lines, first_line):
        try:
            text = line.decode()
        except UnicodeDecodeError:
            return (f"line {number} is not UTF-8; name its encoding with --encoding, for example windows-1252, or "
                    "replace such bytes with --lenient")
        if "\r" in text:
            return (f"line {number} contains a carriage return (CR) that no line feed (LF) follows; lines end in LF or "
                    "CR LF, so convert the line ends, for example with: tr '\\r' '\\n'")
        if (length := _units(text)) > _WIDTH:
            return f"line {number} has {length} characters, a screen line has {_WIDTH} at most"
    return None


def screen_of(lines: list[bytes]) -> str | None:
    """The screen that the lines make, 80 characters per line; None if one of them does not fit."""
    try:
        text = b"\n".join(lines).decode()
    except UnicodeDecodeError:
        return None
    texts = text.split("\n")
    units = len if text.isascii() else _units
    if "\r" in text or max(map(units, texts)) > _WIDTH:
        return None
    return "".join([line + " " * (_WIDTH - units(line)) for line in texts[:-1]]) + texts[-1]


def hash_of(screen: str) -> str:
    return xxhash.xxh3_128_hexdigest(screen.rstrip(" ").encode())


def kind_of(lines: list[bytes]) -> str:
    marks = (_MARKS.get(line[:3].decode(errors="replace"), "") for line in lines[:_MARK_LINES])
    return next(filter(None, marks), "")


@dataclass
class Rows:
    """Lines of CSV for each table, and how many displays they are from."""

    displays: int = 0
    failed: int = 0
    tables: dict[str, list[str]] = field(default_factory=lambda: {table: [] for table in TABLES})

    def add(self, data: bytes, source: str, display_id: int, display: int, line: int) -> None:
        """Adds the rows of one display."""
        origin = (str(display_id), source, str(display), str(line))
        lines = _lines(data)
        screen = screen_of(lines)
        self.displays += 1
        if screen is None:
            self.failed += 1
            self.tables["problems"].append(csv_line((*origin, "", "", fault_in(lines, line) or "")))
        else:
            self._add_profile(parse_profile(screen), origin, hash_of(screen), kind_of(lines))

    def _add_profile(self, profile: Profile, origin: tuple[str, ...], digest: str, kind: str) -> None:
        company, pin, psl = profile.company_name, profile.pin, profile.psl
        elements = self._add_elements(profile, origin[0])
        self.tables["notes"] += [
            csv_line((origin[0], str(note.number), note.qualifier, note.text)) for note in profile.notes]
        self.tables["problems"] += [
            csv_line((*origin, problem.query, str(problem.number), problem.description))
            for problem in profile.problems]
        self.tables["profiles"].append(csv_line((
            *origin, digest, kind, profile.record_locator, profile.name, profile.office_identifier,
            company.number or "", company.text, pin.number or "", pin.text,
            (psl.number or "") if psl else "", psl.text if psl else "",
            str(elements), str(len(profile.notes)), str(len(profile.problems)),
            ";".join(profile.sections))))

    def _add_elements(self, profile: Profile, display_id: str) -> int:
        rows = self.tables["elements"]
        before = len(rows)
        for family in FAMILY_ORDER:
            rows += [csv_line((display_id, family, str(position), *_parts_of(element)))
                     for position, element in enumerate(profile.elements[family], 1)]
        return len(rows) - before


def rows_of(data: bytes, source: str, first_id: int, first_display: int, first_line: int) -> Rows:
    """The rows of all displays in a block. The numbers are those of its first display."""
    rows = Rows()
    starts = display_starts(data)
    line = first_line
    for number, (begin, end) in enumerate(zip(starts, [*starts[1:], len(data)])):
        rows.add(data[begin:end], source, first_id + number, first_display + number, line)
        line += data.count(b"\n", begin, end)
    return rows
