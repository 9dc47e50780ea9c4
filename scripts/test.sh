#!/usr/bin/env bash
# The test run for everyone: one optimised GCC build with every test, the samples, the tool and the installed package,
# and the COM server with its 64-bit clients. Takes about five minutes on two cores, after the packages that it
# installs (Debian 12; root or sudo). scripts/check.sh has the long checks. The last line of a green run is
# "N passed, 0 failed, M skipped".
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

# Installs the libraries and builds the README's project against them, as users would: with find_package and with
# pkg-config, in C++ and in C.
check_package() {
    local work=$root/build/package flags
    rm -rf "$work"
    mkdir -p "$work/source" "$work/c_source"
    cmake --install build/ci-gcc --prefix "$work/prefix"
    cp tests/package/CMakeLists.txt "$work/source"
    cp examples/name_search.cpp "$work/source/main.cpp"
    cp tests/package/c/CMakeLists.txt "$work/c_source"
    cp bindings/c/examples/read_profile.c "$work/c_source/main.c"
    cmake -S "$work/source" -B "$work/build" -G Ninja -DCMAKE_PREFIX_PATH="$work/prefix"
    cmake --build "$work/build"
    "$work/build/my_terminal" | grep -F "send: PDN/-SMITH/ANNA/"
    cmake -S "$work/c_source" -B "$work/c_build" -G Ninja -DCMAKE_PREFIX_PATH="$work/prefix"
    cmake --build "$work/c_build"
    "$work/c_build/my_reader" samples/profiles/traveller.txt | grep -F "5: CALL THE MOBILE BEFORE ANY CHANGE"

    PKG_CONFIG_PATH=$(dirname "$(find "$work/prefix" -name vantro-c.pc)")
    export PKG_CONFIG_PATH
    read -ra flags <<<"$(pkg-config --cflags --libs vantro-profile-utils)"
    g++ -std=c++20 "$work/source/main.cpp" "${flags[@]}" -o "$work/plain_terminal"
    "$work/plain_terminal" | grep -F "send: PDN/-SMITH/ANNA/"
    read -ra flags <<<"$(pkg-config --cflags --libs vantro-c)"
    gcc -std=c11 -Wall -Wextra -Wpedantic -Werror "$work/c_source/main.c" "${flags[@]}" -o "$work/plain_reader"
    LD_LIBRARY_PATH=$(pkg-config --variable=libdir vantro-c) \
        "$work/plain_reader" samples/profiles/traveller.txt | grep -F "5: CALL THE MOBILE BEFORE ANY CHANGE"
}

main() {
    install_missing "${test_packages[@]}"
    bash scripts/test-com.sh install x64
    build_and_test ci-gcc
    check "install, find_package and pkg-config" strictly check_package
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
