#!/usr/bin/env python3
"""Makes an archive to try an export with: a folder of files with many displays, always the same ones.

    make_archive.py DIR --displays 100000

The displays are those of samples/profiles with other names, locators and numbers. One in 500 is broken: a line that is
too long, bytes that are not UTF-8, a tail that is missing. File names contain blanks, some files are in folders below
the first one, and some are compressed. Odd files are in a folder of their own.
"""

from __future__ import annotations

import argparse
import gzip
import random
from pathlib import Path

import zstandard

SAMPLES = Path(__file__).resolve().parents[2] / "samples" / "profiles"
SURNAMES = ["LINDQVIST", "HALVORSEN", "ORTEGA", "DUFOUR", "MARCHETTI", "OKONKWO", "NAKAGAWA", "BRANDT", "KOWALSKA"]
WORDS = ["HARBOUR", "WINDOW", "RAIL", "INVOICE", "BREAKFAST", "TICKET", "AISLE", "LOUNGE", "FERRY", "QUIET"]
LETTERS = "ABCDEFGHJKLMNPQRSTUVWXYZ23456789"
BROKEN_ONE_IN = 500


def varied(sample: str, dice: random.Random) -> str:
    """The sample with another locator, and with words and numbers that differ from display to display."""
    lines = sample.split("\n")
    locator = "".join(dice.choices(LETTERS, k=6))
    for index, line in enumerate(lines):
        if line.startswith(("*T*", "*C*")) and len(line) == 80:
            lines[index] = line[:74] + locator
        elif " NM " in line[:12]:
            lines[index] = f"{line[:line.index(' NM ') + 4]} {dice.choice(SURNAMES)}/{dice.choice(WORDS)} MS"
        elif "PPR/ " in line or "PHI/ " in line or line.startswith(("A ", "B ", "M ")):
            lines[index] = f"{line} {dice.choice(WORDS)} {dice.randrange(10000)}"[:80].rstrip()
    return "\n".join(lines)


def broken(display: bytes, dice: random.Random) -> bytes:
    lines = display.split(b"\n")
    at = len(lines) // 2
    match dice.randrange(3):
        case 0:
            lines[at] = lines[at].ljust(85, b"X")
        case 1:
            lines[at] = b"  12 PPR/ CAF\xe9 AT THE STATION"
        case _:
            return b"\n".join(lines[:at]) + b"\n>\n"
    return b"\n".join(lines)


def odd_files(text: str) -> dict[str, bytes]:
    """What captures of other systems look like, by file names."""
    two = (text + text).encode()
    return {
        "carriage returns.txt": two.replace(b"\n", b"\r\n"),
        "marks at both ends.txt": b"\xef\xbb\xbf" + two + b"\x1a\r\n",
        "blank lines.txt": b"\n  \n" + two + b"\n>\n  \n>",
        "prompts.txt": b">\n" + two.replace(b"END OF DISPLAY", b">") + b">\n",
        "no end.txt": two + b"PDRT/H4T9QZ\n*T* CUT",
        "broken lines.txt": two + b"A\rB\n>\n" + two + "\u00c5\U0001f600 >\n,\"\n".encode() + b"X" * 81 + b"\n" + two,
        "empty.txt": b"",
        "comma, \"quotes\".txt": two,
    }


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folder", help="a new folder")
    parser.add_argument("--displays", type=int, default=10_000)
    parser.add_argument("--per-file", type=int, default=5_000)
    options = parser.parse_args()
    samples = [text if text.endswith("\n") else text + "\n"
               for file in sorted(SAMPLES.glob("*.txt"))
               # The shortest ones have no mark by which a reader could tell them from the display before.
               if len(text := file.read_text(encoding="utf-8")) > 200]
    ends = [text if "END OF DISPLAY" in text or "\n>" in text else text + "END OF DISPLAY\n" for text in samples]
    folder = Path(options.folder)
    folder.mkdir(parents=True)
    for number, first in enumerate(range(0, options.displays, options.per_file)):
        dice = random.Random(number)
        displays = []
        for _ in range(min(options.per_file, options.displays - first)):
            display = varied(dice.choice(ends), dice).encode()
            displays.append(broken(display, dice) if dice.randrange(BROKEN_ONE_IN) == 0 else display)
        data = b"".join(displays)
        name = folder / (f"office {number % 3}" if number % 2 else ".") / f"capture {number:04}.txt"
        name.parent.mkdir(exist_ok=True)
        match number % 5:
            case 3:
                name.with_suffix(".txt.gz").write_bytes(gzip.compress(data, mtime=0))
            case 4:
                name.with_suffix(".txt.zst").write_bytes(zstandard.ZstdCompressor().compress(data))
            case _:
                name.write_bytes(data)

    (folder / "odd").mkdir()
    for file, data in odd_files(samples[-1]).items():
        (folder / "odd" / file).write_bytes(data)


if __name__ == "__main__":
    main()
