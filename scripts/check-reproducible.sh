#!/usr/bin/env bash
# Builds the release library and tool twice, here and in a folder with a longer name and without a cache, and compares the
# files byte by byte. Installs what is missing (Debian).
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

install_missing "${tool_packages[@]}"
work=$root/build/reproducible
files=(libVantroProfileUtils.a bin/vantro-profile)
copy=$work/another-folder

step "release: configure" cmake --preset release
step "release: build" cmake --build --preset release -j 2
rm -rf "$work"
mkdir -p "$copy"
tar -c --exclude=./build --exclude=./.git . | tar -x -C "$copy"
step "release again: configure" cmake -S "$copy" --preset release
CCACHE_DISABLE=1 step "release again: build" cmake --build "$copy/build/release" -j 2

for file in "${files[@]}"; do
    if cmp "build/release/$file" "$copy/build/release/$file"; then
        echo "  ok      $file: $(sha256sum <"build/release/$file" | cut -d ' ' -f 1)"
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
    fi
done
close_counts
