#!/usr/bin/env python3
"""Shares an archive among tasks that each run `vantro-profile export`, and puts what they wrote together.

    parts.py split FOLDER TASKS JOB    writes JOB/files-0 and so on: names of files, each followed by a zero byte
    parts.py unfinished JOB            prints the numbers of the tasks that failed or did not run
    parts.py check JOB                 counts: every display of every file was exported once, and which tasks failed
    parts.py join JOB DIR              one folder of tables, equal to those of a single export

Task N writes its tables to JOB/part-N (run-task.sh).
"""

from __future__ import annotations

import argparse
import csv
import os
import sys
from collections import Counter
from collections.abc import Iterator
from pathlib import Path

from display_blocks import Block, bytes_of, display_starts, files_in, is_compressed, refusal
from export_tables import TABLES, csv_line


def shares(sizes: list[int], tasks: int) -> list[int]:
    """The task of each file: neighbours, about the same number of bytes each, so that joined parts are in order."""
    total = max(sum(sizes), 1)
    result, before = [], 0
    for size in sizes:
        result.append(min((before + size // 2) * tasks // total, tasks - 1))
        before += size
    return result


def split(folder: str, tasks: int, job: Path) -> None:
    files = files_in(folder)
    of_task = shares([os.path.getsize(file) for file in files], tasks)
    job.mkdir(parents=True)
    for task in range(tasks):
        names = [os.fsencode(file) + b"\0" for file, number in zip(files, of_task) if number == task]
        (job / f"files-{task}").write_bytes(b"".join(names))
    print(f"{len(files)} files in {tasks} tasks")


def files_of(job: Path, task: int) -> list[str]:
    return [os.fsdecode(name) for name in (job / f"files-{task}").read_bytes().split(b"\0") if name]


def tasks_of(job: Path) -> range:
    return range(len(list(job.glob("files-*"))))


def outcome(job: Path, task: int) -> str:
    """The exit status of the last run of a task."""
    status = job / f"status-{task}"
    return status.read_text().split()[-1] if status.exists() else "did not run to its end"


def unfinished(job: Path) -> list[int]:
    return [task for task in tasks_of(job) if outcome(job, task) not in ("0", "1")]


def rows(job: Path, task: int, table: str) -> Iterator[list[str]]:
    """The rows of a task's table without the header; none if the task had no files."""
    file = job / f"part-{task}" / f"{table}.csv"
    if not file.exists() and not files_of(job, task):
        return
    with open(file, encoding="utf-8", errors="surrogateescape", newline="") as stream:
        reader = csv.reader(stream)
        if next(reader, None) != list(TABLES[table]):
            raise OSError(f"the first line of '{file}' does not name the columns")
        yield from reader


def told_by(job: Path, task: int) -> dict[str, int]:
    """The displays of each file by the task's own count."""
    file = job / f"part-{task}" / "sources.csv"
    if not file.exists():
        return {}
    with open(file, encoding="utf-8", errors="surrogateescape", newline="") as stream:
        return {row["source"]: int(row["displays"]) for row in csv.DictReader(stream)}


def displays_in(file: str, told: dict[str, int]) -> int:
    """Counted here; of a file that only the tool reads, what the tool says."""
    if refusal(file):
        return told.get(file, 0)
    end = -1 if is_compressed(file) else os.path.getsize(file)
    return len(display_starts(bytes_of(Block(file, 0, end))))


def check(job: Path) -> list[str]:
    """What is wrong; an empty list if the sums over the parts are the displays in the files."""
    if not tasks_of(job):
        return [f"there are no tasks in '{job}'"]
    failed = unfinished(job)
    found, total = [f"task {task} failed: {outcome(job, task)}" for task in failed], 0
    for task in sorted(set(tasks_of(job)) - set(failed)):
        identities: Counter[tuple[str, str]] = Counter()
        try:
            identities.update((row[1], row[2]) for row in rows(job, task, "profiles"))
            # A display that could not be read is a problem without a query.
            identities.update((row[1], row[2]) for row in rows(job, task, "problems") if not row[4])
            told = told_by(job, task)
            counts = {file: displays_in(file, told) for file in files_of(job, task)}
        except (OSError, RuntimeError) as problem:
            found.append(f"task {task}: {problem}")
            continue
        expected = {(file, str(number)) for file, count in counts.items() for number in range(1, count + 1)}
        wrong = [key for key in expected | set(identities) if identities[key] != (1 if key in expected else 0)]
        for source, display in sorted(wrong, key=lambda key: (key[0], int(key[1])))[:5]:
            found.append(f"task {task}: display {display} of '{source}' is there {identities[source, display]} times")
        total += len(expected)
    print(f"{len(tasks_of(job))} tasks, {total} displays in the files of those that succeeded")
    return found


def join(job: Path, to: Path) -> None:
    """Numbers the displays through: each part counts them from 1."""
    to.mkdir(parents=True)
    firsts, before = [], 0
    for task in tasks_of(job):
        firsts.append(before)
        before += sum(1 for _ in rows(job, task, "profiles"))
        before += sum(1 for row in rows(job, task, "problems") if not row[4])
    for table, columns in TABLES.items():
        with open(to / f"{table}.csv", "w", encoding="utf-8", errors="surrogateescape", newline="") as stream:
            stream.write(csv_line(columns))
            for task in tasks_of(job):
                for row in rows(job, task, table):
                    stream.write(csv_line([str(int(row[0]) + firsts[task]), *row[1:]]))


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("action", choices=["split", "unfinished", "check", "join"])
    parser.add_argument("arguments", nargs="+")
    options = parser.parse_args()
    arguments: list[str] = [options.action, *options.arguments]
    match arguments:
        case ["split", folder, tasks, job]:
            split(folder, int(tasks), Path(job))
        case ["unfinished", job]:
            print(*unfinished(Path(job)), sep=",")
        case ["check", job]:
            found = check(Path(job))
            print("\n".join(found) or "complete: every display is there once")
            sys.exit(1 if found else 0)
        case ["join", job, to]:
            join(Path(job), Path(to))
        case _:
            parser.error(f"other arguments are needed for {options.action}")


if __name__ == "__main__":
    main()
