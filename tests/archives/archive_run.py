#!/usr/bin/env python3
"""Exports a generated archive with the tool and checks what comes out. Closes with "N passed, N failed, N skipped".

    archive_run.py TOOL FOLDER [--displays N] [--jobs N] [--pipe GIGABYTES] [--queries PAGE]

FOLDER is made anew and removed at the end.
"""

from __future__ import annotations

import argparse
import collections
import csv
import os
import random
import re
import shutil
import signal
import sqlite3
import subprocess
import sys
import time
from pathlib import Path
from typing import IO

ROOT = Path(__file__).resolve().parents[2]
TABLES = ["profiles", "elements", "notes", "problems"]


def peak_kilobytes(process: int) -> int:
    """The most memory that a process had so far; 0 if it has ended."""
    try:
        status = Path(f"/proc/{process}/status").read_text()
    except OSError:
        return 0
    found = re.search(r"VmHWM:\s*(\d+)", status)
    return int(found[1]) if found else 0


class Run:
    def __init__(self, options: argparse.Namespace) -> None:
        self.tool = str(Path(options.tool).resolve())
        self.folder = Path(options.folder).resolve()
        self.jobs = str(options.jobs)
        self.passed = 0
        self.failed = 0

    def check(self, what: str, holds: bool, more: object = "") -> None:
        print(f"  {'ok    ' if holds else 'FAILED'}  {what} {more}", flush=True)
        if holds:
            self.passed += 1
        else:
            self.failed += 1

    def figure(self, name: str, value: str) -> None:
        print(f"          {name}: {value}", flush=True)

    def export(self, target: Path, *more: str, stdin: int | IO[bytes] | None = subprocess.DEVNULL,
               source: str | None = None) -> tuple[int, str, str, float, int]:
        """Status, output, error output, seconds and peak kilobytes."""
        arguments = [self.tool, "export", "-j", self.jobs, source or "archive", "--to", str(target), *more]
        start = time.monotonic()
        with open(self.folder / "out", "w+") as out, open(self.folder / "err", "w+") as err:
            process = subprocess.Popen(arguments, cwd=self.folder, stdin=stdin, stdout=out, stderr=err)
            peak = 0
            while process.poll() is None:
                peak = max(peak, peak_kilobytes(process.pid))
                time.sleep(0.01)
        seconds = time.monotonic() - start
        return process.returncode, (self.folder / "out").read_text(), (self.folder / "err").read_text(), seconds, peak

    def killed_export(self, target: Path, after: float) -> bool:
        """True if the tool was killed before it was done."""
        arguments = [self.tool, "export", "-q", "-j", self.jobs, "archive", "--to", str(target)]
        process = subprocess.Popen(arguments, cwd=self.folder, stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            process.wait(after)
        except subprocess.TimeoutExpired:
            process.send_signal(signal.SIGKILL)
        return process.wait() == -signal.SIGKILL


def families_in_parse(run: Run) -> tuple[collections.Counter[str], int]:
    """Elements per family, and the displays that parse could not read."""
    families: collections.Counter[str] = collections.Counter()
    process = subprocess.Popen([run.tool, "parse", "-q", "--csv", "-j", run.jobs, "archive"], cwd=run.folder,
                               stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, encoding="utf-8")
    assert process.stdout
    failed = 0
    rows = csv.DictReader(process.stdout)
    for row in rows:
        if not row["error"]:
            families[row["family"]] += 1
        elif not row["family"]:
            failed += 1  # the others are queries without an answer
    process.wait()
    return families, failed


def families_in_table(file: Path) -> collections.Counter[str]:
    with file.open(encoding="utf-8", newline="") as rows:
        return collections.Counter(row[1] for row in csv.reader(rows))


def rows_in(file: Path) -> int:
    with file.open(encoding="utf-8", newline="") as rows:
        return sum(1 for _ in csv.reader(rows)) - 1


def try_target(run: Run, target: Path, kind: str, displays: int) -> None:
    """A run, a check, and runs that are killed again and again, whose tables must be the same."""
    status, _, errors, seconds, memory = run.export(target)
    whole = seconds
    run.check(f"{kind}: the archive is exported", status == 1, errors.strip())  # 1: it has broken displays
    run.figure(f"{kind}: seconds", f"{seconds:.1f}")
    run.figure(f"{kind}: displays per second", f"{displays / seconds:,.0f}")
    run.figure(f"{kind}: peak memory, MB", f"{memory / 1024:.0f}")
    size = sum(file.stat().st_size for file in target.iterdir()) if target.is_dir() else target.stat().st_size
    run.figure(f"{kind}: MB written", f"{size / 1e6:,.0f}")

    status, out, errors, seconds, _ = run.export(target, "--check")
    run.check(f"{kind}: --check finds no difference", status == 0 and not out, errors.strip())
    run.figure(f"{kind}: seconds of --check", f"{seconds:.1f}")

    other = target.with_name("killed-" + target.name)
    dice = random.Random(1)
    kills = 0
    while run.killed_export(other, dice.uniform(0.2, 0.6) * whole) and kills < 4:
        kills += 1
    run.export(other)
    status, _, errors, _, _ = run.export(other, "--check")
    run.check(f"{kind}: no difference after runs killed {kills} times", kills > 0 and status == 0, errors.strip())
    shutil.rmtree(other) if other.is_dir() else other.unlink()


def remove_a_row(run: Run, target: Path, kind: str) -> None:
    if target.is_dir():
        file = target / "elements.csv"
        content = file.read_bytes()
        start = content.index(b"\n", len(content) // 2) + 1
        end = content.index(b"\n", start) + 1
        key = content[start:end].decode().split(",")[:3]
        file.write_bytes(content[:start] + content[end:])
    else:
        with sqlite3.connect(target) as database:
            row = database.execute("SELECT id, display_id, family, position FROM elements "
                                   "LIMIT 1 OFFSET (SELECT count(*) / 2 FROM elements)").fetchone()
            database.execute("DELETE FROM elements WHERE id = ?", row[:1])
            key = [str(cell) for cell in row[1:]]
    status, out, _, _, _ = run.export(target, "--check")
    said = f"missing row of elements: display_id {key[0]}, family {key[1]}, position {key[2]}\n"
    run.check(f"{kind}: --check finds the one row that was removed", status == 1 and out == said, out.strip())


def try_queries(run: Run, page: Path, database: Path) -> None:
    connection = sqlite3.connect(f"file:{database}?mode=ro", uri=True)
    for number, query in enumerate(re.findall(r"```sql\n(.*?)```", page.read_text(encoding="utf-8"), re.S), 1):
        start = time.monotonic()
        rows = connection.execute(query).fetchall()
        seconds = time.monotonic() - start
        run.check(f"query {number} has an answer", bool(rows), f"{len(rows)} rows in {seconds:.2f} s, first {rows[:1]}")


def try_pipe(run: Run, gigabytes: float) -> None:
    """As many bytes through a pipe as no memory could contain."""
    sample = (ROOT / "samples/profiles/traveller.txt").read_bytes()
    block = sample * (4_000_000 // len(sample))
    blocks = int(gigabytes * 1e9 / len(block)) + 1
    target = run.folder / "piped"
    read, write = os.pipe()
    feeder = os.fork()
    if feeder == 0:
        os.close(read)
        with os.fdopen(write, "wb") as out:
            for _ in range(blocks):
                out.write(block)
        os._exit(0)
    os.close(write)
    status, _, errors, seconds, memory = run.export(target, stdin=read, source="-")
    os.close(read)
    os.waitpid(feeder, 0)
    displays = blocks * (len(block) // len(sample))
    with (target / "runs.csv").open() as runs:
        counted = list(csv.DictReader(runs))[-1]
    run.check(f"{gigabytes:g} GB through a pipe", status == 0 and counted["profiles"] == str(displays), errors.strip())
    run.figure("pipe: seconds", f"{seconds:.1f}")
    run.figure("pipe: peak memory, MB", f"{memory / 1024:.0f}")
    shutil.rmtree(target)


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("tool")
    parser.add_argument("folder")
    parser.add_argument("--displays", type=int, default=50_000, help="more than two batches of an export")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--pipe", type=float, default=0.2, help="gigabytes")
    parser.add_argument("--queries", type=Path, default=ROOT / "docs/archive-queries.md")
    options = parser.parse_args()
    run = Run(options)
    shutil.rmtree(run.folder, ignore_errors=True)
    run.folder.mkdir(parents=True)
    subprocess.run([sys.executable, ROOT / "examples/scale/make_archive.py", run.folder / "archive", "--displays",
                    str(options.displays)], check=True)

    tables = run.folder / "tables of csv"
    database = run.folder / "profiles.sqlite"
    try_target(run, tables, "CSV", options.displays)
    try_target(run, database, "SQLite", options.displays)

    with (tables / "runs.csv").open() as runs:
        totals = next(csv.DictReader(runs))
    profiles, failed = rows_in(tables / "profiles.csv"), int(totals["failed"])
    run.check("displays = profiles + failed", int(totals["displays"]) == profiles + failed,
              f"{totals['displays']} = {profiles} + {failed}")
    families, unread = families_in_parse(run)
    ours = families_in_table(tables / "elements.csv")
    run.check("as many elements of each family as parse prints",
              all(families[family] == ours[family] for family in ours if family != "family") and
              unread == failed, f"{sum(ours.values()) - 1:,} elements of {len(ours) - 1} families")
    with sqlite3.connect(database) as connection:
        for table in TABLES:
            count = connection.execute(f"SELECT count(*) FROM {table}").fetchone()[0]
            run.check(f"the database has as many {table}", count == rows_in(tables / f"{table}.csv"), f"{count:,}")
    try_queries(run, options.queries, database)
    remove_a_row(run, tables, "CSV")
    remove_a_row(run, database, "SQLite")
    shutil.rmtree(tables)
    database.unlink()
    if options.pipe:
        try_pipe(run, options.pipe)
    shutil.rmtree(run.folder)
    print(f"{run.passed} passed, {run.failed} failed, 0 skipped")
    return 0 if run.failed == 0 else 1


if __name__ == "__main__":
    sys.exit(main())
