# shellcheck shell=bash
# Sourced by the other scripts: runs steps quietly, installs what is missing, counts tests.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
logs=$root/build/logs
mkdir -p "$logs"
# A user without a home folder: ccache keeps its files here.
if [[ ! -w ${HOME:-/nowhere} ]]; then export CCACHE_DIR=${CCACHE_DIR:-$root/build/ccache}; fi

passed=0
failed=0
skipped=0

# report_progress TITLE LOG: while a step runs, says what its last line of output is: in place on a terminal, else as a
# line now and then. It waits by reading from a pipe that nobody writes to, because a killed "sleep" stays behind.
report_progress() {
    local start=$SECONDS pause=20 format='  ...     %s (%d s): %s\n' last silence
    if [[ -t 1 ]]; then
        pause=2
        format='\r\e[K  ...     %s (%d s): %s'
    fi
    exec {silence}<> <(:)
    while true; do
        read -rt $pause -u "$silence" || true
        last=$(tail -n 1 "$2" 2>/dev/null | tr -d $'\r\e')
        # shellcheck disable=SC2059 # one of the two above
        printf "$format" "$1" $((SECONDS - start)) "${last:0:60}"
    done
}

# run_logged TITLE COMMAND...: one line with the seconds it took; the end of its output when it fails. The whole
# output is in the file that $log names.
run_logged() {
    local title=$1 start=$SECONDS status=0 reporter
    shift
    log=$logs/$(tr -cs 'A-Za-z0-9\n' '-' <<<"$title").log
    : >"$log"
    report_progress "$title" "$log" &
    reporter=$!
    "$@" >"$log" 2>&1 </dev/null || status=$?
    kill "$reporter" 2>/dev/null || true
    wait "$reporter" 2>/dev/null || true
    if [[ -t 1 ]]; then printf '\r\e[K'; fi
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

# check TITLE COMMAND...: a step that counts as one test; the script goes on when it fails.
check() {
    if run_logged "$@"; then passed=$((passed + 1)); else failed=$((failed + 1)); fi
}

# build_and_test PRESET: configures, builds and tests. A build that fails counts as one failed test.
build_and_test() {
    if run_logged "$1: configure" cmake --preset "$1" && run_logged "$1: build" cmake --build --preset "$1"; then
        count_ctest "$1: tests" "$1"
    else
        failed=$((failed + 1))
    fi
}

# close_counts: the last line of a script that counts, and its status.
close_counts() {
    echo "$passed passed, $failed failed, $skipped skipped"
    ((failed == 0))
}

# counts_in FILE: what passed, failed and was skipped, of a JUnit file that CTest has written. A test program counts as
# its test cases; one that broke off counts as one failed test.
counts_in() {
    awk '
        function add() {
            if (status == "") return
            if (cases == "") cases = status == "run"
            if (status == "fail" && bad == 0) bad = 1
            if (status != "run" && status != "fail") left = 1
            passed += cases; failed += bad; skipped += left
        }
        /<testcase / { add(); status = $0; sub(/.*status="/, "", status); sub(/".*/, "", status); cases = ""; bad = left = 0 }
        /^\[  PASSED  \] [0-9]+ tests?\.$/ { cases = $4 }
        /^\[  SKIPPED \] [0-9]+ tests?\.$/ { left = $4 }
        /^\[  FAILED  \] .* ms\)$/ { ++bad }
        END { add(); print passed + 0, failed + 0, skipped + 0 }' "$1"
}

# count_ctest TITLE PRESET: runs a test preset and adds its tests to the counts.
count_ctest() {
    local junit=$logs/$2.xml status=0 good bad left
    rm -f "$junit"
    run_logged "$1" ctest --preset "$2" --output-junit "$junit" --test-output-size-passed 100000 || status=$?
    if [[ ! -f $junit ]]; then
        echo "  FAILED  $1: no record of the tests" >&2
        failed=$((failed + 1))
        return
    fi
    read -r good bad left < <(counts_in "$junit")
    if ((status != 0 && bad == 0)); then bad=1; fi
    passed=$((passed + good))
    failed=$((failed + bad))
    skipped=$((skipped + left))
}

# add_closing_line TITLE OUTPUT STATUS: adds the counts that a script's output closes with.
add_closing_line() {
    local closing
    closing=$(tail -n 1 "$2")
    if [[ $closing =~ ^([0-9]+)\ passed,\ ([0-9]+)\ failed,\ ([0-9]+)\ skipped$ ]]; then
        passed=$((passed + BASH_REMATCH[1]))
        failed=$((failed + BASH_REMATCH[2]))
        skipped=$((skipped + BASH_REMATCH[3]))
        if (($3 != 0 && BASH_REMATCH[2] == 0)); then failed=$((failed + 1)); fi
    else
        echo "  FAILED  $1: it closes without its counts" >&2
        failed=$((failed + 1))
    fi
}

# count_closing_line TITLE COMMAND...: runs a script that closes with "N passed, N failed, N skipped" and adds that.
count_closing_line() {
    local status=0
    run_logged "$@" || status=$?
    add_closing_line "$1" "$log" $status
}

# install_missing PACKAGE...: installs the Debian packages that are not there yet. Where all are, it needs neither rights
# nor apt-get; without rights it prints the commands and ends the script.
install_missing() {
    local package missing=() as_root=()
    for package in "$@"; do
        if [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]]; then continue; fi
        if [[ " ${missing[*]} " != *" $package "* ]]; then missing+=("$package"); fi
    done
    if ((${#missing[@]} == 0)); then return; fi
    if ((EUID != 0)); then
        # sudo asks here, where the question is seen.
        if ! command -v sudo >/dev/null || ! sudo -v; then
            printf 'Packages are missing, and installing them needs root or sudo. As root:\n\n' >&2
            printf '    apt-get update && apt-get install -y --no-install-recommends %s\n\n' "${missing[*]}" >&2
            exit 1
        fi
        as_root=(sudo)
    fi
    echo "  missing ${missing[*]}"
    step "package lists" "${as_root[@]}" apt-get update
    step "install the packages" "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}"
}

# strictly FUNCTION: runs a function of the script so that its first failing command ends it. It sees the script's other
# functions, root and what is exported.
strictly() { bash -euo pipefail -c "$(declare -p root); $(declare -f); $1"; }

# build_consumed static|shared: the library and the C interface as parts of another project, in build/consumers/VARIANT,
# compiled in the shortest time, with debug information.
build_consumed() {
    local folder=$root/build/consumers/$1 shared=OFF launcher=()
    if [[ $1 == shared ]]; then shared=ON; fi
    if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
    cmake -S tests/package/subdirectory -B "$folder" -G Ninja -DVANTRO_SOURCE_DIR="$root" -DBUILD_SHARED_LIBS=$shared \
        -DCMAKE_CXX_FLAGS="-O0 -g" -DVANTRO_QUICK_TESTS=ON "${launcher[@]}"
    cmake --build "$folder"
}

# our_sources: every C++ file of the project, each ended by a zero byte.
our_sources() {
    find . -name build -prune -o -name '.*' ! -name . -prune -o \( -name '*.h' -o -name '*.cpp' \) -print0
}

# The packages of each task. A script asks for all of its own at its beginning.
# shellcheck disable=SC2034
{
    tool_packages=(g++ cmake ninja-build libcli11-dev libsimdjson-dev rapidjson-dev zlib1g-dev libzstd-dev libsqlite3-dev
        libxxhash-dev)
    com_packages=("${tool_packages[@]}" googletest mingw-w64-tools libwine-dev)
    com_x64_packages=("${com_packages[@]}" g++-mingw-w64-x86-64-posix wine wine64)
    com_x86_packages=("${com_packages[@]}" g++-mingw-w64-i686-posix mmdebstrap)
    com_language_packages=(mono-mcs libmono-microsoft-csharp4.0-cil python3)
    windows_zip_packages=("${com_x64_packages[@]}" "${com_x86_packages[@]}" git zip unzip)
    exports_packages=("${tool_packages[@]}" binutils g++-mingw-w64-x86-64-posix)
    consumer_packages=(g++ cmake ninja-build pkg-config)
    abi_packages=("${consumer_packages[@]}" abigail-tools)
    python_test_packages=(python3-dev python3-pytest python3-setuptools)
    python_packages=("${tool_packages[@]}" "${python_test_packages[@]}" binutils mypy python3-venv python3-wheel)
    wasm_packages=(cmake ninja-build emscripten nodejs)
    javascript_packages=("${wasm_packages[@]}" node-typescript chromium chromium-driver fonts-dejavu-core
        python3 python3-selenium)
    debian_packages=("${tool_packages[@]}" debhelper dh-python dpkg-dev git lintian mmdebstrap python3-dev python3-pytest
        python3-setuptools)
    test_packages=("${tool_packages[@]}" libgtest-dev libgmock-dev pkg-config "${python_test_packages[@]}"
        "${com_x64_packages[@]}")
    site_packages=("${tool_packages[@]}" doxygen graphviz jq make mkdocs mkdocs-material python3 python3-pytest python3-yaml)
    arm64_packages=("${tool_packages[@]}" googletest g++-aarch64-linux-gnu qemu-user)
    browser_packages=("${tool_packages[@]}" libgtest-dev libgmock-dev chromium chromium-driver fonts-dejavu-core
        python3 python3-selenium)
    archive_packages=("${tool_packages[@]}" libgtest-dev libgmock-dev pkg-config python3 python3-zstandard)
    check_packages=("${test_packages[@]}" "${python_packages[@]}" "${com_x86_packages[@]}" "${exports_packages[@]}"
        "${arm64_packages[@]}" "${browser_packages[@]}" "${com_language_packages[@]}" "${windows_zip_packages[@]}"
        "${abi_packages[@]}" "${javascript_packages[@]}" "${site_packages[@]}" "${archive_packages[@]}"
        clang clang-format clang-tidy libclang-rt-dev lld git python3 shellcheck util-linux)
}
