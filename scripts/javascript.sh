#!/usr/bin/env bash
# Builds the library as WebAssembly and the npm package around it, build/js/dist, and the playground, build/js/playground.
# Runs the package's tests, tries the package in a clean folder, checks its types and opens the playground in a browser.
# Takes some minutes on two cores, after the Debian packages that it installs. The last line of a green run is
# "N passed, 0 failed, M skipped".
#
# scripts/javascript.sh --playground FOLDER only builds the playground: FOLDER/index.html, which needs no other file.
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

export work=$root/build/js

build_module() {
    emcmake cmake -G Ninja -S bindings/js/wasm -B "$work"
    nice cmake --build "$work"
    node bindings/js/make_package.mjs "$work/vantro.wasm" "$work/package"
}

# Closes with the counts of Node's test runner.
run_tests() {
    node --test --test-reporter=tap bindings/js/tests/*.test.js | awk '
        { print }
        /^# (pass|fail|skipped) / { count[$2] = $3 }
        END { printf "%d passed, %d failed, %d skipped\n", count["pass"], count["fail"], count["skipped"] }'
}

pack() {
    rm -rf "$work/dist"
    mkdir -p "$work/dist"
    (cd "$work/package" && npm pack --offline --pack-destination "$work/dist")
    ls -l "$work"/dist/*.tgz
}

# The package in a folder with nothing else, without a network: the program of docs/javascript.md prints what the page
# says.
try_package() {
    rm -rf "$work/clean"
    mkdir -p "$work/clean"
    echo '{"private": true}' >"$work/clean/package.json"
    (cd "$work/clean" && npm install --offline --no-audit --no-fund "$work"/dist/*.tgz)
    sed -n '/^```js$/,/^```$/{/^```/!p}' docs/javascript.md >"$work/clean/page.mjs"
    sed -n '/^```output$/,/^```$/{/^```/!p}' docs/javascript.md >"$work/clean/expected.txt"
    test -s "$work/clean/page.mjs"
    node "$work/clean/page.mjs" | diff "$work/clean/expected.txt" -
}

check_types() {
    cp bindings/js/tests/types.mts "$work/clean"
    (cd "$work/clean" && tsc --noEmit --strict --target es2022 --module node16 --moduleResolution node16 types.mts)
}

build_playground() { node site/playground/build.mjs "$work/package" "$1"; }

# Debian's own Python has Debian's modules.
open_playground() { /usr/bin/python3 site/playground/tests/playground_test.py "$work/playground"; }

playground() {
    install_missing "${wasm_packages[@]}"
    step "WebAssembly and package" strictly build_module
    step "playground" build_playground "$1"
}

main() {
    if ! command -v npm >/dev/null; then javascript_packages+=(npm); fi
    install_missing "${javascript_packages[@]}"
    step "WebAssembly and package" strictly build_module
    count_closing_line "tests of the package" strictly run_tests
    step "npm pack" strictly pack
    check "the package alone" strictly try_package
    check "types" strictly check_types
    rm -rf "$work/playground"
    check "playground" build_playground "$work/playground"
    count_closing_line "playground in a browser" open_playground
    close_counts
}

# In braces, so that a change of this file while it runs does no harm.
{
    if [[ ${1:-} == --playground ]]; then playground "${2:?the folder of the playground is missing}"; else main; fi
    exit
}
