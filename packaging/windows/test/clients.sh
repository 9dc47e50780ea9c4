#!/usr/bin/env bash
# clients.sh x64|x86|both FOLDER: installs from an unpacked archive for Windows under Wine, uses the server, and takes the
# installation back. "both" is a 64-bit Windows with 32-bit programs, "x64" one without, "x86" a 32-bit Windows. The
# folder contains "certutil.exe", the unpacked archive and, beside it, "script.vbs" and the expected registry keys,
# "keys.txt", as scripts/test-windows-zip.sh prepares them. The last line is "N passed, N failed, N skipped".
set -uo pipefail
kind=$1
folder=$2
prefix=$(dirname "$folder")/prefix-$kind
passed=0
failed=0

export PATH=$PATH:/usr/lib/wine
export WINEPREFIX=$prefix WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=;certutil.exe=n,b" WINEARCH=win64
loader=wine64
if [[ $kind == x86 ]]; then WINEARCH=win32 loader=wine; fi
unset DISPLAY WAYLAND_DISPLAY

# run PROGRAM...: a Windows program. Its output goes through a file, because Wine's services keep the streams of the
# program that started them open. On a busy machine Wine sometimes cannot start a program, and says so: then it tries
# again.
run() {
    local status output=$prefix.output
    for _ in 1 2 3; do
        status=0
        timeout -k 5 60 $loader "$@" >"$output" 2>&1 </dev/null || status=$?
        if ! grep -q '^ShellExecuteEx failed' "$output"; then break; fi
        sleep 1
    done
    tr -d '\r' <"$output"
    return $status
}

# expect TITLE STATUS OUTPUT COMMAND...: one test, which passes when the command ends and prints like this.
expect() {
    local title=$1 expected_status=$2 expected=$3 output status=0
    output=$("${@:4}") || status=$?
    if [[ $status == "$expected_status" && $output == "$expected" ]]; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        printf 'FAILED %s, %s: status %s, expected %s\n%s\n--- expected:\n%s\n' "$kind" "$title" "$status" \
            "$expected_status" "$output" "$expected"
    fi
}

install() { (cd "$folder" && run cmd /c install.cmd "$@"); }

# The script, in every kind of process that this Windows has; the word "failed" where the class cannot be created.
use_server() {
    local host shown
    for host in $hosts; do
        shown=$(cd "$(dirname "$folder")" && run "$host" //nologo script.vbs)
        echo "${shown:-failed}"
    done
}

# The registry's keys that belong to the project, with placeholders for its identifiers and class names. Wine writes the
# registry when its server ends.
our_keys() {
    timeout 60 wineserver -k >/dev/null 2>&1 </dev/null
    timeout 60 wineserver -w
    sed -nE 's/^\[(Software\\\\Classes\\\\.*)\] [0-9]+$/\1/p' "$prefix/system.reg" | sed 's/\\\\/\\/g' |
        sed -E -f "$(dirname "$folder")/names.sed" | grep -F '<' | sort -u
}

all_keys() { sed -nE 's/^\[(Software\\\\Classes\\.*)\] [0-9]+$/\1/p' "$prefix/system.reg" | sort -u; }

# A server that stays makes every start of a program faster.
serve() { wineserver -p >/dev/null 2>&1 </dev/null; }

# The script host registers a library of its own when it first runs.
start() {
    rm -rf "$prefix"
    timeout 120 $loader wineboot -i >/dev/null 2>&1 </dev/null
    use_server >/dev/null
    timeout 60 wineserver -w
    all_keys >"$prefix.before"
    serve
}

# Wine's own certutil is replaced by one that prints checksums.
provide_certutil() {
    cp "$(dirname "$folder")/certutil.exe" "$prefix/drive_c/windows/system32/certutil.exe"
}

windows_folder() { tr / '\\' <<<"Z:$folder"; }

x86="\"$(windows_folder)\\x86\\VantroProfileUtils.dll\""
x64="\"$(windows_folder)\\x64\\VantroProfileUtils.dll\""
unchecked='The files were not compared with SHA256SUMS: certutil cannot do it here.'
keep='The entries name this folder: keep it where it is. "install.cmd /u" takes the registration back.'
no_x86='This Windows has no 32-bit programs: the x86 server is left out.'
system='C:\windows\system32\cscript.exe'
case $kind in
    x64)
        hosts=$system works=PDMD fails=failed
        registered="$no_x86"$'\n'"Registered for 64-bit programs: $x64"
        taken_back="$no_x86"$'\n'"No longer registered for 64-bit programs: $x64"
        ;;
    x86)
        hosts=$system works=PDMD fails=failed
        registered="Registered for 32-bit programs: $x86"
        taken_back="No longer registered for 32-bit programs: $x86"
        ;;
    both)
        hosts="$system C:\\windows\\syswow64\\cscript.exe" works=$'PDMD\nPDMD' fails=$'failed\nfailed'
        registered="Registered for 32-bit programs: $x86"$'\n'"Registered for 64-bit programs: $x64"
        taken_back="No longer registered for 32-bit programs: $x86"$'\n'"No longer registered for 64-bit programs: $x64"
        ;;
esac

start
expect "before" 0 "$fails" use_server
expect "a wrong option" 2 "$(printf '%s\n' \
    'install.cmd      registers the COM server in this folder, for all users of this machine' \
    'install.cmd /u   takes the registration back' \
    'Run it in a command prompt of an administrator.')" install /x
expect "install, without certutil" 0 "$unchecked"$'\n'"$registered"$'\n'"$keep" install
expect "the server" 0 "$works" use_server
if [[ $kind == both ]]; then
    expect "keys" 0 "$(cat "$(dirname "$folder")/keys.txt")" our_keys
    serve
fi
expect "install again" 0 "$unchecked"$'\n'"$registered"$'\n'"$keep" install
expect "take back" 0 "$taken_back" install /u
expect "after" 0 "$fails" use_server
expect "take back again" 0 "$taken_back" install /u
expect "no key of ours is left" 1 "" our_keys
expect "no key is left" 0 "" diff "$prefix.before" <(all_keys)

if [[ $kind == both ]]; then
    provide_certutil
    serve
    checked="Checked: the 8 files in x86 and x64 are as they were packed."
    expect "install, with certutil" 0 "$checked"$'\n'"$registered"$'\n'"$keep" install
    expect "take back" 0 "$taken_back" install /u
    VANTRO_OLD_CERTUTIL=1 expect "install, with an old certutil" 0 "$checked"$'\n'"$registered"$'\n'"$keep" install
    expect "take back" 0 "$taken_back" install /u
    printf ' ' >>"$folder/x86/vantro-profile.exe"
    expect "a damaged file" 3 "DAMAGED: \"$(windows_folder)\\x86\\vantro-profile.exe\". Nothing was registered." install
    rm "$folder/x86/vantro-profile.exe"
    expect "a missing file" 3 "MISSING: \"$(windows_folder)\\x86\\vantro-profile.exe\". Nothing was registered." install
    rm "$folder/SHA256SUMS" "$folder/x64/VantroProfileUtils.dll"
    expect "without the 64-bit server" 1 "$(printf '%s\n' 'The files were not compared: SHA256SUMS is missing.' \
        "Registered for 32-bit programs: $x86" "NOT registered for 64-bit programs: $x64" \
        '    Windows cannot load the file. Is it there, and of this archive?')" install
    expect "nothing but the 32-bit server" 0 $'failed\nPDMD' use_server
fi
timeout 60 wineserver -k >/dev/null 2>&1 </dev/null
echo "$passed passed, $failed failed, 0 skipped"
((failed == 0))
