#!/usr/bin/env bash
# test-com.sh [install] [x64] [x86] [again]: builds the COM server for these kinds of Windows process, or for both, and
# runs its clients: 64-bit ones under Wine, 32-bit ones in a private Debian root, because a 64-bit machine's own Wine
# need not run those. "again" builds the libraries of both kinds once more and compares them byte for byte. What is
# missing is installed and downloaded at the beginning (Debian); with "install" nothing else is done. The last line is
# "N passed, N failed, N skipped".
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh
# shellcheck source=scripts/private_root.sh
source scripts/private_root.sh

install_only=
if [[ ${1:-} == install ]]; then
    install_only=yes
    shift
fi
architectures=${*:-x64 x86}
packages=()
for architecture in $architectures; do
    case $architecture in
        x64) packages+=("${com_x64_packages[@]}") ;;
        x86) packages+=("${com_x86_packages[@]}") ;;
        again) packages+=("${com_x64_packages[@]}" "${com_x86_packages[@]}") ;;
        *) echo "test-com.sh: $architecture is neither x64, x86 nor again" >&2 && exit 2 ;;
    esac
done

note=

# check_library ARCHITECTURE TRIPLET FORMAT FLAGS FILE: the file's kind, how it may be loaded, its exports and what it
# needs.
check_library() {
    local dump=$2-objdump file=$root/build/mingw-$1/bin/$5 foreign flags
    "$dump" -f "$file" | grep -q "file format $3"
    flags=0x$("$dump" -p "$file" | sed -nE 's/^DllCharacteristics\s+([0-9a-f]+)$/\1/p')
    if (((flags & $4) != $4)); then
        printf '%s: DllCharacteristics %s, expected %s\n' "$5" "$flags" "$4"
        return 1
    fi
    "$dump" -h "$file" | grep '\.reloc' # without it no other address is possible
    "$dump" -p "$file" | sed -n '/Ordinal\/Name Pointer/,/^$/p' | sed -nE 's/^\s*\[ *[0-9]+\] .*\<(\w+)$/\1/p' |
        diff <(printf '%s\n' DllCanUnloadNow DllGetClassObject DllRegisterServer DllUnregisterServer) -
    foreign=$("$dump" -p "$file" | sed -n 's/.*DLL Name: //p' |
        grep -viE '^(advapi32|kernel32|msvcrt|ole32|oleaut32|user32)\.dll$' || true)
    if [[ -n $foreign ]]; then
        echo "$5 needs $foreign"
        return 1
    fi
}
export -f check_library

# same_again ARCHITECTURE: the libraries of a second build, in another folder, without any cache and without precompiled
# headers, byte for byte.
same_again() {
    local again=$root/build/com/again-$1 file
    rm -rf "$again"
    cmake --preset "mingw-$1" -B "$again" -DVANTRO_BUILD_TESTS=OFF -DVANTRO_BUILD_EXAMPLES=OFF \
        -DVANTRO_BUILD_CLI=OFF -DVANTRO_QUICK_TESTS=OFF
    CCACHE_DISABLE=1 cmake --build "$again" --target VantroProfileUtils VantroKestoFaces -j 2
    for file in VantroProfileUtils.dll VantroKestoFaces.dll; do
        cmp "$root/build/mingw-$1/bin/$file" "$again/bin/$file"
    done
    rm -rf "$again"
}
export -f same_again

# checked TITLE COMMAND...: a check that also counts when it passes.
checked() {
    if run_logged "$@"; then passed=$((passed + 1)); else failed=$((failed + 1)); fi
}

build() {
    step "mingw-$1: build" cmake --build --preset "mingw-$1" --target vantro_com_everything -j 2
    local file
    for file in VantroProfileUtils.dll VantroKestoFaces.dll; do
        checked "mingw-$1: $file" bash -euo pipefail -c "root=$root; check_library $1 $2 $3 $4 $file"
    done
}

build_again() {
    step "mingw-$1: libraries" cmake --build --preset "mingw-$1" --target VantroProfileUtils VantroKestoFaces -j 2
    checked "mingw-$1: the same bytes again" bash -euo pipefail -c "root=$root; same_again $1"
}

skip_x86() {
    note="The 32-bit clients were not run: $1."
    skipped=$((skipped + 1))
}

test_x86() {
    local reason
    reason=$(obstacle)
    if [[ -n $reason ]]; then skip_x86 "$reason" && return; fi
    # A kernel without 32-bit programs cannot start them, whatever is installed.
    if ! run_privately /lib/ld-linux.so.2 --version >/dev/null 2>&1; then
        skip_x86 "this machine runs no 32-bit programs" && return
    fi
    count_closing_line "x86 clients" run_privately bash "$root/scripts/com-clients.sh" x86
}

install_missing "${packages[@]}"
if [[ $architectures == *x86* ]]; then install_private_root; fi
# Configuring downloads what Debian has no package of for these compilers.
for architecture in x64 x86; do
    if [[ $architectures != *$architecture* && $architectures != *again* ]]; then continue; fi
    step "mingw-$architecture: configure" cmake --preset "mingw-$architecture"
done
if [[ -n $install_only ]]; then exit; fi

# No data as code (0x100), any address (0x40), in the whole address space (0x20).
if [[ $architectures == *x64* ]]; then
    build x64 x86_64-w64-mingw32 pei-x86-64 0x160
    count_closing_line "x64 clients" bash scripts/com-clients.sh x64
    grep -h '^late-bound ' "$log" || true
fi
if [[ $architectures == *x86* ]]; then
    build x86 i686-w64-mingw32 pei-i386 0x140
    test_x86
    grep -h '^late-bound ' "$log" || true
fi
if [[ $architectures == *again* ]]; then
    build_again x64
    build_again x86
fi
if [[ -n $note ]]; then echo "$note"; fi
echo "$passed passed, $failed failed, $skipped skipped"
((failed == 0))
