#!/usr/bin/env bash
# Runs the library's tests once with coverage counters and lists the lines and branches of the library that they do not
# run. The last two lines are the totals. Fails when anything is not run. Branches that only an exception takes do not
# count. Code that cannot run is marked in the source, with the reason: "// Not covered: REASON". Takes about three
# minutes on two cores. Installs missing packages (Debian).
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

install_missing "${tool_packages[@]}" libgtest-dev libgmock-dev python3
build=build/coverage
step "coverage: configure" cmake --preset coverage
step "coverage: build" cmake --build --preset coverage
find $build -name '*.gcda' -delete
# Each program runs once as a whole: a process per test would spend its time on reading and writing counters.
# The tests with threads run nothing that the others do not, and threads that share a counter lose counts.
# Programs that run at the same time lose none: each adds its counts at its end, to files that it locks.
run_programs() {
    find "$build/bin" -name 'vantro_*_tests' ! -name vantro_thread_tests | sort -r |
        xargs -P 2 -I {} bash -c '{} >{}.log 2>&1 || { tail -n 60 {}.log; exit 1; }'
}
export build
step "coverage: tests" strictly run_programs
python3 scripts/coverage_report.py $build
