#!/usr/bin/env bash
# Builds the archive for Windows, looks at what is in it, and installs from it under Wine, as 64-bit and as 32-bit
# Windows: the script that registers the COM server, a client, and the registry after the registration was taken back.
# Installs missing packages (Debian). What a 32-bit Windows program needs is root only. The last line is
# "N passed, N failed, N skipped".
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh
# shellcheck source=scripts/private_root.sh
source scripts/private_root.sh

# A folder whose name is difficult for scripts.
export work=$root/build/windows-zip/test
export unpacked="$work/Vantro tools (x86) & more"

unpack() {
    local archive=("$root"/build/windows-zip/*-windows.zip)
    rm -rf "$work"
    mkdir -p "$work"
    (cd "$root/build/windows-zip" && sha256sum -c ./*.zip.sha256)
    unzip -q "${archive[0]}" -d "$work"
    mv "$work"/VantroProfileUtils-* "$unpacked"
    (cd "$unpacked" && sha256sum --quiet -c SHA256SUMS)
    # Every file is in the list, and the list in no list.
    (cd "$unpacked" && diff <(find . -type f ! -name SHA256SUMS -printf '%P\n' | sort) <(cut -c 67- SHA256SUMS | sort))
}

# The command prompt needs line ends of its own; the files of each kind of process are there; links lead to files.
look() {
    local file page link wrong=0
    if grep -qv $'\r$' "$unpacked/install.cmd"; then echo "install.cmd has plain line feeds" && return 1; fi
    for file in {x86,x64}/{VantroProfileUtils.{dll,manifest,tlb},vantro-profile.exe} VantroProfileUtils.idl README.md \
        development/{x86,x64}/VantroKestoFaces.dll LICENSE docs/com.md examples/com/move_down.vbs; do
        if [[ ! -s $unpacked/$file ]]; then echo "no $file" && wrong=1; fi
    done
    for page in README.md docs/com.md docs/com-keys.md docs/languages/README.md; do
        while read -r link; do
            if [[ ! -e $(dirname "$unpacked/$page")/$link ]]; then echo "$page: no $link" && wrong=1; fi
        done < <(grep -oE '\]\([^)#]+' "$unpacked/$page" | sed 's/](//' | grep -v '^http')
    done
    return $wrong
}

# Placeholders for the identifiers and names in docs/com.md: {class}, {interface}, {library}, <Class>.
prepare() {
    local idl=server/vantro_profile_utils.idl
    x86_64-w64-mingw32-g++ -O1 -Wall -Wextra -Werror -static packaging/windows/test/certutil.cpp -ladvapi32 \
        -o "$work/certutil.exe"
    cp examples/com/move_down.vbs "$work/script.vbs"
    sed -nE '/^\[.*uuid\(/{N; s/.*uuid\(([^)]*)\).*\n(library|interface|coclass) (\w+).*/\2 \1 \3/p}' $idl |
        while read -r kind uuid name; do
            if [[ $kind == coclass ]]; then
                echo "s/\\{$uuid\\}/<class's id>/I"
                echo "s/VantroProfileUtils\\.$name(\\.1)?(\\\\|\$)/VantroProfileUtils.<Class>\\1\\2/"
            else
                echo "s/\\{$uuid\\}/<$kind's id>/I"
            fi
        done >"$work/names.sed"
    (($(wc -l <"$work/names.sed") > 40))
    # Wine spells one key in another way than Windows.
    sed -n '/^<!-- keys -->$/,/^$/p' docs/com.md | grep -oE '`Software\\[^`]*`' | tr -d '`' | sed 's/\\TypeLib\\</\\Typelib\\</' |
        LC_ALL=C sort -u >"$work/keys.txt"
    [[ -s $work/keys.txt ]]
}

main() {
    local kind reason
    install_missing "${windows_zip_packages[@]}"
    install_private_root
    check "archive" bash packaging/windows/zip.sh
    step "unpack" strictly unpack
    check "what is in it" strictly look
    step "prepare" strictly prepare
    count_closing_line "Windows without 32-bit programs" bash packaging/windows/test/clients.sh x64 "$unpacked"
    reason=$(obstacle)
    if [[ -z $reason ]] && ! run_privately /lib/ld-linux.so.2 --version >/dev/null 2>&1; then
        reason="this machine runs no 32-bit programs"
    fi
    for kind in x86 both; do
        if [[ -n $reason ]]; then
            echo "  skipped Windows with 32-bit programs, $kind: $reason"
            skipped=$((skipped + 1))
        else
            count_closing_line "Windows with 32-bit programs, $kind" run_privately \
                bash "$root/packaging/windows/test/clients.sh" $kind "$unpacked"
        fi
    done
    close_counts
}

# In braces, so that a change of this file while it runs does no harm.
{
    main
    exit
}
