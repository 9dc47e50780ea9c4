"""The samples of the repository: samples/README.md describes the format of an exchange."""

from __future__ import annotations

import json
import re
from collections.abc import Iterator
from dataclasses import dataclass, field
from pathlib import Path
from typing import Any

SAMPLES = Path(__file__).resolve().parents[3] / "samples"


@dataclass
class Step:
    """A step of an exchange; None where the file has no such section."""

    class_name: str
    line: int
    params: dict[str, Any] | None = None
    command: str | None = None
    command_raises: int | None = None
    screen: str | None = None
    state_previous: bool = False
    count: int | None = None
    results: dict[str, Any] | None = None
    results_raises: int | None = None
    reported: list[int] = field(default_factory=list)


_ENTRY = re.compile(r'  ("[^"]*"): (.*)')


def read_exchange(path: Path) -> Iterator[Step]:
    """The steps of a file. A line that is not understood is an error."""
    step: Step | None = None
    entries: dict[str, Any] = {}
    for number, line in enumerate(path.read_text(encoding="utf-8").split("\n"), 1):
        if line.startswith("== "):
            if step:
                yield step
            step = Step(line[3:], number)
        elif line == "" or line.startswith("#"):
            continue
        elif step is None:
            raise ValueError(f"{path}:{number}: {line}")
        elif line == "params:":
            entries = step.params = {}
        elif line == "results:":
            entries = step.results = {}
        elif line == "screen:":
            step.screen = ""
        elif line.startswith("|") and line.endswith("|") and step.screen is not None:
            step.screen += line[1:-1]
        elif entry := _ENTRY.fullmatch(line):
            entries[json.loads(entry[1])] = json.loads(entry[2])
        elif line == "state: previous":
            step.state_previous = True
        elif line == "results: none":
            step.results = None
        elif head := re.fullmatch(r"(command|count|reported): (.*)", line):
            setattr(step, head[1], json.loads(head[2]))
        elif head := re.fullmatch(r"(command|results) raises: (\d+)", line):
            setattr(step, head[1] + "_raises", int(head[2]))
        else:
            raise ValueError(f"{path}:{number}: {line}")
    if step:
        yield step


def exchanges() -> list[Path]:
    return sorted((SAMPLES / "exchanges").glob("*.exchange"))


def profiles() -> list[Path]:
    return sorted((SAMPLES / "profiles").glob("*.txt"))


def lines_of(path: Path) -> str:
    return path.read_bytes().decode("utf-8")


def screen_of(lines: str) -> str:
    """The lines padded and joined, the last one as it is."""
    rows = lines.removesuffix("\n").split("\n")
    return "".join(row.ljust(80) for row in rows[:-1]) + rows[-1]
