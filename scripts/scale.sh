#!/usr/bin/env bash
# Exports a generated archive in the ways of docs/scale.md, and compares each result, byte for byte, with that of one
# run of the tool: Dask on three workers in network namespaces, of which one is killed; an array job on a Slurm of one
# node, and GNU parallel over ssh to two hosts, both with a task that is killed. Needs root. Takes about a minute on two
# cores, after the Debian packages that it installs and the tool. The last line of a green run is "N passed, 0 failed,
# M skipped". Logs are in build/scale.
#
# scripts/scale.sh figures measures displays per second for 1, 2 and 4 workers of Dask instead, and for the tool.
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

# Debian's Python comes first: another one in the search path does not have Debian's packages.
export PATH=/usr/bin:/usr/sbin:$PATH
export python=/usr/bin/python3 work=$root/build/scale
export scale=$root/examples/scale tool=$root/build/ci-gcc/bin/vantro-profile archive=$root/build/scale/archive
export PYTHONDONTWRITEBYTECODE=1 PYTHONPATH=$root/build/python/lib
scale_packages=("${tool_packages[@]}" "${python_test_packages[@]}" iproute2 munge mypy openssh-client openssh-server
    parallel python3-distributed python3-xxhash python3-zstandard slurm-wlm)

build() {
    cmake --preset ci-gcc
    cmake --build --preset ci-gcc --target vantro_c vantro_profile_cli
    cd bindings/python
    VANTRO_C_LIBRARY=$root/build/ci-gcc/bindings/c/libvantro-c.so.1 $python -W ignore setup.py -q build \
        --build-lib "$root/build/python/lib" --build-temp "$root/build/python/temp"
}

pure_parts() { $python -m pytest -q -p no:cacheprovider "$scale"; }

types() {
    cd "$scale"
    MYPYPATH=.:$root/bindings/python/src mypy --config-file pyproject.toml --cache-dir "$work/mypy" ./*.py tests
}

# export_single FOLDER: with the tool. Displays that cannot be read make its exit status 1.
export_single() { "$tool" export --quiet -j 2 "$archive" --to "$1" || (($? == 1)); }

prepare() {
    rm -rf "$work"
    mkdir -p "$work"
    $python "$scale/make_archive.py" "$archive" --displays 20000 --per-file 1500
    export_single "$work/single"
    wc -l "$work"/single/*.csv
}

# compare FOLDER: its tables with those of the single run.
compare() {
    local table
    for table in profiles elements notes problems; do cmp "$1/$table.csv" "$work/single/$table.csv"; done
}

# The parts of a table have a header each.
join_parts() {
    local table
    mkdir "$2"
    for table in profiles elements notes problems; do
        { head -n 1 "$1/$table/part-000000.csv" && tail -q -n +2 "$1/$table"/part-*; } >"$2/$table.csv"
    done
}

dask_with_a_killed_worker() {
    "$scale/run-in-namespaces.sh" "$archive" "$work/dask" "$work/dask-logs" 3 0.5
    grep "Remove worker .*name: worker-2, status: running" "$work/dask-logs/scheduler.log"
    join_parts "$work/dask" "$work/dask-joined"
    compare "$work/dask-joined"
}

check_finds_a_row_that_is_missing() {
    local part
    part=$(find "$work"/dask/elements/part-*3.csv | head -n 1)
    sed -i '2d' "$part"
    if $python "$scale/dask_archive.py" --check "$work/dask" >"$work/gap"; then return 1; fi
    grep -F "'$part' has " "$work/gap"
}

# fail_once NAME: a stand-in for the tool that is killed at its first task 1.
fail_once() {
    cat >"$work/$1" <<END
#!/usr/bin/env bash
if [[ "\$*" == *files-1\ * ]] && mkdir "$work/$1-failed" 2>/dev/null; then kill -KILL \$\$; fi
exec "$tool" "\$@"
END
    chmod +x "$work/$1"
    export VANTRO_PROFILE=$work/$1
}

# job_fails_then_succeeds JOB COMMAND...: the command's check names task 1 first; then it runs that one alone.
job_fails_then_succeeds() {
    local job=$1 before after
    shift
    if "$@"; then return 1; fi
    before=$(stat -c %Y.%y "$job/part-0/profiles.csv")
    "$@"
    after=$(stat -c %Y.%y "$job/part-0/profiles.csv")
    [[ $before == "$after" ]]
    [[ $(tr '\n' ' ' <"$job/status-1") == "137 "[01]" " ]]
    $python "$scale/parts.py" join "$job" "$job-joined"
    compare "$job-joined"
}

# slurm_run JOB: submits, waits for the job that checks, and has its status.
slurm_run() {
    local check
    check=$("$scale/slurm/submit.sh" "$archive" 6 "$1")
    while [[ -n $(squeue --noheader --jobs="$check" --states=PENDING,RUNNING,COMPLETING) ]]; do sleep 0.5; done
    squeue --states=all --array --format="%.12i %.14j %.10T %.20S %.20e"
    cat "$1/check.log"
    [[ $(squeue --noheader --jobs="$check" --states=all --format=%T) == COMPLETED ]]
}

slurm_with_a_killed_task() {
    fail_once slurm-tool
    "$scale/slurm/one-node.sh" "$work/slurm" "$root/scripts/scale.sh" slurm-job
    grep -E "JobId=1_1\([0-9]+\) WEXITSTATUS 1" "$work/slurm/slurmctld.log"
}

parallel_with_a_killed_task() {
    fail_once parallel-tool
    "$scale/one-ssh-server.sh" "$work/ssh" "$root/scripts/scale.sh" parallel-job
    cat "$work/job parallel/tasks.log"
    # Both hosts took part, and each task but the killed one ran once.
    grep -q hosta "$work/job parallel/tasks.log" && grep -q hostb "$work/job parallel/tasks.log"
    (($(wc -l <"$work/job parallel/tasks.log") == 1 + 6 + 1))
}

parallel_run() { "$scale/parallel.sh" hosta,hostb 1 "$archive" 6 "$1"; }

# figures: the best of three runs each, which take turns.
figures() {
    local displays=${1:-100000} turn workers
    archive=$work/large
    rm -rf "$archive"
    $python "$scale/make_archive.py" "$archive" --displays "$displays"
    du -sh --apparent-size "$archive"
    for turn in 1 2 3; do
        for workers in 1 2 4; do
            rm -rf "$work/figures"
            echo "turn $turn, $workers workers"
            $python "$scale/dask_archive.py" "$archive" --to "$work/figures" --workers $workers --block-mb 4
        done
        rm -rf "$work/figures"
        echo "turn $turn, the tool"
        (time "$tool" export "$archive" --to "$work/figures" || true) 2>&1 | grep -E "displays|real"
    done
}

main() {
    install_missing "${scale_packages[@]}"
    step "build the tool and the Python package" strictly build
    check "pure parts" strictly pure_parts
    check "types" strictly types
    step "an archive and its export by one run" strictly prepare
    if ((EUID == 0)); then
        check "Dask: a killed worker" strictly dask_with_a_killed_worker
        check "Dask: --check finds a row that is missing" strictly check_finds_a_row_that_is_missing
        check "Slurm: a killed task" strictly slurm_with_a_killed_task
        check "GNU parallel: a killed task" strictly parallel_with_a_killed_task
    else
        echo "  skipped the runs: they need root"
        skipped=$((skipped + 4))
    fi
    close_counts
}

# In braces, so that a change of this file while it runs does no harm.
{
    case ${1:-} in
    figures) figures "${2:-}" ;;
    slurm-job) job_fails_then_succeeds "$work/job slurm" slurm_run "$work/job slurm" ;;
    parallel-job) job_fails_then_succeeds "$work/job parallel" parallel_run "$work/job parallel" ;;
    *) main ;;
    esac
    exit
}
