#!/usr/bin/env bash
# Runs every fuzzer, two at a time, each on its seeds, its earlier findings and its corpus (build/fuzz/corpus).
#
#   scripts/fuzz.sh MINUTES             this many minutes in total
#   scripts/fuzz.sh --seconds-each N    N seconds per fuzzer
#
# A finding is copied to fuzz/finds/TARGET/, where the ordinary suite replays it, and fails the run. The last line
# counts the fuzzers: "N passed, N failed, N skipped".
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$root"

usage() {
    echo "usage: scripts/fuzz.sh MINUTES | --seconds-each N" >&2
    exit 2
}

# Every target with vector instructions; those whose readers use them also without.
fuzzers=(fuzz:transactions fuzz:profile_queries fuzz:whole_profile fuzz:batch_lines fuzz:collections
    fuzz-scalar:transactions fuzz-scalar:profile_queries fuzz-scalar:whole_profile)
at_once=2
# Nearly all displays of the host are shorter, and longer ones find nothing new.
longest_input=4096
# Every reader reads a display without an end up to line 32767, slowed down by the sanitizers.
slowest_input=60

# Short runs, such as those of the long checks, use the same inputs each time; 0 means a new random seed each time.
start=0
case ${1:-} in
--seconds-each) seconds=${2:-} start=1 ;;
*) seconds=$([[ ${1:-} =~ ^[0-9]+$ ]] && echo $(($1 * 60 * at_once / ${#fuzzers[@]})) || true) ;;
esac
if ! [[ $seconds =~ ^[1-9][0-9]*$ ]]; then usage; fi

corpora=$root/build/fuzz/corpus
seeds=$root/build/fuzz/seeds
runs=$root/build/fuzz/runs

# Deep call stacks and a large quarantine of freed memory cost more time than they are worth.
export ASAN_OPTIONS=quarantine_size_mb=8:malloc_context_size=3

# fuzz PRESET TARGET: one run; its files are under $runs.
fuzz() {
    local run=$runs/$1-$2 dictionary=()
    rm -rf "$run"
    mkdir -p "$run/found" "$corpora/$2"
    if [[ $2 == batch_lines ]]; then dictionary=(-dict=fuzz/batch_lines.dict); fi
    # An earlier finding that still fails also ends the run.
    "build/$1/bin/fuzz_$2" -seed=$start -max_total_time="$seconds" -max_len=$longest_input -timeout=$slowest_input \
        -rss_limit_mb=2048 -entropic=0 -print_final_stats=1 -reload=10 -artifact_prefix="$run/found/" "${dictionary[@]}" \
        "$corpora/$2" "$seeds/$2" >"$run/log" 2>&1 </dev/null && echo 0 >"$run/status" || echo $? >"$run/status"
}

# statistic NAME LOG: a number from libFuzzer's final statistics; 0 when the run ended before them.
statistic() { sed -n "s/^stat::$1: *//p" "$2" | grep . || echo 0; }

# report PRESET TARGET: saves the findings, prints the run's line and counts it.
report() {
    local run=$runs/$1-$2 found name finds=0 executions rate edges
    for found in "$run"/found/{crash,timeout,oom,leak}-*; do
        if [[ ! -f $found ]]; then continue; fi
        finds=$((finds + 1))
        mkdir -p "fuzz/finds/$2"
        # The name is a hash of the contents, so the same finding is the same file.
        name=$(sha1sum "$found" | cut -c1-12)
        cp "$found" "fuzz/finds/$2/$name"
        echo "          finding: fuzz/finds/$2/$name" >&2
    done
    # libFuzzer's progress lines begin with "#" and contain the number of covered edges.
    edges=$(sed -n 's/^#[0-9].* cov: \([0-9]*\) .*/\1/p' "$run/log" | tail -n 1)
    executions=$(statistic number_of_executed_units "$run/log")
    if ((executions == 0)); then executions=$(sed -n 's/^#\([0-9]*\)\s.*/\1/p' "$run/log" | tail -n 1); fi
    rate=$((${executions:-0} / seconds))
    printf '  %-28s %9d executions %5d s %7d exec/s %6d edges %3d findings\n' \
        "$1:$2" "${executions:-0}" "$seconds" "$rate" "${edges:-0}" "$finds"
    if (($(<"$run/status") == 0 && finds == 0)); then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        grep -v '^#' "$run/log" | tail -n 60 | cut -c1-400 | sed 's/^/    | /' >&2
    fi
}

install_missing "${tool_packages[@]}" libgtest-dev libgmock-dev clang libclang-rt-dev
for preset in fuzz fuzz-scalar; do
    step "$preset: configure" cmake --preset $preset
    step "$preset: build" cmake --build --preset $preset
done
rm -rf "$seeds"
step "write the seeds" build/fuzz/bin/vantro_fuzz_seeds "$seeds"

echo "Each of ${#fuzzers[@]} fuzzers runs for $seconds s, $at_once at a time."
running=0
for fuzzer in "${fuzzers[@]}"; do
    if ((running == at_once)); then
        wait -n || true
        running=$((running - 1))
    fi
    fuzz "${fuzzer%%:*}" "${fuzzer##*:}" &
    running=$((running + 1))
done
wait
for fuzzer in "${fuzzers[@]}"; do report "${fuzzer%%:*}" "${fuzzer##*:}"; done

echo "$passed passed, $failed failed, $skipped skipped"
((failed == 0))
