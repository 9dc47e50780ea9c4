#!/usr/bin/env bash
# Runs a command on a Slurm of its own, with this machine as the only node, to try a job without a cluster.
#
#     one-node.sh DIR COMMAND...
#
# Needs root, and slurm-wlm and munge. DIR is new and gets the configuration, state and logs; the slurm.conf of the
# system is not touched. When the command ends, Slurm does too.
set -euo pipefail
mkdir -p "$1"
dir=$(cd "$1" && pwd)
shift
node=$(hostname -s)
cpus=$(nproc)
pids=()

# shellcheck disable=SC2317 # the trap calls it
stop() {
    for ((last = ${#pids[@]} - 1; last >= 0; --last)); do kill "${pids[last]}" 2>/dev/null || true; done
    wait || true
}
trap stop EXIT

mkdir -p "$dir"/{state,spool,munge}
chmod 755 "$dir"
chmod 700 "$dir/munge"
dd if=/dev/urandom of="$dir/munge/key" bs=1024 count=1 status=none
chmod 400 "$dir/munge/key"
cat >"$dir/slurm.conf" <<END
ClusterName=one
SlurmctldHost=$node(127.0.0.1)
SlurmctldPort=16817
SlurmdPort=16818
SlurmUser=root
SlurmdUser=root
AuthType=auth/munge
AuthInfo=socket=$dir/munge.socket
StateSaveLocation=$dir/state
SlurmdSpoolDir=$dir/spool
SlurmctldPidFile=$dir/slurmctld.pid
SlurmdPidFile=$dir/slurmd.pid
SlurmctldLogFile=$dir/slurmctld.log
SlurmdLogFile=$dir/slurmd.log
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
SwitchType=switch/none
MpiDefault=none
SelectType=select/cons_tres
SelectTypeParameters=CR_CPU
JobCompType=jobcomp/filetxt
JobCompLoc=$dir/jobs.log
ReturnToService=2
SchedulerParameters=sched_interval=2,batch_sched_delay=0
MinJobAge=3600
NodeName=$node NodeAddr=127.0.0.1 CPUs=$cpus State=UNKNOWN
PartitionName=all Nodes=$node Default=YES MaxTime=INFINITE State=UP
END
export SLURM_CONF=$dir/slurm.conf

# Everything under root, and the socket in a folder of ours.
munged --foreground --force --num-threads=2 --socket="$dir/munge.socket" --key-file="$dir/munge/key" \
    --pid-file="$dir/munge/pid" --seed-file="$dir/munge/seed" --log-file="$dir/munge/log" >"$dir/munged.log" 2>&1 &
pids+=($!)
for ((try = 0; try < 50; ++try)); do
    if [[ -S $dir/munge.socket ]]; then break; fi
    sleep 0.1
done
slurmctld -D -c -f "$SLURM_CONF" >"$dir/slurmctld.out" 2>&1 &
pids+=($!)
slurmd -D -c -N "$node" -f "$SLURM_CONF" >"$dir/slurmd.out" 2>&1 &
pids+=($!)
for ((try = 0; try < 100; ++try)); do
    if [[ $(sinfo --noheader --format=%t 2>/dev/null) == idle ]]; then
        "$@"
        exit
    fi
    sleep 0.3
done
echo "Slurm does not start; its logs are in $dir" >&2
tail -n 5 "$dir"/slurm*.log "$dir"/*.out >&2
exit 1
