#!/usr/bin/env bash
# Exports a generated archive of displays into CSV and SQLite, checks that all counts agree with `parse`, kills runs in
# the middle, removes rows for --check to find, and asks the queries of docs/archive-queries.md.
#
# scripts/archives.sh [--displays N] [--pipe GIGABYTES]: 50,000 displays and 0.2 GB through a pipe unless told
# otherwise. A million displays take about half an hour and 25 GB of disk. The last line is "N passed, N failed, N
# skipped".
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

install_missing "${archive_packages[@]}"
step "archives: configure" cmake --preset ci-gcc
step "archives: build" cmake --build --preset ci-gcc --target vantro_profile_cli
/usr/bin/python3 tests/archives/archive_run.py build/ci-gcc/bin/vantro-profile build/archives "$@"
