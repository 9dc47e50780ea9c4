#!/usr/bin/env bash
# Exports an archive with an array job on Slurm: shares its files among tasks, and submits the tasks and a job that
# checks when all have ended. Prints the number of that job. The same command again submits the tasks that failed.
#
#     submit.sh FOLDER TASKS JOB
#
# All nodes see FOLDER, the new folder JOB and this one under the same names, and have vantro-profile, or
# VANTRO_PROFILE says where it is. For compressed files the check needs the package zstandard for Python.
set -euo pipefail
folder=$1 tasks=$2 job=$3
slurm=$(cd "$(dirname "$0")" && pwd)
export VANTRO_SCALE=${slurm%/*}

if [[ ! -d $job ]]; then "$VANTRO_SCALE/parts.py" split "$folder" "$tasks" "$job" >&2; fi
VANTRO_JOB=$(cd "$job" && pwd)
export VANTRO_JOB
unfinished=$("$VANTRO_SCALE/parts.py" unfinished "$job")
if [[ -z $unfinished ]]; then
    echo "all tasks have succeeded: parts.py check '$job'" >&2
    exit 1
fi
array=$(sbatch --parsable --export=ALL --array="$unfinished" --output="$VANTRO_JOB/task-%a.log" \
    --open-mode=append "$slurm/export.sbatch")
# afterany: the check names the tasks that failed.
sbatch --parsable --export=ALL --dependency="afterany:$array" --output="$VANTRO_JOB/check.log" \
    "$slurm/check.sbatch"
