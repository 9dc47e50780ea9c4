"""Reads the sample exchanges; samples/README.md describes their format."""

import json
import re
from dataclasses import dataclass, field
from pathlib import Path
from typing import Any


@dataclass
class Step:
    """One step. What an exchange does not say of it is None."""

    class_name: str
    params: dict[str, Any] | None = None
    command: str | None = None
    command_error: int | None = None
    screen: list[str] | None = None
    continues: bool = False  # the state is what the step before returned
    count: int | None = None
    results: dict[str, Any] | None = None
    no_results: bool = False
    results_error: int | None = None
    state: dict[str, Any] | None = None  # what is passed to VerifyResponse


@dataclass
class Exchange:
    path: Path
    about: str
    steps: list[Step] = field(default_factory=list)


HEADS = (
    (r"params:", lambda step, _: setattr(step, "params", {})),
    (r"command: (.*)", lambda step, found: setattr(step, "command", json.loads(found[1]))),
    (r"command raises: (\d+)", lambda step, found: setattr(step, "command_error", int(found[1]))),
    (r"screen:", lambda step, _: setattr(step, "screen", [])),
    (r"state: previous", lambda step, _: setattr(step, "continues", True)),
    (r"count: (\d+)", lambda step, found: setattr(step, "count", int(found[1]))),
    (r"results:", lambda step, _: setattr(step, "results", {})),
    (r"results: none", lambda step, _: setattr(step, "no_results", True)),
    (r"results raises: (\d+)", lambda step, found: setattr(step, "results_error", int(found[1]))),
    (r"reported: .*", lambda step, found: None),
)


def read_exchange(path: Path) -> Exchange:
    lines = path.read_text(encoding="utf-8").splitlines()
    about = []
    while lines and lines[0].startswith("#"):
        about.append(lines.pop(0)[1:].strip())
    exchange = Exchange(path, " ".join(about))
    for number, line in enumerate(lines, len(about) + 1):
        if not read_line(exchange, line):
            raise ValueError(f"{path}:{number}: no line of an exchange: {line}")
    add_states(exchange)
    return exchange


def read_line(exchange: Exchange, line: str) -> bool:
    if line.startswith("== "):
        exchange.steps.append(Step(line[3:].strip()))
        return True
    if not line or line.startswith("#"):
        return True
    step = exchange.steps[-1]
    if line.startswith("|") and step.screen is not None:
        step.screen.append(line[1:-1])
        return True
    if line.startswith('  "'):
        values = step.params if step.results is None else step.results
        key, value = line.strip().split('": ', 1)
        values[key[1:]] = json.loads(value)
        return True
    for pattern, act in HEADS:
        if found := re.fullmatch(pattern, line):
            act(step, found)
            return True
    return False


def add_states(exchange: Exchange) -> None:
    returned = None
    for step in exchange.steps:
        step.state = returned if step.continues else step.params
        if step.results is not None:
            returned = step.results


def read_exchanges(folder: Path) -> list[Exchange]:
    return [read_exchange(path) for path in sorted(folder.glob("*.exchange"))]
