"""Times whole programs over the same files and adds the best and the median times to the record.

Usage: run.py BIN INPUTS RECORD. BIN is the folder of the built programs, INPUTS that of bench_write_inputs. Every
program's output is compared with the tool's before it is timed. The programs run in turn. What counts is the processor
time of the whole process, user and system, with its start and its end; nothing is subtracted.
"""

import contextlib
import os
import pathlib
import resource
import statistics
import subprocess
import sys
import tempfile
import time

HERE = pathlib.Path(__file__).parent
REPETITIONS = 9


class Program:
    """A command line, or several that run in parallel."""

    def __init__(self, name, *commands, source=None, output=None):
        self.name = name
        self.commands = [[str(part) for part in command] for command in commands]
        self.source = source
        self.output = output  # a file; by default a temporary one that is read back
        self.processor = []
        self.wall = []

    def run(self):
        """Returns the output; records processor and wall time."""
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        with contextlib.ExitStack() as files:
            # Into files: reading pipes would take processor time from the programs.
            outputs = [files.enter_context(open(self.output, "w+b") if self.output else tempfile.TemporaryFile())
                       for _ in self.commands]
            standard_input = files.enter_context(open(self.source or os.devnull, "rb"))
            start = time.perf_counter()
            running = [subprocess.Popen(command, stdin=standard_input, stdout=output)
                       for command, output in zip(self.commands, outputs)]
            statuses = [program.wait() for program in running]
            self.wall.append(time.perf_counter() - start)
            after = resource.getrusage(resource.RUSAGE_CHILDREN)
            for output in outputs:
                output.seek(0)
            printed = b"".join(output.read() for output in outputs)
        if any(statuses):
            sys.exit(f"{self.name} ended with {statuses}")
        self.processor.append(after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime)
        return printed


def measure(programs, repetitions=REPETITIONS):
    """Runs all in turn, so that a slow phase of the machine affects each of them. Returns the size of the output."""
    expected = programs[0].run()
    for program in programs[1:]:
        if program.run() != expected:
            sys.exit(f"{program.name} disagrees with {programs[0].name}")
    print(f"{len(expected)} bytes of output each; all programs agree", flush=True)
    for program in programs:
        program.processor.clear()
        program.wall.clear()
    for _ in range(repetitions):
        for program in programs:
            program.run()
    return len(expected)


class Record:
    def __init__(self, path):
        self.path = path

    def times(self, group, name, seconds, items=1):
        best, median = min(seconds) / items, statistics.median(seconds) / items
        with open(self.path, "a", encoding="utf-8") as file:
            file.write(f"time\tbatch\t{group}\t{name}\t{best:.9g}\t{median:.9g}\n")
        print(f"{group + ': ' + name:60} {best * 1e6:12.3f} {median * 1e6:12.3f} us", flush=True)


def batch(binaries, inputs, record, form):
    requests = inputs / f"requests_{form}.jsonl"
    with open(requests, "rb") as file:
        count = sum(1 for _ in file)
    programs = [
        Program("vantro-profile batch", [binaries / "vantro-profile", "batch"], source=requests),
        Program("simdjson and scanner", [binaries / "bench_simdjson_scanner", requests]),
        Program("Python json and re", [sys.executable, HERE / "python_json_re.py", requests]),
    ]
    measure(programs)
    group = {"text": "display as one string", "lines": "display as an array of lines"}[form]
    for program in programs:
        record.times(group, program.name, program.processor, count)


def parse_threads(binaries, inputs, record):
    def command(files, threads):  # enough files that starting the program does not count
        return [binaries / "vantro-profile", "parse", *[inputs / "archive.txt"] * files, f"-j{threads}"]

    programs = [
        Program("parse -j1", command(4, 1)),
        Program("parse -j2", command(4, 2)),
        # The most that two cores of this machine achieve, measured at the same time.
        Program("two parse -j1, half each", command(2, 1), command(2, 1)),
    ]
    measure(programs)
    for program in programs:
        record.times("4,000 displays, wall time", program.name, program.wall)


def parse_file(binaries, inputs, record):
    """One file of 100,000 displays, a gigabyte; it is removed afterwards."""
    archive = (inputs / "archive.txt").read_bytes()
    command = [binaries / "vantro-profile", "parse", "-j1"]
    one = Program("parse -j1", [*command, inputs / "archive.txt"])
    output_size = measure([one], repetitions=0) * 100
    large = inputs / "archive_large.txt"
    try:
        with open(large, "wb") as file:
            for _ in range(100):
                file.write(archive)
        parse = Program("parse -j1", [*command, large], output=os.devnull)
        copies = []
        for _ in range(3):
            parse.run()
            sizes = [str(len(archive) * 100), str(output_size)]
            copied = subprocess.run([binaries / "bench_copy_bytes", *sizes], check=True, stdout=subprocess.PIPE)
            copies.append(float(copied.stdout))
    finally:
        large.unlink(missing_ok=True)
    group = f"100,000 displays, {len(archive) / 1e4:.0f} MB in, {output_size / 1e6:.0f} MB out"
    record.times(group, parse.name, parse.processor)
    record.times(group, "memcpy of the input and the output", copies)


def main():
    binaries, inputs, record_path = (pathlib.Path(argument) for argument in sys.argv[1:4])
    record = Record(record_path)
    for form in ("lines", "text"):
        batch(binaries, inputs, record, form)
    parse_threads(binaries, inputs, record)
    parse_file(binaries, inputs, record)
    script = HERE.parent / "whole_profile" / "python_re.py"
    command = [sys.executable, script, inputs / "displays.txt", inputs / "elements.txt"]
    seconds = subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout.split()
    with open(record_path, "a", encoding="utf-8") as file:
        file.write(f"time\twhole_profile\tmixed\tPython re\t{seconds[0]}\t{seconds[1]}\n")


if __name__ == "__main__":
    main()
