#!/usr/bin/env bash
# Opens the pages of explanations in headless Chromium and works with them by mouse and by keyboard. The screenshots are
# in build/browser/. What is missing is installed (Debian). The last line is "N passed, N failed, N skipped".
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

install_missing "${browser_packages[@]}"
if [[ ${1:-} == install ]]; then exit; fi
step "browser: configure" cmake --preset ci-gcc
step "browser: build" cmake --build --preset ci-gcc --target vantro_browser_pages
rm -rf build/browser
step "browser: pages" build/ci-gcc/bin/vantro_browser_pages build/browser
# Debian's own Python has Debian's modules.
/usr/bin/python3 tests/browser/page_test.py build/browser
