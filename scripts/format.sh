#!/usr/bin/env bash
# Brings every C++ file into the project's format.
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

our_sources | xargs -0 clang-format -i
