#!/usr/bin/env bash
# Tries dask_archive.py on a network of its own: a scheduler and workers, each in a network namespace with an address of
# its own on one bridge. In the middle of the run one worker is killed.
#
#     run-in-namespaces.sh FOLDER DIR LOGS [WORKERS [BLOCK_MB]]
#
# Needs root, and vantro_profile in PYTHONPATH. LOGS gets a log of the scheduler, of each worker and of the client.
# Fails if the killed worker had no task, or if the tables are not complete.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
folder=$1 to=$2 logs=$3 workers=${4:-3} block=${5:-1}
python=/usr/bin/python3
bridge=vbr$$
spaces=()
pids=()
mkdir -p "$logs"

remove() {
    for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
    wait || true
    for space in "${spaces[@]}"; do ip netns del "$space"; done
    ip link del "$bridge"
}
trap remove EXIT

# add_space NUMBER: the namespace v$$-NUMBER with the address 10.77.0.NUMBER.
add_space() {
    local space=v$$-$1
    ip netns add "$space"
    spaces+=("$space")
    ip link add "v$$h$1" type veth peer name "v$$n$1"
    ip link set "v$$h$1" master "$bridge" up
    ip link set "v$$n$1" netns "$space"
    ip -n "$space" addr add "10.77.0.$1/24" dev "v$$n$1"
    ip -n "$space" link set "v$$n$1" up
    ip -n "$space" link set lo up
}

# start NUMBER LOG COMMAND...: in a namespace; its process is the last of pids.
start() {
    local space=v$$-$1 log=$2
    shift 2
    ip netns exec "$space" "$@" >"$logs/$log" 2>&1 &
    pids+=($!)
}

parts() { find "$to/notes" -name 'part-*' 2>/dev/null | wc -l; }

ip link add "$bridge" type bridge
ip link set "$bridge" up
for ((number = 1; number <= workers + 1; ++number)); do add_space $number; done

start 1 scheduler.log $python -m distributed.cli.dask_scheduler --host 10.77.0.1 --port 8786 --no-dashboard
for ((worker = 1; worker <= workers; ++worker)); do
    # Without a nanny, which would start the worker again.
    start $((worker + 1)) "worker-$worker.log" $python -m distributed.cli.dask_worker tcp://10.77.0.1:8786 \
        --name "worker-$worker" --nthreads 1 --no-nanny --no-dashboard --local-directory "$logs/worker-$worker"
done
start 1 client.log $python "$here/dask_archive.py" "$folder" --to "$to" --scheduler tcp://10.77.0.1:8786 \
    --block-mb "$block"
client=${pids[-1]} victim=${pids[2]}

while (($(parts) < 10)); do
    if ! kill -0 "$client" 2>/dev/null; then
        cat "$logs/client.log" >&2
        exit 1
    fi
    sleep 0.05
done
kill -KILL "$victim"
echo "killed worker-2 (process $victim, 10.77.0.3) after $(parts) parts"
wait "$client" || { cat "$logs/client.log" >&2 && exit 1; }
cat "$logs/client.log"
grep -q '^lost tcp://10.77.0.3:' "$logs/client.log"
$python "$here/dask_archive.py" --check "$to"
