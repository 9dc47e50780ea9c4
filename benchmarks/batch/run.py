"""Times whole programs over the same files and adds the medians to the record.

Usage: run.py BIN INPUTS RECORD. BIN is the folder of the built programs, INPUTS that of bench_write_inputs. Every
program's output is compared with the tool's before it is timed.
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
REPETITIONS = 15


class Program:
    """A command line, or several that run in parallel."""

    def __init__(self, name, *commands, source=None):
        self.name = name
        self.commands = [[str(part) for part in command] for command in commands]
        self.source = source
        self.processor = []
        self.wall = []

    def run(self):
        """Returns the output; records processor and wall time."""
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        with contextlib.ExitStack() as files:
            # Into files: reading pipes would take processor time from the programs.
            outputs = [files.enter_context(tempfile.TemporaryFile()) for _ in self.commands]
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


def measure(programs):
    """Runs all in turn, so that a slow moment of the machine affects each of them."""
    expected = programs[0].run()
    for program in programs:
        if program.run() != expected:
            sys.exit(f"{program.name} disagrees with {programs[0].name}")
    print(f"{len(expected)} bytes of output each; all programs agree", flush=True)
    for program in programs:
        program.processor.clear()
        program.wall.clear()
    for _ in range(REPETITIONS):
        for program in programs:
            program.run()


class Record:
    def __init__(self, path):
        self.path = path
        self.times = {}

    def write(self, *fields):
        with open(self.path, "a", encoding="utf-8") as file:
            file.write("\t".join(str(field) for field in fields) + "\n")

    def time(self, name, seconds):
        self.times[name] = seconds
        self.write("time", "batch", name, f"{seconds:.9g}")
        print(f"{name:44} {seconds * 1e6:10.2f} us")

    def ratio(self, contender, baseline, target):
        self.write("ratio", "batch", contender, baseline, target)
        ratio = self.times[contender] / self.times[baseline]
        print(f"{contender} against {baseline}: {ratio:.2f}, at most {target:.2f}")


def batch(binaries, inputs, record):
    requests = inputs / "requests.jsonl"
    count = sum(1 for _ in open(requests, "rb"))
    ours = Program("vantro-profile batch", [binaries / "vantro-profile", "batch"], source=requests)
    simdjson = Program("simdjson and scanner", [binaries / "bench_simdjson_scanner", requests])
    python = Program("Python json and re", [sys.executable, HERE / "python_json_re.py", requests])
    programs = [ours, simdjson, python]
    measure(programs)
    for program in programs:
        record.time(f"{program.name}, one request", statistics.median(program.processor) / count)
    record.ratio(f"{ours.name}, one request", f"{simdjson.name}, one request", 2.0)
    record.ratio(f"{ours.name}, one request", f"{python.name}, one request", 0.25)


def parse(binaries, inputs, record):
    def command(files, threads):  # enough files that starting the program does not count
        return [binaries / "vantro-profile", "parse", *[inputs / "screens.txt"] * files, f"-j{threads}"]

    one = Program("vantro-profile parse -j1", command(4, 1))
    two = Program("vantro-profile parse -j2", command(4, 2))
    # The most that two cores of this machine achieve, measured at the same time.
    halves = Program("two parse -j1, half each", command(2, 1), command(2, 1))
    programs = [one, two, halves]
    measure(programs)
    for program in programs:
        record.time(f"{program.name}, 4000 displays", statistics.median(program.wall))
    record.ratio(f"{two.name}, 4000 displays", f"{one.name}, 4000 displays", round(1 / 1.8, 3))
    record.ratio(f"{two.name}, 4000 displays", f"{halves.name}, 4000 displays", 0)


def main():
    binaries, inputs, record = (pathlib.Path(argument) for argument in sys.argv[1:4])
    record = Record(record)
    batch(binaries, inputs, record)
    known = subprocess.run([binaries / "vantro-profile", "parse", "--help"], capture_output=True, check=False)
    if known.returncode == 0:
        parse(binaries, inputs, record)
    script = HERE.parent / "whole_profile" / "python_re.py"
    command = [sys.executable, script, inputs / "displays.txt", inputs / "elements.txt"]
    seconds = subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout.strip()
    record.write("time", "whole_profile", "Python re", seconds)
    print(f"Python re, one display: {float(seconds) * 1e6:.2f} us")


if __name__ == "__main__":
    main()
