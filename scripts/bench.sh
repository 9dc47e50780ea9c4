#!/usr/bin/env bash
# Builds and runs all benchmarks and writes docs/benchmarks.md and its pictures. Takes about ten minutes and needs 2 GB of
# disk and of memory; run nothing else on the machine meanwhile.
#
# --commit REVISION measures the library and the tool of another commit with today's contenders, and writes the page
# into build/against/docs. The contenders use only the public headers, so that an older library can be measured too.
set -euo pipefail

# shellcheck source=scripts/lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$root"

if [[ ${1:-} == --commit && $# == 2 ]]; then
    against=$root/build/against
    rm -rf "$against"
    git worktree prune
    git worktree add --force --detach "$against" "$2"
    rm -rf "$against/benchmarks"
    cp -r benchmarks "$against"
    cp scripts/bench.sh "$against/scripts"
    exec "$against/scripts/bench.sh"
elif [[ $# != 0 ]]; then
    echo "Usage: scripts/bench.sh [--commit REVISION]" >&2
    exit 2
fi

# The COM benchmark is part of the tests. An older commit's measures something else.
com=
if grep -q -e --json tests/com/call_benchmark.cpp; then com=yes; fi

install_missing "${tool_packages[@]}" ${com:+"${com_x64_packages[@]}"} pkg-config python3 libpcre2-dev libre2-dev \
    libsimdjson-dev
step "configure the benchmarks" cmake --preset bench
step "build the benchmarks" cmake --build --preset bench

build=$root/build/bench
inputs=$build/inputs
record=$build/record.tsv
mkdir -p "$inputs"
rm -f "$record"

for task in whole_profile one_family list_screen growth; do
    step "benchmark $task" "$build/bin/bench_$task" --record="$record"
done
step "write the inputs of the programs" "$build/bin/bench_write_inputs" "$inputs"
step "benchmark batch" python3 benchmarks/batch/run.py "$build/bin" "$inputs" "$record"

if [[ -n $com ]]; then
    step "configure the COM server" cmake --preset mingw-x64
    step "build the COM server" cmake --build --preset mingw-x64 --target VantroProfileUtils VantroKestoFaces \
        vantro_com_benchmark
    step "benchmark COM" bash scripts/com-clients.sh x64 benchmark
    cp build/com/speeds-x64.json "$build/com.json"
fi

python3 benchmarks/report.py "$record" "$build" docs
echo "Written: $root/docs/benchmarks.md, benchmarks.svg and growth.svg beside it"
