#!/usr/bin/env bash
# The long checks, beside scripts/test.sh: format, shellcheck, clang-tidy and the sanitizers, other projects that use the
# library, its binary interfaces, the packages for Python and JavaScript, exported archives, the scalar variant, 64-bit
# ARM under an emulator, threads, coverage, the exports of a shared build, hardening, the same bytes twice, the 32-bit COM
# clients, the archive for Windows, the site, pages in a browser, the fuzz targets and a sample of mutations. Takes 40 to
# 65 minutes on two cores, after the packages that it installs (Debian 12; root or sudo). The last line of a green run is
# "N passed, 0 failed, M skipped".
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

check_format() { our_sources | xargs -0 clang-format --dry-run -Werror; }
check_scripts() { shellcheck -x -S warning scripts/*.sh packaging/windows/*.sh packaging/windows/test/*.sh packaging/debian/tests/{tool,python,cpp,c} examples/scale/*.sh examples/scale/slurm/* .ci/run; }

main() {
    install_missing "${check_packages[@]}"
    bash scripts/test-com.sh install x86 again
    check "format" strictly check_format
    check "shellcheck" strictly check_scripts
    build_and_test ci-clang # address and undefined-behaviour sanitizers, clang-tidy
    count_closing_line "consumers" bash scripts/consumers.sh
    count_closing_line "binary interfaces" bash scripts/abi.sh check
    count_closing_line "Python packages" bash scripts/python.sh
    count_closing_line "npm package and playground" bash scripts/javascript.sh
    count_closing_line "archives" bash scripts/archives.sh
    count_closing_line "examples for automation clients" bash scripts/com-languages.sh
    build_and_test scalar
    build_and_test arm64
    build_and_test tsan
    check "coverage" bash scripts/coverage.sh
    { grep -E '^(lines|branches|not covered|  )' "$log" || true; } | sed 's/^/          /'
    count_closing_line "the same bytes twice" bash scripts/check-reproducible.sh
    count_closing_line "exports of a shared build" bash scripts/check-exports.sh
    count_closing_line "hardening" bash scripts/check-hardening.sh
    count_closing_line "COM server, 32-bit, and the same bytes twice" bash scripts/test-com.sh x86 again
    tail -n 3 "$log" | sed 's/^/          /'
    count_closing_line "archive for Windows" bash scripts/test-windows-zip.sh
    count_closing_line "site" bash scripts/site.sh browser
    count_closing_line "pages in a browser" bash scripts/test-browser.sh
    check "fuzz targets" bash scripts/fuzz.sh --seconds-each 10
    check "sample of mutations" bash scripts/mutate.sh 40 1 --at-least 95
    tail -n 1 "$log" | sed 's/^/          /'
    close_counts
}

# In braces, so that a change of this file while it runs does no harm.
{
    main
    exit
}
