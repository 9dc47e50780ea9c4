#!/usr/bin/env bash
# Builds and runs all benchmarks and writes docs/benchmarks.md and its pictures. Takes a few minutes; run nothing else
# on the machine meanwhile.
set -euo pipefail

# shellcheck source=scripts/lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$root"

install_missing "${tool_packages[@]}" pkg-config python3 \
    libbenchmark-dev libpcre2-dev libre2-dev libsimdjson-dev
step "configure the benchmarks" cmake --preset bench
step "build the benchmarks" cmake --build --preset bench

build=$root/build/bench
inputs=$build/inputs
record=$build/record.tsv
mkdir -p "$inputs"
rm -f "$record"

run_task() {
    step "benchmark $1" "$build/bin/bench_$1" --record="$record" --benchmark_color=false \
        --benchmark_repetitions=7 --benchmark_min_time="$2" --benchmark_enable_random_interleaving=true \
        --benchmark_report_aggregates_only=true
}

run_task whole_profile 0.4
run_task one_family 0.4
run_task list_screen 0.2
run_task growth 0.1
step "write the inputs of the programs" "$build/bin/bench_write_inputs" "$inputs"
step "benchmark batch" python3 benchmarks/batch/run.py "$build/bin" "$inputs" "$record"

python3 benchmarks/report.py "$record" "$build" docs
echo "Written: docs/benchmarks.md, docs/benchmarks.svg, docs/growth.svg"
