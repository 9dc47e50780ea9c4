#!/usr/bin/env python3
"""Changes the library one token at a time and checks whether the tests notice. Started by scripts/mutate.sh."""

import sys

sys.dont_write_bytecode = True

import argparse
import os
import resource
import shutil
import signal
import time
import unittest
from collections import Counter
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from mutation.build import CORE, Build, CannotBuild, MutantBuild
from mutation.explained import read_explained
from mutation.mutants import chosen, places_in
from mutation.reach import EVERYTHING, reached, words_of
from mutation.suite import Runner, Suite

ROOT = Path(__file__).resolve().parent.parent
EXPLAINED = ROOT / "scripts" / "mutate-explained.txt"


def arguments():
    parser = argparse.ArgumentParser(prog="scripts/mutate.sh", description=__doc__)
    parser.add_argument("count", nargs="?", type=int, default=100, help="number of mutants (default 100)")
    parser.add_argument("seed", nargs="?", type=int, default=1, help="the same seed makes the same mutants (default 1)")
    parser.add_argument("--file", action="append", help="only this file of the library; may be repeated")
    parser.add_argument("--at-least", type=float, default=98, help="percent of the unexplained mutants that must be killed (default 98)")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), help="mutants in parallel (default: one per processor)")
    parser.add_argument("--list", action="store_true", help="print the mutants and stop")
    parser.add_argument("--one", type=int, metavar="K", help="only mutant K, with the output of compiler and tests")
    parser.add_argument("--no-simd", action="store_true", help="mutate and test the build without vector instructions")
    parser.add_argument("--self-test", action="store_true", help="check the tool itself")
    return parser.parse_args()


def core_texts(root: Path, build: Build) -> dict[str, str]:
    build.copy_sources()
    return {
        str(path.relative_to(build.source)): path.read_text()
        for path in build.source.rglob("*")
        if path.suffix in (".h", ".cpp") and str(path.relative_to(build.source)).startswith(CORE)
        # Most tokens of the descriptions are prose; tests compare their keys, marks and numbers with the classes.
        and "class_rows" not in path.parts
    }


class Session:
    def __init__(self, build: Build, texts: dict[str, str], explained, runner: Runner):
        self.build, self.texts, self.explained, self.runner = build, texts, explained, runner
        self.suite = Suite(build, runner)
        self.folder = build.folder / f"mutants-{os.getpid()}"

    def judge(self, mutant, verbose: bool = False):
        begin = time.monotonic()
        folder = self.folder / str(mutant.number)
        mutated = MutantBuild(self.build, folder, mutant.file, mutant.applied(self.texts[mutant.file]),
                              self.runner.execute)  # fmt: skip
        try:
            mutant.outcome, mutant.detail = self._outcome(mutated, mutant, verbose)
        finally:
            shutil.rmtree(folder, ignore_errors=True)
        if mutant.outcome == "survived":
            mutant.why = self.explained.why(mutant)
        mutant.seconds = time.monotonic() - begin
        return mutant

    def _outcome(self, mutated: MutantBuild, mutant, verbose: bool) -> tuple[str, str]:
        objects = self.build.core_objects(mutant.file)
        near = self._reached(mutant, objects)
        if not (mutated.compile(near) and mutated.link_library()):
            if verbose:
                print(mutated.log)
            return ("killed", "caught by static_assert") if mutated.failed_by_static_check() else ("not compiling", "")
        killer = self.suite.run(mutated, mutant.file, verbose=verbose)
        if killer or not mutant.file.endswith(".h"):
            return ("killed", killer) if killer else ("survived", "")
        # The test programs have their own copies of inline functions in headers.
        others = [name for name in objects if name not in near] + self.build.other_objects(mutant.file)
        if not (mutated.compile(others) and mutated.link_library() and mutated.link_tests(others)):
            if verbose:
                print(mutated.log)
            return ("killed", "caught by static_assert") if mutated.failed_by_static_check() else ("not compiling", "")
        relinked = {path.name for path in (mutated.folder / "bin").iterdir()}
        killer = self.suite.run(mutated, mutant.file, only=relinked, verbose=verbose)
        return ("killed", killer) if killer else ("survived", "")

    def _reached(self, mutant, objects: list[str]) -> list[str]:
        """The objects that the change can affect."""
        if not mutant.file.endswith(".h"):
            return objects
        names = reached(mutant.file, mutant.start, self.texts, self.build.with_simd)
        near = [o for o in objects if EVERYTHING in names or names & words_of(self.texts[self.build.source_of(o)])]
        return near or objects[:1]

    def judge_all(self, mutants, jobs: int) -> None:
        record = self.build.folder / "mutants.tsv"
        with record.open("w") as out, ThreadPoolExecutor(jobs) as pool:
            for done, mutant in enumerate(pool.map(self._judge_or_stop, mutants), 1):
                m = mutant
                print(m.number, m.outcome, f"{m.seconds:.1f}", m.detail, m.shown(), sep="\t", file=out, flush=True)
                if mutant.outcome == "survived" or sys.stdout.isatty():
                    why = f" (explained: {mutant.why})" if mutant.why else ""
                    print(f"{done}/{len(mutants)} {mutant.outcome}{why}: #{mutant.number} {mutant.shown()}", flush=True)

    def _judge_or_stop(self, mutant):
        try:
            return self.judge(mutant)
        except KeyboardInterrupt:
            mutant.outcome = "stopped"
            return mutant


def histogram(mutants) -> None:
    kinds = Counter(mutant.kind for mutant in mutants)
    print(f"\n{'kind':<20} {'tried':>6} {'killed':>7} {'survived':>9} {'not compiling':>14}")
    for kind, count in kinds.most_common():
        outcomes = Counter(mutant.outcome for mutant in mutants if mutant.kind == kind)
        print(f"{kind:<20} {count:>6} {outcomes['killed']:>7} {outcomes['survived']:>9} {outcomes['not compiling']:>14}")


def report(mutants, at_least: float, seconds: float, folder: Path) -> int:
    histogram(mutants)
    killed = [m for m in mutants if m.outcome == "killed"]
    survived = [m for m in mutants if m.outcome == "survived"]
    counted = len(killed) + len(survived)
    caught = sum("static_assert" in m.detail for m in killed)
    print(f"\n{caught} of the killed were caught by static_assert; {seconds / max(1, counted):.1f} CPU seconds per mutant; "
          f"all outcomes: {folder / 'mutants.tsv'}")  # fmt: skip
    unexplained = [m for m in survived if not m.why]
    if unexplained:
        print("\nsurvived and not explained:")
    for mutant in unexplained:
        print(f"  #{mutant.number} {mutant.shown()}")
    explained = len(survived) - len(unexplained)
    # A change that no test can notice says nothing about the tests.
    seen = counted - explained
    share = 100 * len(killed) / seen if seen else 100.0
    print(f"mutants: {counted}, killed: {len(killed)} ({share:.1f} % of the {seen} that tests can notice), "
          f"survived: {len(survived)}, "
          f"of them explained: {explained}, not compiling: {len(mutants) - counted} (not counted)")  # fmt: skip
    return 0 if share >= at_least else 1


def cpu_seconds() -> float:
    usage = resource.getrusage(resource.RUSAGE_CHILDREN)
    return usage.ru_utime + usage.ru_stime


def main() -> int:
    given = arguments()
    if given.self_test:
        from mutation import self_test

        result = unittest.TextTestRunner().run(unittest.defaultTestLoader.loadTestsFromModule(self_test))
        return 0 if result.wasSuccessful() else 1
    build = Build(ROOT, not given.no_simd)
    texts = core_texts(ROOT, build)
    for file in given.file or []:
        if file not in texts:
            sys.exit(f"{file}: not a source file of the library")
    explained = read_explained(EXPLAINED, texts)
    places = places_in(texts, build.with_simd)
    mutants = chosen([p for p in places if not given.file or p.file in given.file], max(given.count, given.one or 0), given.seed)
    if given.list:
        for mutant in mutants:
            print(f"#{mutant.number} {mutant.shown()}")
        print(f"{len(mutants)} mutants at {len(places)} possible places")
        return 0
    if given.one:
        mutants = [mutant for mutant in mutants if mutant.number == given.one]
        if not mutants:
            sys.exit(f"there is no mutant {given.one}")
    return run(build, texts, explained, mutants, given)


def run(build: Build, texts, explained, mutants, given) -> int:
    runner = Runner()

    def stop(*_):
        runner.stop()
        raise KeyboardInterrupt

    for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, stop)
    session = Session(build, texts, explained, runner)
    try:
        build.prepare(given.jobs)
        failing = session.suite.measure()
        if failing:
            sys.exit("The unchanged library fails its tests:\n" + "\n".join(failing))
        print(f"{len(mutants)} mutants; the whole suite takes {session.suite.seconds():.0f} s", flush=True)
        begin = cpu_seconds()
        if given.one:
            for mutant in mutants:
                print(mutant.shown(), f"\n  - {mutant.before}\n  + {mutant.after}")
                session.judge(mutant, verbose=True)
                print(f"{mutant.outcome}: {mutant.detail or mutant.why}")
            return 0
        try:
            session.judge_all(mutants, given.jobs)
        except KeyboardInterrupt:
            print("\nstopped early")
        judged = [mutant for mutant in mutants if mutant.outcome not in ("", "stopped")]
        return report(judged, given.at_least, cpu_seconds() - begin, build.folder)
    except CannotBuild as error:
        sys.exit(str(error))
    except KeyboardInterrupt:
        print("stopped", file=sys.stderr)
        return 130
    finally:
        shutil.rmtree(session.folder, ignore_errors=True)


if __name__ == "__main__":
    sys.exit(main())
