#!/usr/bin/env bash
# Builds and runs every test. Installs what is missing for that (Debian). The last line of a green run is
# "N passed, 0 failed, M skipped".
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

check_format() { our_sources | xargs -0 clang-format --dry-run -Werror; }

check_scripts() {
    local script
    for script in scripts/*.sh .ci/run; do bash -n "$script"; done
    if command -v shellcheck >/dev/null; then shellcheck -x -S warning scripts/*.sh .ci/run; fi
}

# Installs the library and builds the README's project against it, as a user would.
check_package() {
    local work=$root/build/package
    rm -rf "$work"
    mkdir -p "$work/source"
    cmake --install build/ci-gcc --prefix "$work/prefix"
    cp tests/package/CMakeLists.txt "$work/source"
    cp examples/name_search.cpp "$work/source/main.cpp"
    cmake -S "$work/source" -B "$work/build" -G Ninja -DCMAKE_PREFIX_PATH="$work/prefix"
    cmake --build "$work/build"
    "$work/build/my_terminal" | grep -F "send: PDN/-SMITH/ANNA/"
}

# Runs a function of this project's scripts so that its first failing command ends it.
strictly() { bash -euo pipefail -c "$(declare -p root); $(declare -f our_sources "$1"); $1"; }

build_and_test() {
    step "$1: configure" cmake --preset "$1"
    step "$1: build" cmake --build --preset "$1"
    count_ctest "$1: tests" "$1"
}

main() {
    install_missing "${tool_packages[@]}" libgtest-dev libgmock-dev clang clang-format clang-tidy libclang-rt-dev
    check "format" strictly check_format
    check "scripts" strictly check_scripts
    build_and_test ci-gcc
    build_and_test ci-clang # with clang-tidy over every source
    build_and_test asan
    check "install and find_package" strictly check_package
    if [[ -f scripts/test-com.sh ]]; then
        count_closing_line "COM server" bash scripts/test-com.sh
        # Speeds, what could not be run and why, and the counts.
        tail -n 4 "$log" | sed 's/^/          /'
    fi
    echo "$passed passed, $failed failed, $skipped skipped"
    ((failed == 0))
}

main
exit
