#!/usr/bin/env bash
# Builds the release library and tool twice, in two folders with names of different lengths and without a cache, and
# compares the files byte by byte. Installs what is missing (Debian).
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

install_missing "${tool_packages[@]}"
work=$root/build/reproducible
files=(libVantroProfileUtils.a bin/vantro-profile)
folders=("$work/one" "$work/another-folder/two")
export CCACHE_DISABLE=1

rm -rf "$work"
for folder in "${folders[@]}"; do
    mkdir -p "$folder"
    tar -c --exclude=./build --exclude=./.git . | tar -x -C "$folder"
    step "$(basename "$folder"): configure" cmake -S "$folder" --preset release
    step "$(basename "$folder"): build" cmake --build "$folder/build/release" -j 2
done

for file in "${files[@]}"; do
    if cmp "${folders[0]}/build/release/$file" "${folders[1]}/build/release/$file"; then
        echo "  ok      $file: $(sha256sum <"${folders[0]}/build/release/$file" | cut -d ' ' -f 1)"
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
    fi
done
close_counts
