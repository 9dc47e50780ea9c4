#!/usr/bin/env bash
# scripts/mutate.sh [N] [SEED]: changes the library one token at a time at N random places and runs the tests against
# each change. Prints at the end how many changes the tests noticed; --help shows the options. Exit status 1 when too
# many survive.
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$root"

install_missing "${tool_packages[@]}" git python3 util-linux clang lld libgtest-dev libgmock-dev
# Visits three near misses of ten; an ordinary run visits one.
export VANTRO_TEST_EFFORT=${VANTRO_TEST_EFFORT:-101}
exec python3 scripts/mutate.py "$@"
