#!/usr/bin/env bash
# Runs the automation clients of the COM server under Wine: com-clients.sh x64|x86. The programs are built already,
# in build/mingw-x64 or build/mingw-x86. Every run has a Wine prefix of its own and needs no display. The last line
# is "N passed, N failed, N skipped".
set -uo pipefail
architecture=$1
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
bin=$root/build/mingw-$architecture/bin
prefix=$root/build/com/prefix-$architecture
passed=0
failed=0

export PATH=$PATH:/usr/lib/wine
export WINEPREFIX=$prefix WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" OANOCACHE=1
if [[ $architecture == x86 ]]; then export WINEARCH=win32; fi
unset DISPLAY WAYLAND_DISPLAY

# run SECONDS PROGRAM...: a Windows program, or a script of Wine's. Its output goes through a file, because Wine's
# services keep the streams of the program that started them open.
run() {
    local status=0 output=$prefix.output
    timeout -k 5 "$1" "${@:2}" >"$output" 2>&1 </dev/null || status=$?
    cat "$output"
    return $status
}

# count TITLE OUTPUT PATTERN-PASSED PATTERN-FAILED STATUS: adds a program's own counts; none is a failure.
count() {
    local good bad
    good=$(sed -nE "s/$3/\\1/p" <<<"$2" | tail -n 1)
    bad=$(sed -nE "s/$4/\\1/p" <<<"$2" | tail -n 1)
    if [[ -z $good ]] || (($5 != 0 && ${bad:-0} == 0)); then bad=$((${bad:-0} + 1)); fi
    passed=$((passed + ${good:-0}))
    failed=$((failed + ${bad:-0}))
    if ((${bad:-0} > 0)); then
        echo "FAILED $1 (status $5)"
        grep -v -E '^\[( RUN|       OK|-----)|^$' <<<"$2" | tail -n 80
    fi
}

# expect TITLE COMMAND...: one check of its own.
expect() {
    local output status=0
    output=$("${@:2}") || status=$?
    if ((status == 0)); then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        printf 'FAILED %s (status %s)\n%s\n' "$1" "$status" "$output"
    fi
}

start() {
    rm -rf "$prefix"
    mkdir -p "$(dirname "$prefix")"
    run 120 wineboot -i >/dev/null
    timeout 60 wineserver -w
    wineserver -p >/dev/null 2>&1 </dev/null
}

# run_tests TITLE PROGRAM: the tests of an early-bound client.
run_tests() {
    local output status=0
    output=$(cd "$bin" && run 300 wine "$2") || status=$?
    count "$1" "$output" '^\[  PASSED  \] ([0-9]+) tests?\..*' '^ *([0-9]+) FAILED TESTS?.*' $status
}

# run_scripts [NAME...]: the scripts, or all but those that are named.
run_scripts() {
    local folder=tests/com/scripts script output status
    for script in "$root/$folder"/*.vbs "$root/$folder"/*.js; do
        if [[ $(basename "$script") == common.* || " $* " == *" $(basename "$script") "* ]]; then continue; fi
        status=0
        output=$(cd "$root" && run 60 wine "$bin/vantro_script_host.exe" "$folder/common.${script##*.}" \
            "$folder/$(basename "$script")") || status=$?
        count "$(basename "$script")" "$output" '^([0-9]+) passed, .*' '^[0-9]+ passed, ([0-9]+) failed.*' $status
    done
}

# The VBScript page of docs/com.md, in the system's own script host, which says nothing after an error: what it
# prints is compared.
# shellcheck disable=SC2016 # the marks of a code block
document_script() {
    local folder=$root/build/com/document-$architecture output
    mkdir -p "$folder"
    sed -n '/^```vbs$/,/^```$/p' "$root/docs/com.md" | sed '/^```/d' >"$folder/page.vbs"
    output=$(cd "$folder" && run 60 wine cscript //nologo page.vbs | tr -d '\r')
    diff <(sed -n '/^```text$/,/^```$/p' "$root/docs/com.md" | sed '/^```/d') <(printf '%s\n' "$output")
}

# The same batch, once with the linked library and once with the registered server.
batch_both_ways() {
    local requests=$root/tests/com/batch.jsonl out=$root/build/com
    run 60 wine "$bin/vantro-profile.exe" --version >/dev/null || return 1
    local linked=$out/linked-$architecture.jsonl com=$out/com-$architecture.jsonl
    timeout 60 wine "$bin/vantro-profile.exe" batch <"$requests" >"$linked" 2>/dev/null
    timeout 60 wine "$bin/vantro-profile.exe" batch --com <"$requests" >"$com" 2>/dev/null
    [[ $(wc -l <"$linked") == $(wc -l <"$requests") ]] && cmp "$linked" "$com"
}

# registered NAME, unregistered NAME: regsvr32 with a library of this project.
registered() { expect "regsvr32 $1.dll" run 60 wine regsvr32 /s "$bin/$1.dll"; }
unregistered() { expect "regsvr32 /u $1.dll" run 60 wine regsvr32 /s /u "$bin/$1.dll"; }

# What every terminal library has to serve.
run_with_any_terminal() {
    if grep -q '^```vbs$' "$root/docs/com.md" 2>/dev/null; then expect "the script of docs/com.md" document_script; fi
    if [[ -f $root/tests/com/batch.jsonl ]]; then expect "batch with the server" batch_both_ways; fi
}

# The stand-in takes nobody's place: it cannot be registered while another terminal library is.
stand_in_is_refused() { ! run 60 wine regsvr32 /s "$bin/VantroKestoFaces.dll"; }

start
registered VantroKestoFaces
registered VantroProfileUtils
run_tests "early-bound client" vantro_com_tests.exe
run_scripts
run_with_any_terminal
if [[ -f $bin/vantro_com_benchmark.exe ]]; then (cd "$bin" && run 60 wine vantro_com_benchmark.exe); fi
unregistered VantroKestoFaces

# The same with a terminal library of another making. It keeps numbers in another width, which one script asks for.
registered VantroForeignTerminal
expect "the stand-in beside another terminal" stand_in_is_refused
run_tests "client with a foreign terminal" vantro_foreign_tests.exe
run_scripts search_and_paging.vbs
run_with_any_terminal
unregistered VantroForeignTerminal
unregistered VantroProfileUtils
wineserver -k >/dev/null 2>&1 </dev/null
echo "$passed passed, $failed failed, 0 skipped"
((failed == 0))
