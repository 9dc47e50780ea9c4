#!/usr/bin/env bash
# scripts/mutate.sh [N] [SEED]: changes the library one token at a time at N random places and runs the tests against
# each change. Closes with how many died; --help shows the options. Exit status 1 when too many survive.
set -euo pipefail
# shellcheck source=scripts/lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$root"

install_missing "${tool_packages[@]}" git python3 util-linux clang lld libgtest-dev libgmock-dev
# Three near misses of ten are looked at, where an ordinary run looks at one.
export VANTRO_TEST_EFFORT=${VANTRO_TEST_EFFORT:-101}
exec python3 scripts/mutate.py "$@"
