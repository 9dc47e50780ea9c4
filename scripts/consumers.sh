#!/usr/bin/env bash
# Uses the library as other projects do: as their subdirectory, installed with find_package and with pkg-config, static
# and shared, from C++ and from C. Each variant of the library is built once, as a subdirectory, and installed from
# there. Takes about a minute on two cores, after the Debian packages that it installs. The last line of a green run is
# "N passed, 0 failed, M skipped".
#
# scripts/consumers.sh quick installs the library that build/ci-gcc contains, and uses that one alone.
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

# Each row: the way, the variant of the library, the program.
rows=(
    "subdirectory  static  parse_profile.cpp"
    "subdirectory  static  read_profile.c"
    "find_package  static  parse_profile.cpp"
    "find_package  static  read_profile.c"
    "pkg-config    static  parse_profile.cpp"
    "pkg-config    static  read_profile.c"
    "subdirectory  shared  parse_profile.cpp"
    "subdirectory  shared  read_profile.c"
    "find_package  shared  parse_profile.cpp"
    "find_package  shared  border.cpp"
    "find_package  shared  read_profile.c"
    "pkg-config    shared  parse_profile.cpp"
    "pkg-config    shared  read_profile.c"
)

# use_it WAY VARIANT PROGRAM: builds the program in this way, runs it, and looks for a line of what it prints.
use_it() {
    local work=$root/build/consumers/$1-$2-$3 source expected run
    case $3 in
    parse_profile.cpp) source=examples/$3 expected="H4T9QZ LINDQVIST/AGNES MS" run=my_terminal ;;
    border.cpp) source=tests/package/$3 expected="all right" run=my_terminal ;;
    read_profile.c) source=bindings/c/examples/$3 expected="5: CALL THE MOBILE BEFORE ANY CHANGE" run=my_reader ;;
    esac
    rm -rf "$work"
    mkdir -p "$work"
    build_with_"${1/-/_}" "$2" "$source"
    "$work/$run" samples/profiles/traveller.txt | grep -Fx "$expected"
}

# The functions that build a program in one way see the variables of use_it.
build_with_subdirectory() { ln -s "../$1/$run" "$work/$run"; }

build_with_find_package() {
    local project=tests/package
    if [[ $2 == *.c ]]; then project=tests/package/c; fi
    cp $project/CMakeLists.txt "$work"
    cp "$2" "$work/main.${2##*.}"
    cmake -S "$work" -B "$work" -G Ninja -DCMAKE_PREFIX_PATH="$root/build/consumers/prefix-$1"
    cmake --build "$work"
}

build_with_pkg_config() {
    local prefix=$root/build/consumers/prefix-$1 package=vantro-profile-utils compiler=(g++ -std=c++20) flags
    if [[ $2 == *.c ]]; then package=vantro-c compiler=(gcc -std=c11); fi
    PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name $package.pc)")
    LD_LIBRARY_PATH=$(PKG_CONFIG_PATH=$PKG_CONFIG_PATH pkg-config --variable=libdir $package)
    export PKG_CONFIG_PATH LD_LIBRARY_PATH
    read -ra flags <<<"$(pkg-config --cflags --libs $package)"
    "${compiler[@]}" -Wall -Wextra -Wpedantic -Werror "$2" "${flags[@]}" -o "$work/$run"
}

# install_from BUILD VARIANT
install_from() {
    rm -rf "$root/build/consumers/prefix-$2"
    cmake --install "$1" --prefix "$root/build/consumers/prefix-$2"
}

# find_package accepts and refuses versions and components.
answer_requests() {
    local version
    version=$(sed -n 's/^project(VantroProfileUtils VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
    rm -rf "$root/build/consumers/requests"
    cmake -S tests/package/requests -B "$root/build/consumers/requests" -G Ninja -DINSTALLED="$version" \
        -DCMAKE_PREFIX_PATH="$root/build/consumers/prefix-static"
}

check_rows() {
    local row way variant program
    for row in "${rows[@]}"; do
        read -r way variant program <<<"$row"
        if [[ -n $quick && ($way == subdirectory || $variant == shared) ]]; then continue; fi
        check "$way, $variant library, $program" strictly "use_it $way $variant $program"
    done
    check "versions and components that find_package accepts" strictly answer_requests
}

main() {
    local variant
    install_missing "${consumer_packages[@]}"
    if [[ -n $quick ]]; then
        step "static library: install" strictly "install_from build/ci-gcc static"
    else
        for variant in static shared; do
            step "$variant library, in a project with C++ and C" strictly "build_consumed $variant"
            step "$variant library: install" strictly "install_from build/consumers/$variant $variant"
        done
    fi
    check_rows
    close_counts
}

# In braces, so that a change of this file while it runs does no harm.
{
    quick=${1:-}
    main
    exit
}
