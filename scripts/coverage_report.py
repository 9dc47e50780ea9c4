#!/usr/bin/env python3
"""Lists the lines and branches of the library that the tests do not run, from the counters in a build folder. The last
two lines are the totals; the exit status is 1 when anything is not run.

gcov's JSON is read directly: the text that gcovr reads does not say whether a branch that was never taken is one that
only an exception takes. Such branches do not count, nor do closing braces. A line that ends in
"// Not covered: REASON" is excluded from the totals.
"""

import gzip
import json
import re
import subprocess
import sys
import tempfile
from collections import Counter, defaultdict
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

CORE = ("src/", "include/")
EXCEPTION = re.compile(r"// Not covered: \w")


class Counters:
    def __init__(self):
        self.lines = defaultdict(int)
        self.branches = defaultdict(int)  # by file, line and index among the line's branches; those of a template's instances add up

    def add(self, report: dict, root: Path) -> None:
        folder = Path(report["current_working_directory"])
        for source in report["files"]:
            path = (folder / source["file"]).resolve()
            if not path.is_relative_to(root) or not str(path.relative_to(root)).startswith(CORE):
                continue
            name = str(path.relative_to(root))
            for line in source["lines"]:
                number = line["line_number"]
                self.lines[name, number] += line["count"]
                for place, branch in enumerate(line["branches"]):
                    if not branch["throw"]:
                        self.branches[name, number, place] += branch["count"]


def report_of(counters: Path) -> dict:
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["gcov", "--json-format", "--branch-probabilities", str(counters)], cwd=folder, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)  # fmt: skip
        files = list(Path(folder).glob("*.gcov.json.gz"))
        with gzip.open(files[0]) as file:
            return json.load(file)


def excepted(root: Path, names) -> set:
    places = set()
    for name in names:
        for number, text in enumerate((root / name).read_text().splitlines(), 1):
            # The counters of a closing brace are those of the compiler's clean-up code.
            if EXCEPTION.search(text) or text.strip() in ("}", "};"):
                places.add((name, number))
    return places


def main(build: str) -> int:
    root = Path(__file__).resolve().parent.parent
    all_counters = sorted(Path(build).resolve().rglob("*.gcda"))
    if not all_counters:
        sys.exit(f"{build}: no counters; run the tests first")
    counters = Counters()
    with ThreadPoolExecutor(2) as pool:
        for report in pool.map(report_of, all_counters):
            counters.add(report, root)
    left_out = excepted(root, {name for name, _ in counters.lines})
    lines = {place: count for place, count in counters.lines.items() if place not in left_out}
    branches = {place: count for place, count in counters.branches.items() if place[:2] not in left_out}

    for name, number in sorted(place for place, count in lines.items() if count == 0):
        print(f"  {name}:{number}: not run")
    missed = Counter((name, number) for (name, number, _), count in branches.items() if count == 0)
    for (name, number), count in sorted(missed.items()):
        if lines[name, number] > 0:
            print(f"  {name}:{number}: {count} branches not taken")
    excepted_lines = sum(EXCEPTION.search(text) is not None
                         for name in {name for name, _ in counters.lines} for text in (root / name).read_text().splitlines())  # fmt: skip
    run = sum(count > 0 for count in lines.values())
    taken = sum(count > 0 for count in branches.values())
    print(f"lines {run} of {len(lines)}, {100 * run / len(lines):.2f} %; excluded with a reason: {excepted_lines}")
    print(f"branches {taken} of {len(branches)}, {100 * taken / len(branches):.2f} %")
    return int(run < len(lines) or taken < len(branches))


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
