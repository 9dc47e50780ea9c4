#!/usr/bin/env bash
# Reads what a shared build of the library exports: everything that the public headers mark and nothing else, on Linux
# and for Windows. scripts/consumers.sh uses such a build. Installs what is missing (Debian). The last line is "N passed,
# N failed, N skipped".
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

install_missing "${exports_packages[@]}"
export build=build/shared
export windows=build/shared-mingw-x64
step "shared library: configure" cmake --preset release -B $build -DBUILD_SHARED_LIBS=ON -DVANTRO_BUILD_CLI=OFF
step "shared library: build" cmake --build $build -j 2
step "shared library for Windows: configure" cmake --preset mingw-x64 -B $windows -DBUILD_SHARED_LIBS=ON \
    -DVANTRO_BUILD_COM=OFF -DVANTRO_BUILD_TESTS=OFF -DVANTRO_BUILD_CLI=OFF
step "shared library for Windows: build" cmake --build $windows -j 2

# The declarations with the mark; export.h defines it.
marked() { find include/vantro -name '*.h' ! -name export.h -exec grep -h '^[^/]*VANTRO_EXPORT' {} +; }
marked_classes() { marked | sed -nE 's/^class VANTRO_EXPORT (\w+).*/\1/p' | sort -u; }
marked_functions() { marked | sed -nE 's/.*VANTRO_EXPORT [^(]*\b(\w+)\(.*/\1/p' | sort -u; }

# The names right under vantro:: of the exported symbols. What belongs to the standard library are its own inline parts.
exported_names() {
    nm -D --defined-only --demangle $build/libVantroProfileUtils.so | cut -d ' ' -f 3- | grep -Ev '(^| for | to )std::' |
        sed -E 's/^(typeinfo name|typeinfo|vtable|non-virtual thunk) (for|to) //; s/^vantro::(\w+).*/\1/' | sort -u
}

exports_are_the_marked_names() { diff <(sort -u <(marked_classes) <(marked_functions)) <(exported_names); }

# A function at the border that carries no mark.
no_public_function_is_unmarked() {
    ! grep -nE '^[A-Za-z][A-Za-z0-9_:<>*& ,]* \*?&?\w+\(.*\);' include/vantro/*.h |
        grep -vE ':(VANTRO_EXPORT|constexpr|inline|using|static_assert) '
}

# A function of a type without the mark that is only declared in the header: a shared build would not export it.
no_unmarked_type_lacks_a_body() {
    ! awk '/^(struct|class) .*\{$/ { open = !/VANTRO_EXPORT/ } /^};/ { open = 0 }
           open && !/\(\*/ && /^    [A-Za-z][^={}]*\([^{}]*\)( const)?( noexcept)?;/ { print FILENAME ": " $0 }' \
        include/vantro/*.h | grep .
}

windows_exports_every_function() {
    local exported name
    exported=$(x86_64-w64-mingw32-objdump -p $windows/bin/libVantroProfileUtils.dll)
    for name in $(marked_functions); do
        grep -qE "_ZN6vantro${#name}$name" <<<"$exported" || { echo "$name is not exported" && return 1; }
    done
}

check "exports are the names that the headers mark" strictly exports_are_the_marked_names
check "no public function is without the mark" strictly no_public_function_is_unmarked
check "types without the mark define their functions in the header" strictly no_unmarked_type_lacks_a_body
check "the Windows library exports every public function" strictly windows_exports_every_function
close_counts
