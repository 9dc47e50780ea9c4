#!/usr/bin/env bash
# The test run for everyone: one optimised GCC build with every test, the samples, the tool and the installed package,
# and the COM server with its 64-bit clients. Takes five to eight minutes on two cores, after the packages that it
# installs (Debian 12; root or sudo). scripts/check.sh has the long checks. The last line of a green run is
# "N passed, 0 failed, M skipped".
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

main() {
    install_missing "${test_packages[@]}"
    bash scripts/test-com.sh install x64
    build_and_test ci-gcc
    count_closing_line "installed package" bash scripts/consumers.sh quick
    check "Python package" bash scripts/python.sh quick
    count_closing_line "COM server, 64-bit" bash scripts/test-com.sh x64
    # Speeds, what could not be run and why, and the counts.
    tail -n 3 "$log" | sed 's/^/          /'
    close_counts
}

# In braces, so that a change of this file while it runs does no harm.
{
    main
    exit
}
