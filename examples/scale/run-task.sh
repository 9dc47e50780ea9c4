#!/usr/bin/env bash
# Task N of a job that parts.py split: exports its files to JOB/part-N and notes the exit status in JOB/status-N.
#
#     run-task.sh JOB N
#
# A task that was interrupted and runs again continues its export. One with no files has nothing to do.
set -euo pipefail
job=$1 task=$2 status=0
if [[ -s $job/files-$task ]]; then
    "${VANTRO_PROFILE:-vantro-profile}" export --quiet --files-from "$job/files-$task" -0 --to "$job/part-$task" ||
        status=$?
fi
echo "$status" >>"$job/status-$task"
# 1: a display could not be read, and is in problems.csv.
((status <= 1))
