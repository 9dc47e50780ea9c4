"""Microseconds per display: this package, the tool as a process, and Python's re.

Usage: benchmark.py INPUTS TOOL. INPUTS is the folder that bench_write_inputs filled (scripts/bench.sh: build/bench/
inputs), TOOL is vantro-profile. The contenders run in turn; what counts is the best of the passes, by the clock.
"""

import json
import pathlib
import subprocess
import sys
import tempfile
import time
from importlib.util import module_from_spec, spec_from_file_location

from vantro_profile import parse_many, parse_profile

PASSES = 100


def python_re():
    """The contender of benchmarks/whole_profile."""
    root = pathlib.Path(__file__).resolve().parents[2]
    spec = spec_from_file_location("python_re", root / "benchmarks/whole_profile/python_re.py")
    module = module_from_spec(spec)
    spec.loader.exec_module(module)
    return module


def header(profiles):
    for profile in profiles:
        profile.name


def everything(profiles):
    for profile in profiles:
        for _ in profile.elements.values():
            pass


def check(displays, records, contender):
    """All find the same elements in every display."""
    for number, (display, record) in enumerate(zip(displays, records, strict=True)):
        elements = parse_profile(display).elements
        found = [
            [(e.number, e.text, e.code, e.airline, e.frequent_flyer_number, e.free_text) for e in elements[family]]
            for family in contender.FAMILIES
        ]
        if contender.Reader().read(display).result() != found:
            sys.exit(f"Python re disagrees on display {number}")
        for family in contender.FAMILIES:
            printed = [(e["number"], e["text"]) for e in record["elements"][family]]
            if printed != [(e.number, e.text) for e in elements[family]]:
                sys.exit(f"the tool disagrees on display {number}")


def write_lines(file, displays):
    """The displays as text lines, as a file has them."""
    for display in displays:
        for at in range(0, len(display), 80):
            file.write(display[at : at + 80].rstrip(" ").encode("ascii") + b"\n")
    file.flush()


def main():
    inputs, tool = pathlib.Path(sys.argv[1]), sys.argv[2]
    displays = (inputs / "displays.txt").read_text(encoding="ascii").split("\n")[:-1]
    with tempfile.NamedTemporaryFile(suffix=".txt") as file:
        write_lines(file, displays)
        measure(displays, [tool, "parse", "-j1", file.name])


def measure(displays, command):
    def tool_and_json():
        output = subprocess.run(command, check=True, capture_output=True, encoding="utf-8").stdout
        return [json.loads(line) for line in output.split("\n") if line]

    contender = python_re()
    check(displays, tool_and_json(), contender)

    part = displays[:128]

    def read_with_re():
        for display in part:
            contender.Reader().read(display).result()

    contenders = {
        "parse_profile, header values": lambda: header(map(parse_profile, part)),
        "parse_profile, all elements": lambda: everything(map(parse_profile, part)),
        "parse_many, 1 thread, header values": lambda: header(parse_many(part, 1)),
        "parse_many, 2 threads, header values": lambda: header(parse_many(part, 2)),
        "parse_many, 1 thread, all elements": lambda: everything(parse_many(part, 1)),
        "parse_many, 2 threads, all elements": lambda: everything(parse_many(part, 2)),
        "Python re": read_with_re,
        "vantro-profile parse and json": tool_and_json,
    }
    best = dict.fromkeys(contenders, float("inf"))
    for number in range(PASSES):
        for name, run in contenders.items():
            if run is tool_and_json and number % 10:
                continue
            start = time.perf_counter()
            run()
            count = len(displays) if run is tool_and_json else len(part)
            best[name] = min(best[name], (time.perf_counter() - start) / count)
    for name, seconds in best.items():
        print(f"{name:40} {seconds * 1e6:8.1f} us per display")


if __name__ == "__main__":
    main()
