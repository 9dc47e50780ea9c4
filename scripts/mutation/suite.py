"""The test programs, divided into portions: first the many quick tests of every program, then each slow one."""

import json
import os
import signal
import subprocess
import tempfile
import threading
from collections import Counter
from pathlib import Path

SLOW = 0.04  # seconds of a test
MEMORY = 4 << 30
OUTPUT = 1 << 17  # bytes of a program's output that are kept, from the start and from the end


class Runner:
    """Runs commands under limits and ends all of them on an interrupt."""

    def __init__(self):
        self.lock = threading.Lock()
        self.groups: set[int] = set()
        self.stopping = False

    def execute(self, command, cpu_seconds: float, cwd=None, env=None) -> tuple[int, str]:
        """The exit status (-1 for the time limit) and the output."""
        limits = ["prlimit", f"--cpu={int(cpu_seconds) + 1}", f"--as={MEMORY}", "--core=0", f"--fsize={1 << 28}"]
        with tempfile.TemporaryFile() as out:
            with self.lock:
                if self.stopping:
                    raise KeyboardInterrupt
                process = subprocess.Popen(
                    [*limits, *map(str, command)], cwd=cwd, env=env, stdin=subprocess.DEVNULL, stdout=out,
                    stderr=subprocess.STDOUT, start_new_session=True,
                )  # fmt: skip
                self.groups.add(process.pid)
            status = -1
            try:
                # Other work on the machine makes the clock run faster than the processor's time.
                status = process.wait(timeout=30 + 20 * cpu_seconds)
                if status == -signal.SIGXCPU or status == -signal.SIGKILL:
                    status = -1
            except subprocess.TimeoutExpired:
                pass
            finally:
                self._end_group(process.pid)
                process.wait()
                with self.lock:
                    self.groups.discard(process.pid)
            if self.stopping:
                raise KeyboardInterrupt
            size = out.seek(0, os.SEEK_END)
            out.seek(0)
            shown = out.read(OUTPUT)  # the failure comes first, then every test that is skipped after it
            if size > 2 * OUTPUT:
                out.seek(size - OUTPUT)
            return status, (shown + out.read()).decode("utf-8", "replace")

    def _end_group(self, group: int) -> None:
        try:
            os.killpg(group, signal.SIGKILL)
        except ProcessLookupError:
            pass

    def stop(self) -> None:
        with self.lock:
            self.stopping = True
            for group in self.groups:
                self._end_group(group)


class Portion:
    def __init__(self, program: str, tests: str, seconds: float, title: str):
        self.program, self.tests, self.seconds, self.title = program, tests, seconds, title


class Suite:
    def __init__(self, build, runner: Runner):
        self.build, self.runner = build, runner
        self.lock = threading.Lock()
        self.killers: dict[str, list[tuple[str, str]]] = {}  # file -> the tests that last killed a mutant of it
        self.kills: Counter = Counter()
        self.portions: list[Portion] = []

    def measure(self) -> list[str]:
        """Runs the unchanged programs once and divides them into portions. Returns the failing tests."""
        failing = []
        for program in self.build.tests:
            report = self.build.folder / f"{program}.json"
            binary = self.build.tree / "bin" / program
            library = max(self.build.tree.glob("libVantroProfileUtils.so.*"), key=lambda path: path.stat().st_mtime)
            newest = max(binary.stat().st_mtime, library.stat().st_mtime)
            if not report.is_file() or report.stat().st_mtime < newest:
                report.unlink(missing_ok=True)
                self.runner.execute([binary, "--gtest_brief=1", f"--gtest_output=json:{report}"], 600, cwd=self.build.tree)
            if not report.is_file():
                return [f"{program} ends before its last test"]
            quick, slow = 0.0, []
            for group in json.loads(report.read_text())["testsuites"]:
                for test in group["testsuite"]:
                    name, seconds = f"{group['name']}.{test['name']}", float(test["time"].rstrip("s"))
                    if test.get("failures"):
                        failing.append(f"{program}: {name}")
                    if seconds >= SLOW:
                        slow.append((seconds, name))
                    else:
                        quick += seconds
            without = ":".join(name for _, name in slow)
            self.portions.append(Portion(program, f"-{without}" if slow else "*", quick, "its quick tests"))
            self.portions += [Portion(program, name, seconds, name) for seconds, name in slow]
            if failing:
                report.unlink()
        return failing

    def seconds(self) -> float:
        return sum(portion.seconds for portion in self.portions)

    def _in_order(self, file: str) -> list[Portion]:
        with self.lock:
            killers = list(self.killers.get(file, []))
            kills = Counter(self.kills)
        first = []
        for program in dict.fromkeys(program for program, _ in killers):
            names = [name for owner, name in killers if owner == program]
            first.append(Portion(program, ":".join(names), 0.5, "the tests that killed here before"))
        area = file.split("/")[0]

        def rank(portion: Portion):
            return (portion.seconds + 0.02) / (1 + kills[area, portion.program, portion.title])

        return first + sorted(self.portions, key=rank)

    def run(self, mutant_build, file: str, only=None, verbose: bool = False) -> str:
        """The test that killed the mutant, or nothing."""
        temporary = mutant_build.folder / "tmp"
        temporary.mkdir(exist_ok=True)
        env = dict(os.environ, LD_LIBRARY_PATH=str(mutant_build.folder), TMPDIR=str(temporary))
        found = ""
        for portion in self._in_order(file):
            if only is not None and portion.program not in only:
                continue
            command = [mutant_build.program(portion.program), "--gtest_brief=1", f"--gtest_filter={portion.tests}"]
            if not verbose:
                command.append("--gtest_fail_fast")
            limit = 2 + 6 * portion.seconds
            status, output = self.runner.execute(command, limit, cwd=self.build.tree, env=env)
            if status == 0:
                continue
            killer = self._note(file, portion, output)
            how = "time limit" if status == -1 else killer or f"ended by {status}"
            found = found or f"{portion.program}: {how}"
            if not verbose:
                return found
            print(f"--- {portion.program}, {portion.title}: exit status {status}\n{output[-4000:]}")
        return found

    def _note(self, file: str, portion: Portion, output: str) -> str:
        failed = [line.split("]", 1)[1].split(",")[0].split(" (")[0].strip()
                  for line in output.splitlines() if line.startswith("[  FAILED  ]") and "." in line]  # fmt: skip
        with self.lock:
            self.kills[file.split("/")[0], portion.program, portion.title] += 1
            if failed:
                known = self.killers.setdefault(file, [])
                entry = (portion.program, failed[0])
                if entry in known:
                    known.remove(entry)
                known.insert(0, entry)
                del known[12:]
        return failed[0] if failed else ""
