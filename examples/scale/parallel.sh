#!/usr/bin/env bash
# Exports an archive on several hosts with GNU parallel over ssh, and checks that no display is missing or there twice.
# The same command again runs the tasks that failed or did not run.
#
#     parallel.sh HOST,HOST... TASKS_PER_HOST FOLDER TASKS JOB
#
# All hosts see FOLDER, the new folder JOB and this one under the same names, and have vantro-profile, or
# VANTRO_PROFILE says where it is. PARALLEL_SSH may have another command than ssh. For compressed files the check needs
# the package zstandard for Python.
set -euo pipefail
hosts=$1 per_host=$2 folder=$3 tasks=$4
here=$(cd "$(dirname "$0")" && pwd)
export VANTRO_PROFILE=${VANTRO_PROFILE:-vantro-profile}

if [[ ! -d $5 ]]; then "$here/parts.py" split "$folder" "$tasks" "$5"; fi
job=$(cd "$5" && pwd)
# Failed tasks are named by the check.
seq 0 $((tasks - 1)) | parallel --quote --sshlogin "$hosts" --jobs "$per_host" --env VANTRO_PROFILE \
    --joblog "$job/tasks.log" --resume-failed "$here/run-task.sh" "$job" {} || true
"$here/parts.py" check "$job"
