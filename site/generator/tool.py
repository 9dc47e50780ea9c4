"""Calls vantro-profile in the project's folder, and returns what it prints."""

import json
import subprocess
from pathlib import Path
from typing import Any


class ToolFailure(Exception):
    """The tool ended with another status than the page says."""


class Tool:
    def __init__(self, program: Path, root: Path):
        self.program = program
        self.root = root

    def text(self, *arguments: str, statuses: tuple[int, ...] = (0,)) -> str:
        done = subprocess.run(
            [self.program, *arguments], cwd=self.root, capture_output=True, encoding="utf-8", stdin=subprocess.DEVNULL
        )
        if done.returncode not in statuses:
            raise ToolFailure(f"{' '.join(arguments)}: status {done.returncode}: {done.stderr}")
        return done.stdout

    def json(self, *arguments: str, statuses: tuple[int, ...] = (0,)) -> Any:
        return json.loads(self.text(*arguments, "--json", statuses=statuses))

    def lines(self, *arguments: str) -> list[Any]:
        """What a command prints that answers each display with a line of JSON."""
        return [json.loads(line) for line in self.text(*arguments).splitlines()]
