"""The parts of an export: what a task writes, and the counts that prove that nothing is lost or there twice."""

from __future__ import annotations

import csv
import json
import os
import uuid
from collections.abc import Iterable
from pathlib import Path
from typing import Any, NamedTuple

from display_blocks import Block, bytes_of
from display_rows import rows_of
from export_tables import TABLES, csv_line

MANIFEST = "manifest.json"
VERSION = 1


class Task(NamedTuple):
    """A block, and the numbers of its first display."""

    part: int
    block: Block
    first_id: int
    first_display: int
    first_line: int


class Part(NamedTuple):
    """What a task wrote."""

    part: int
    source: str
    first_id: int
    displays: int
    failed: int
    rows: dict[str, int]


def numbered(blocks: Iterable[Block]) -> list[Task]:
    """The blocks that contain displays, each with what is before it: the sums of the counts."""
    tasks: list[Task] = []
    source, displays_before, display, line = "", 0, 1, 1
    for block in blocks:
        if block.source != source:
            source, display, line = block.source, 1, 1
        if block.displays:
            tasks.append(Task(len(tasks), block, displays_before + 1, display, line))
        displays_before += block.displays
        display += block.displays
        line += block.lines
    return tasks


def part_file(folder: str, table: str, part: int) -> Path:
    return Path(folder, table, f"part-{part:06}.csv")


def write_part(task: Task, folder: str) -> Part:
    """Parses a block and writes its part of each table. Done twice, it writes the same files.

    A part has its name only when it is complete, so a worker that is killed leaves none of which something is missing.
    """
    rows = rows_of(bytes_of(task.block), task.block.source, task.first_id, task.first_display, task.first_line)
    if rows.displays != task.block.displays:
        raise RuntimeError(f"'{task.block.source}' was changed since its displays were counted")
    for table, columns in TABLES.items():
        file = part_file(folder, table, task.part)
        unfinished = file.with_name(f".{file.name}.{uuid.uuid4().hex}")
        with open(unfinished, "w", encoding="utf-8", errors="surrogateescape", newline="") as stream:
            stream.write(csv_line(columns))
            stream.writelines(rows.tables[table])
            stream.flush()
            os.fsync(stream.fileno())
        unfinished.replace(file)
    counts = {table: len(lines) for table, lines in rows.tables.items()}
    return Part(task.part, task.block.source, task.first_id, rows.displays, rows.failed, counts)


def manifest_of(files: list[str], parts: list[Part]) -> dict[str, Any]:
    sources: dict[str, dict[str, Any]] = {
        file: {"source": file, "bytes": os.path.getsize(file), "displays": 0, "failed": 0} for file in files}
    rows = dict.fromkeys(TABLES, 0)
    for part in parts:
        sources[part.source]["displays"] += part.displays
        sources[part.source]["failed"] += part.failed
        for table in TABLES:
            rows[table] += part.rows[table]
    return {
        "version": VERSION,
        "displays": sum(part.displays for part in parts),
        "failed": sum(part.failed for part in parts),
        "rows": rows,
        "sources": list(sources.values()),
        "parts": [part._asdict() for part in parts],
    }


def gaps(folder: str) -> list[str]:
    """What the parts lack, or have too much, by the manifest: an empty list if nothing is lost and nothing twice."""
    manifest = json.loads(Path(folder, MANIFEST).read_text(encoding="utf-8"))
    parts = [Part(**part) for part in manifest["parts"]]
    found = []
    next_id = 1
    for part in parts:
        if part.first_id != next_id:
            found.append(f"part {part.part} begins with display {part.first_id} instead of {next_id}")
        next_id = part.first_id + part.displays
        found += _gaps_of_part(folder, part)
    if next_id != manifest["displays"] + 1:
        found.append(f"the parts have {next_id - 1} displays, the manifest {manifest['displays']}")
    expected = {part_file(folder, table, part.part) for table in TABLES for part in parts}
    extra = {file for table in TABLES for file in Path(folder, table).iterdir()} - expected
    return found + [f"'{file}' is not in the manifest" for file in sorted(extra)]


def _gaps_of_part(folder: str, part: Part) -> list[str]:
    """Every display of a part has one row, in profiles, or in problems without a query; all other rows are counted."""
    found, identities = [], []
    for table, columns in TABLES.items():
        file = part_file(folder, table, part.part)
        if not file.exists():
            found.append(f"'{file}' is missing")
            continue
        with open(file, encoding="utf-8", errors="surrogateescape", newline="") as stream:
            reader = csv.reader(stream)
            if next(reader, None) != list(columns):
                found.append(f"the first line of '{file}' does not name the columns")
            rows = 0
            for row in reader:
                rows += 1
                if table == "profiles" or (table == "problems" and not row[4]):
                    identities.append(int(row[0]))
        if rows != part.rows[table]:
            found.append(f"'{file}' has {rows} rows instead of {part.rows[table]}")
    if sorted(identities) != list(range(part.first_id, part.first_id + part.displays)):
        found.append(f"part {part.part} does not have every display from {part.first_id} once")
    return found
