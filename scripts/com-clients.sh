#!/usr/bin/env bash
# com-clients.sh x64|x86 [benchmark]: runs the automation clients of the COM server under Wine, from build/mingw-x64 or
# build/mingw-x86, where scripts/test-com.sh has built them. A program or file that is missing is a failed test. Every
# run has a Wine prefix of its own and needs no display. The last line is "N passed, N failed, N skipped". With
# "benchmark" only what late-bound calls cost is measured, and written to build/com/speeds-x64.json or speeds-x86.json.
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

# count TITLE OUTPUT PATTERN-PASSED PATTERN-FAILED STATUS: adds the counts that a program prints. A program that prints
# none has failed.
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

# expect TITLE COMMAND...: one test, which passes when the command does.
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

# What a file of examples/com prints: scripts are run by the system's own script host. A module of VBA is VBScript with
# types, and runs without them.
printed() {
    local folder=$root/build/com/examples-$architecture module=$1
    mkdir -p "$folder"
    if [[ $module == *.bas ]]; then
        sed -E '/^Attribute /d; s/ As [A-Za-z]+//g; s/Debug\.Print/WScript.Echo/' "$root/examples/com/$module" \
            >"$folder/$module.vbs"
        sed -nE 's/^Public Sub (\w+)\(\)$/\1/p' "$root/examples/com/$module" >>"$folder/$module.vbs"
        module=$module.vbs
    else
        cp "$root/examples/com/$module" "$folder"
    fi
    (cd "$folder" && run 60 wine cscript //nologo "$module" | tr -d '\r')
}

# That script host prints nothing after an error, so the output is compared with what the pages in docs/languages show.
prints() { diff "$root/examples/com/$2" <(printed "$1"); }

run_examples() {
    expect "move_down.vbs" prints move_down.vbs move_down.txt
    expect "name_search.vbs" prints name_search.vbs name_search.txt
    expect "explain.vbs" prints explain.vbs explain.txt
    expect "name_search.js" prints name_search.js name_search.txt
    expect "name_search.bas" prints name_search.bas name_search.txt
    expect "explain_failure.bas" prints explain_failure.bas explain_failure.txt
    expect "name_search.cpp" diff "$root/examples/com/name_search.txt" <(run_native)
    # Between apartments Wine passes an error's number on, without its source.
    expect "name_search.cpp mta" diff <(sed 's/^5010 .*/5010 (null)/' "$root/examples/com/name_search.txt") <(run_native mta)
}

run_native() { run 60 wine "$bin/vantro_com_cpp_example.exe" "$@" | tr -d '\r'; }

# The same batch, answered by the tool with its linked library and by the registered server.
batch_both_ways() {
    local requests=$root/tests/com/batch.jsonl out=$root/build/com
    local linked=$out/linked-$architecture.jsonl server=$out/server-$architecture.jsonl
    rm -f "$linked" "$server"
    run 60 wine "$bin/vantro-profile.exe" --version >/dev/null || return 1
    # Status 1 is right: one line of the batch is no request.
    timeout 60 wine "$bin/vantro-profile.exe" batch <"$requests" >"$linked" 2>/dev/null
    (($? == 1)) || return 1
    timeout 60 wine "$bin/vantro_com_batch.exe" <"$requests" >"$server" 2>/dev/null
    (($? == 1)) || return 1
    [[ -s $linked && $(wc -l <"$linked") == $(wc -l <"$requests") ]] && cmp "$linked" "$server"
}

# Prints what late-bound calls cost. Texts are allocated as in any program, not as the counts of leaks need it.
benchmark() {
    local json=$root/build/com/speeds-$architecture.json
    rm -f "$json"
    run 60 env -u OANOCACHE wine "$bin/vantro_com_benchmark.exe" --json "Z:$json" >"$prefix.speeds"
    cat "$prefix.speeds"
    [[ -s $json && $(grep -c '^late-bound ' "$prefix.speeds") == 5 ]]
}

# registered NAME, unregistered NAME: regsvr32 with a library of this project.
registered() { expect "regsvr32 $1.dll" run 60 wine regsvr32 /s "$bin/$1.dll"; }
unregistered() { expect "regsvr32 /u $1.dll" run 60 wine regsvr32 /s /u "$bin/$1.dll"; }

# The stand-in never replaces a terminal library: it cannot be registered while another one is.
stand_in_is_refused() { ! run 60 wine regsvr32 /s "$bin/VantroKestoFaces.dll"; }

start
registered VantroKestoFaces
registered VantroProfileUtils
if [[ ${2:-} == benchmark ]]; then
    expect "benchmark" benchmark
    cat "$prefix.speeds"
    wineserver -k >/dev/null 2>&1 </dev/null
    echo "$passed passed, $failed failed, 0 skipped"
    exit $((failed > 0))
fi
run_tests "early-bound client" vantro_com_tests.exe
run_scripts
run_examples
expect "batch with the server" batch_both_ways
expect "benchmark" benchmark
cat "$prefix.speeds"
unregistered VantroKestoFaces

# The same with a terminal library of another making. It keeps numbers in another width, which one script asks for.
registered VantroForeignTerminal
expect "the stand-in beside another terminal" stand_in_is_refused
run_tests "client with a foreign terminal" vantro_foreign_tests.exe
run_scripts search_and_paging.vbs
run_examples
expect "batch with the server" batch_both_ways
unregistered VantroForeignTerminal
unregistered VantroProfileUtils
wineserver -k >/dev/null 2>&1 </dev/null
echo "$passed passed, $failed failed, 0 skipped"
((failed == 0))
