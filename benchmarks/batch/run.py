"""Times whole programs over the same files and adds the medians to the record.

Usage: run.py BIN INPUTS RECORD. BIN holds the built programs, INPUTS what bench_write_inputs wrote. Every program's
output is compared with that of the tool before its time counts.
"""

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
    def __init__(self, name, command, source=None):
        self.name = name
        self.command = [str(part) for part in command]
        self.source = source
        self.processor = []
        self.wall = []

    def run(self):
        """The output; processor and wall time are kept."""
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        start = time.perf_counter()
        given = open(self.source, "rb") if self.source else None
        # Into a file: who reads a pipe would share the processor with the program.
        with tempfile.TemporaryFile() as output:
            done = subprocess.run(self.command, stdin=given or subprocess.DEVNULL, stdout=output, check=False)
            self.wall.append(time.perf_counter() - start)
            output.seek(0)
            printed = output.read()
        if given:
            given.close()
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        if done.returncode != 0:
            sys.exit(f"{' '.join(self.command)} ended with {done.returncode}")
        self.processor.append(after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime)
        return printed


def measure(programs):
    """Runs all in turn, so that a slow moment of the machine meets each of them."""
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
    ours = Program("vantro-profile batch", [binaries / "vantro-profile", "batch"], requests)
    simdjson = Program("simdjson and scanner", [binaries / "bench_simdjson_scanner", requests])
    python = Program("Python json and re", [sys.executable, HERE / "python_json_re.py", requests])
    programs = [ours, simdjson, python]
    measure(programs)
    for program in programs:
        record.time(f"{program.name}, one request", statistics.median(program.processor) / count)
    record.ratio(f"{ours.name}, one request", f"{simdjson.name}, one request", 2.0)
    record.ratio(f"{ours.name}, one request", f"{python.name}, one request", 0.25)


def parse(binaries, inputs, record):
    files = [inputs / "screens.txt"] * 4  # long enough for the start of a program not to count
    command = [binaries / "vantro-profile", "parse", *files]
    one = Program("vantro-profile parse -j1", [*command, "-j1"])
    two = Program("vantro-profile parse -j2", [*command, "-j2"])
    measure([one, two])
    for program in (one, two):
        record.time(f"{program.name}, 4000 displays", statistics.median(program.wall))
    record.ratio(f"{two.name}, 4000 displays", f"{one.name}, 4000 displays", round(1 / 1.8, 3))


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
