# shellcheck shell=bash
# Sourced by the other scripts: runs steps quietly, installs what is missing, counts tests.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
logs=$root/build/logs
mkdir -p "$logs"

passed=0
failed=0
skipped=0

# run_logged TITLE COMMAND...: one line with the seconds it took; the end of its output when it fails. The whole
# output is in the file that $log names.
run_logged() {
    local title=$1 start=$SECONDS status=0
    shift
    log=$logs/$(tr -cs 'A-Za-z0-9\n' '-' <<<"$title").log
    "$@" >"$log" 2>&1 </dev/null || status=$?
    if ((status == 0)); then
        printf '  ok      %s (%d s)\n' "$title" $((SECONDS - start))
    else
        printf '  FAILED  %s (%d s), %s:\n' "$title" $((SECONDS - start)) "$log" >&2
        # What a build tool says of the steps that went well is left out.
        { grep -Ev '^\[[0-9]+/[0-9]+\] ' "$log" || true; } | tail -n 60 | sed 's/^/    | /' >&2
    fi
    return $status
}

# step TITLE COMMAND...: a step that the following ones need; its failure ends the script.
step() {
    run_logged "$@" || exit 1
}

# check TITLE COMMAND...: a step whose failure counts as a failed test; the script goes on.
check() {
    run_logged "$@" || failed=$((failed + 1))
}

# attribute NAME FILE: the number under this name in the head of a JUnit file.
attribute() {
    sed -n "s/.*\b$1=\"\([0-9]*\)\".*/\1/p" "$2" | head -n 1
}

# count_ctest TITLE PRESET: runs a test preset and adds its tests to the counts.
count_ctest() {
    local junit=$logs/$2.xml status=0 total bad left
    rm -f "$junit"
    run_logged "$1" ctest --preset "$2" --output-junit "$junit" || status=$?
    total=0 bad=0 left=0
    if [[ -f $junit ]]; then
        total=$(attribute tests "$junit")
        bad=$(attribute failures "$junit")
        left=$(($(attribute skipped "$junit") + $(attribute disabled "$junit")))
    fi
    if ((status != 0 && bad == 0)); then bad=1 total=$((total + 1)); fi
    passed=$((passed + total - bad - left))
    failed=$((failed + bad))
    skipped=$((skipped + left))
}

# count_closing_line TITLE COMMAND...: runs a script that closes with "N passed, N failed, N skipped" and adds that.
count_closing_line() {
    local status=0 closing
    run_logged "$@" || status=$?
    closing=$(tail -n 1 "$log")
    if [[ $closing =~ ^([0-9]+)\ passed,\ ([0-9]+)\ failed,\ ([0-9]+)\ skipped$ ]]; then
        passed=$((passed + BASH_REMATCH[1]))
        failed=$((failed + BASH_REMATCH[2]))
        skipped=$((skipped + BASH_REMATCH[3]))
        if ((status != 0 && BASH_REMATCH[2] == 0)); then failed=$((failed + 1)); fi
    else
        echo "  FAILED  $1: it closes without its counts" >&2
        failed=$((failed + 1))
    fi
}

# install_missing PACKAGE...: installs the Debian packages that are not there yet.
install_missing() {
    local package missing=() as_root=()
    for package in "$@"; do
        if [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) != installed ]]; then
            missing+=("$package")
        fi
    done
    if ((${#missing[@]} == 0)); then return; fi
    if ((EUID != 0)); then
        if ! command -v sudo >/dev/null; then
            echo "Missing packages: ${missing[*]}. Install them, or run this as root or with sudo there." >&2
            exit 1
        fi
        sudo -v # asks here, where the question is seen
        as_root=(sudo)
    fi
    step "package lists" "${as_root[@]}" apt-get update
    step "install ${missing[*]}" "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}"
}

# our_sources: every C++ file of the project, each ended by a zero byte.
our_sources() {
    local folder folders=()
    for folder in include framework terminal transactions profile notes cli server tests fuzz benchmarks examples; do
        if [[ -d $folder ]]; then folders+=("$folder"); fi
    done
    find "${folders[@]}" \( -name '*.h' -o -name '*.cpp' \) -print0
}

# What the tool needs to be built.
# shellcheck disable=SC2034
tool_packages=(g++ cmake ninja-build libcli11-dev rapidjson-dev)
