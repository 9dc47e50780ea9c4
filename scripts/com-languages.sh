#!/usr/bin/env bash
# Checks the examples for automation clients that cannot be run here: C# is compiled by Mono's compiler, Python by its
# own; the identifiers in all files of examples/com are those of the interface description. Installs missing packages
# (Debian). scripts/com-clients.sh runs the other examples. The last line is "N passed, N failed, N skipped".
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

export out=$root/build/com/languages

compile_csharp() {
    mcs -warnaserror -warn:4 -platform:x86 -r:Microsoft.CSharp.dll "-out:$out/$1.exe" "examples/com/$1.cs"
    [[ -s $out/$1.exe ]]
}
export -f compile_csharp

compile_python() {
    python3 -c 'import sys; compile(open(sys.argv[1], encoding="utf-8").read(), sys.argv[1], "exec")' examples/com/name_search.py
}

# identifier KIND NAME: as server/vantro_profile_utils.idl has it.
identifier() { sed -nE "/^\[.*uuid\(/{N; s/.*uuid\(([^)]*)\).*\n$1 $2\b.*/\1/p}" server/vantro_profile_utils.idl; }

# A declaration in C# has the identifier that the interface description has for its name, and the dispatch ids too.
compare_identifiers() {
    local kind name uuid
    sed -nE '/Guid\("/{N; s/.*Guid\("([^"]*)".*\n(interface|class) (\w+).*/\2 \3 \1/p}' examples/com/EarlyBound.cs >"$out/declared"
    cat "$out/declared"
    (($(wc -l <"$out/declared") == 5))
    while read -r kind name uuid; do
        if [[ $kind == class ]]; then kind=coclass; fi
        [[ $(identifier $kind "$name") == "$uuid" ]]
    done <"$out/declared"
    # In docs/com.md too.
    while read -r kind name uuid; do
        grep -F "| \`$name\` | {$uuid} |" docs/com.md
    done < <(sed -nE '/^\[.*uuid\(/{N; s/.*uuid\(([^)]*)\).*\n(interface|coclass) (\w+).*/\2 \3 \1/p}' \
        server/vantro_profile_utils.idl)
    grep -F "| Type library | {$(identifier library VantroProfileUtils)} |" docs/com.md
    sed -nE '/DispId/{N; N; s/.*DispId\(([0-9]+)\).*\n *(string|object) (\w+)\(.*/[id(\1)] HRESULT \3(/p}' \
        examples/com/EarlyBound.cs >"$out/operations"
    (($(wc -l <"$out/operations") == 4))
    while read -r name; do grep -F "$name" server/vantro_profile_utils.idl; done <"$out/operations"
}

main() {
    install_missing "${com_language_packages[@]}"
    rm -rf "$out"
    mkdir -p "$out"
    check "LateBound.cs" strictly "compile_csharp LateBound"
    check "EarlyBound.cs" strictly "compile_csharp EarlyBound"
    check "name_search.py" strictly compile_python
    check "identifiers" strictly compare_identifiers
    close_counts
}

# In braces, so that a change of this file while it runs does no harm.
{
    main
    exit
}
