#!/usr/bin/env python3
"""Reads an archive of displays on the workers of a Dask cluster into tables, a folder of part files for each.

    dask_archive.py FOLDER --to DIR --scheduler tcp://HOST:8786    a cluster; all see both folders under these names
    dask_archive.py FOLDER --to DIR --workers 2                    processes on this machine
    dask_archive.py --check DIR                                    counts the rows that the manifest promises

The parts of a table, joined in their order with one header, are what `vantro-profile export FOLDER --to DIR` writes.
"""

from __future__ import annotations

import argparse
import json
import resource
import sys
import time
import uuid
from pathlib import Path
from typing import Any

import display_blocks
import display_rows
import export_tables
import table_parts
from display_blocks import counted, files_in, planned_blocks, refusal
from export_tables import TABLES
from table_parts import MANIFEST, gaps, manifest_of, numbered, write_part


def export(client: Any, folder: str, to: str, block_bytes: int) -> dict[str, Any]:
    """Counts, numbers and parses the blocks, and writes the manifest last: without it an export is not complete."""
    from distributed import as_completed

    files = files_in(folder)
    for file in files:
        if reason := refusal(file):
            sys.exit(f"'{file}' {reason}; nothing was written. Export it with vantro-profile")
    for table in TABLES:
        Path(to, table).mkdir(parents=True)
    plans = [plan for file in files for plan in planned_blocks(file, block_bytes)]
    # Not pure, and keys of this run alone: Dask must not take the results of another run, as files may have changed.
    tasks = numbered(client.gather(client.map(counted, plans, pure=False)))
    futures = [client.submit(write_part, task, to, key=f"part-{task.part:06}-{uuid.uuid4().hex[:8]}") for task in tasks]
    parts = [part for _, part in as_completed(futures, with_results=True)]
    manifest = manifest_of(files, sorted(parts, key=lambda part: part.part))
    for table in TABLES:
        for unfinished in Path(to, table).glob(".part-*"):  # of workers that were killed
            unfinished.unlink()
    Path(to, MANIFEST).write_text(json.dumps(manifest, indent=1) + "\n", encoding="utf-8")
    return manifest


def used() -> tuple[float, int]:
    """The time of a processor and the memory (KB) that this process has used."""
    usage = resource.getrusage(resource.RUSAGE_SELF)
    return usage.ru_utime + usage.ru_stime, usage.ru_maxrss


def report(client: Any, manifest: dict[str, Any], seconds: float) -> None:
    for _, event in client.get_events("all"):
        if event.get("action") == "remove-worker" and event["processing-tasks"]:
            print(f"lost {event['worker']}; its tasks ran elsewhere: {', '.join(sorted(event['processing-tasks']))}")
    for worker, (busy, kilobytes) in sorted(client.run(used).items()):
        print(f"{worker}: {busy:.1f} s of a processor, at most {kilobytes / 1024:.0f} MB")
    print(f"{manifest['displays']} displays, {manifest['failed']} of them failed, {len(manifest['parts'])} parts, "
          f"rows {manifest['rows']}: {seconds:.1f} s, {manifest['displays'] / seconds:.0f} displays/s")


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folder", nargs="?", help="the files to read")
    parser.add_argument("--to", metavar="DIR", help="a new folder for the tables")
    parser.add_argument("--scheduler", metavar="ADDRESS", help="of a cluster that runs")
    parser.add_argument("--workers", type=int, default=1, help="processes on this machine, without --scheduler")
    parser.add_argument("--block-mb", type=float, default=16, help="the length of a block (default: 16)")
    parser.add_argument("--check", metavar="DIR", help="count the rows of an export")
    options = parser.parse_args()
    if options.check:
        found = gaps(options.check)
        print("\n".join(found) or "complete: every display is there once")
        sys.exit(1 if found else 0)
    if not options.folder or not options.to:
        parser.error("name a folder, and another one with --to")
    if Path(options.to).exists():
        sys.exit(f"'{options.to}' exists; remove it, or export into another folder")

    from distributed import Client, LocalCluster

    address = options.scheduler or LocalCluster(
        n_workers=options.workers, threads_per_worker=1, dashboard_address=None)
    with Client(address) as client:
        # Workers get these modules, also those that join later; the packages that they import must be installed there.
        for module in (display_blocks, export_tables, display_rows, table_parts):
            client.upload_file(str(module.__file__))
        begin = time.monotonic()
        try:
            manifest = export(client, options.folder, options.to, int(options.block_mb * (1 << 20)))
        except RuntimeError as problem:  # of a worker
            sys.exit(f"{problem}; the export is not complete")
        report(client, manifest, time.monotonic() - begin)


if __name__ == "__main__":
    main()
