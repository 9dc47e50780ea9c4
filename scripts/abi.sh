#!/usr/bin/env bash
# Compares the binary interfaces of the shared C++ library and of the C library with those of the last release, whose
# dumps are in packaging/abi. What a program calls or contains may only be added to, unless the library got a new
# SONAME (docs/versions.md). Takes about a minute on two cores, after the Debian packages that it installs.
#
#   scripts/abi.sh check   compares; the last line of a green run is "N passed, 0 failed, M skipped"
#   scripts/abi.sh dump    replaces the dumps: a step of a release
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

export dumps=$root/packaging/abi work=$root/build/abi
libraries=(VantroProfileUtils vantro-c)

# dump LIBRARY: the interface that the headers of a library declare, as build/abi/LIBRARY.abi.
dump() {
    local built=$root/build/consumers/shared/vantro/libVantroProfileUtils.so headers=include
    if [[ $1 == vantro-c ]]; then
        built=$root/build/consumers/shared/vantro/bindings/c/libvantro-c.so headers=bindings/c/include
    fi
    mkdir -p "$work"
    abidw --headers-dir $headers --suppr "$dumps/ours.suppr" --exported-interfaces-only --drop-private-types \
        --drop-undefined-syms --no-elf-needed --no-corpus-path --no-comp-dir-path --no-show-locs --no-parameter-names \
        --no-write-default-sizes --out-file "$work/$1.abi" "$built"
}

soname_in() { sed -n "1s/.* soname='\([^']*\)'.*/\1/p" "$1"; }

# compare OLD NEW: fails if a program that was linked with the old library may fail with the new one. Says what is new.
compare() {
    local old new
    old=$(soname_in "$1") new=$(soname_in "$2")
    if [[ -z $old || -z $new ]]; then
        echo "no dump of a library: $1 or $2"
        return 1
    fi
    if [[ $old != "$new" ]]; then
        echo "$new replaces $old: everything may change"
    elif abidiff --no-added-syms "$1" "$2"; then
        abidiff "$1" "$2" || true
    else
        echo "Incompatible with the last release. Take it back, or change the SONAME (docs/versions.md)."
        return 1
    fi
}

# compare_with_release LIBRARY
compare_with_release() {
    gzip -dc "$dumps/$1.abi.gz" >"$work/$1-released.abi"
    compare "$work/$1-released.abi" "$work/$1.abi"
}

# without FUNCTION FILE: the dump without one function.
without() {
    sed "/<elf-symbol name='$1'/d; /<function-decl .* elf-symbol-id='$1[@']/,/<\/function-decl>/d" "$2"
}

accepts_an_added_function() {
    without vantro_profile_parse "$work/vantro-c.abi" >"$work/fewer.abi"
    compare "$work/fewer.abi" "$work/vantro-c.abi" | grep -F "[A] 'function int32_t vantro_profile_parse("
}

# refuses OLD NEW
refuses() {
    if compare "$1" "$2" >"$work/refused.txt"; then return 1; fi
    grep -F "Incompatible with the last release" "$work/refused.txt"
}

refuses_a_removed_function() { refuses "$work/vantro-c.abi" "$work/fewer.abi"; }

refuses_a_moved_virtual_function() {
    sed "s/ vtable-offset='2'/ vtable-offset='3'/" "$work/VantroProfileUtils.abi" >"$work/moved.abi"
    refuses "$work/VantroProfileUtils.abi" "$work/moved.abi"
}

refuses_a_moved_member() {
    sed "s/ layout-offset-in-bits='640'/ layout-offset-in-bits='704'/" "$work/VantroProfileUtils.abi" >"$work/moved.abi"
    refuses "$work/VantroProfileUtils.abi" "$work/moved.abi"
}

accepts_a_new_soname() {
    sed "1s/ soname='[^']*'/ soname='another'/" "$work/fewer.abi" >"$work/renamed.abi"
    compare "$work/vantro-c.abi" "$work/renamed.abi"
}

main() {
    local library
    install_missing "${abi_packages[@]}"
    step "shared libraries with debug information" strictly "build_consumed shared"
    for library in "${libraries[@]}"; do
        step "$library: dump" strictly "dump $library"
        if [[ $1 == dump ]]; then
            gzip -9nc "$work/$library.abi" >"$dumps/$library.abi.gz"
        elif [[ $(uname -m) == x86_64 ]]; then
            check "$library: compatible with the last release" strictly "compare_with_release $library"
            { grep -A 99 -E "^[0-9]+ Added" "$log" || true; } | sed 's/^/          /'
        else
            skipped=$((skipped + 1)) # the dumps are those of x86-64
        fi
    done
    if [[ $1 == dump ]]; then return; fi
    check "an added function is accepted" strictly accepts_an_added_function
    check "a removed function is refused" strictly refuses_a_removed_function
    check "a moved virtual function is refused" strictly refuses_a_moved_virtual_function
    check "a moved member is refused" strictly refuses_a_moved_member
    check "a new SONAME may change everything" strictly accepts_a_new_soname
    close_counts
}

# In braces, so that a change of this file while it runs does no harm.
{
    case ${1:-} in
    check | dump) main "$1" ;;
    *) echo "usage: scripts/abi.sh check|dump" >&2 && exit 2 ;;
    esac
    exit
}
