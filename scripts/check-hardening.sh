#!/usr/bin/env bash
# Reads the built tool and the shared library: are the protections of cmake/hardening.cmake in them? It builds both,
# as a release. Installs what is missing (Debian).
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

install_missing "${tool_packages[@]}" binutils
build=build/shared
tool=build/release/bin/vantro-profile
library=$build/libVantroProfileUtils.so
step "release: configure" cmake --preset release
step "release: build" cmake --build --preset release -j 2
step "shared library: configure" cmake --preset release -B $build -DBUILD_SHARED_LIBS=ON -DVANTRO_BUILD_CLI=OFF
step "shared library: build" cmake --build $build -j 2

# expect FILE WHAT READELF-OPTION PATTERN
expect() {
    # The whole output is read: grep -q would close the pipe early.
    if LC_ALL=C readelf -W "$3" "$1" | grep -E "$4" >/dev/null; then
        echo "  ok      $1: $2"
        passed=$((passed + 1))
    else
        echo "  FAILED  $1: $2" >&2
        failed=$((failed + 1))
    fi
}

for file in $tool $library; do
    expect $file "position independent" --file-header 'Type: +DYN '
    expect $file "relocations read-only after the start" --program-headers 'GNU_RELRO'
    expect $file "all symbols bound at the start" --dynamic 'BIND_NOW|FLAGS_1.*NOW'
    expect $file "stack protector" --dyn-syms '__stack_chk_fail'
    expect $file "no executable stack" --program-headers 'GNU_STACK.* RW '
done
expect $tool "an executable" --dynamic 'FLAGS_1.*PIE'

# Neither file need contain a call that is fortified: the compiler proves most of the sizes. So a call whose size it
# cannot prove is compiled with the library's own switches.
switches=$(sed -nE 's/^ *"command": "(.*) -o [^ ]+ -c [^ ]+framework\/error\.cpp",?$/\1/p' $build/compile_commands.json)
read -ra compiler <<<"${switches//\\/}"
"${compiler[@]}" -x c++ -c -o $build/probe.o - <<<'#include <cstring>
void use(char*); void probe(const char* s, std::size_t n) { char part[8]; std::memcpy(part, s, n); use(part); }'
expect $build/probe.o "fortified calls" --syms '__memcpy_chk'
if [[ $(uname -m) == x86_64 ]]; then
    for file in $tool $library; do
        # Every function that a pointer can reach opens with this instruction.
        if objdump -d --no-show-raw-insn $file | grep endbr64 >/dev/null; then
            echo "  ok      $file: marked branch targets"
            passed=$((passed + 1))
        else
            echo "  FAILED  $file: marked branch targets" >&2
            failed=$((failed + 1))
        fi
    done
else
    echo "  skipped marked branch targets: no 64-bit Intel machine"
    skipped=$((skipped + 2))
fi
close_counts
