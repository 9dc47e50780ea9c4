#!/usr/bin/env bash
# Builds the Python package: a source package, and a wheel from it, in build/python/dist. Tries the wheel in a clean
# environment, runs the package's tests with it, and checks the types. Takes a minute or two on two cores, after the
# Debian packages that it installs. The last line of a green run is "N passed, 0 failed, M skipped".
#
# scripts/python.sh quick builds the extension module with the C library of build/ci-gcc, and runs the tests with it.
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

# Debian's Python: another one in the search path does not have Debian's packages.
export python=/usr/bin/python3 work=$root/build/python
export PYTHONDONTWRITEBYTECODE=1

# run_tests PYTHON: with the package that this Python imports.
run_tests() { "$1" -m pytest -q -p no:cacheprovider bindings/python/tests; }

quick() {
    local library=$root/build/ci-gcc/bindings/c/libvantro-c.so.1
    (cd bindings/python && VANTRO_C_LIBRARY=$library $python -W ignore setup.py -q build \
        --build-lib "$work/lib" --build-temp "$work/temp")
    PYTHONPATH=$work/lib run_tests $python
}

# The wheel is built by a clean environment that sees Debian's build tools, from the unpacked source package, whose
# folder is always the same one, so that the compiler cache knows its files.
build_packages() {
    rm -rf "$work/dist" "$work/unpacked" "$work/builder"
    mkdir -p "$work/unpacked"
    (cd bindings/python && $python -W ignore setup.py -q sdist --dist-dir "$work/dist")
    rm -rf bindings/python/src/*.egg-info
    tar -xf "$work"/dist/*.tar.gz --strip-components=1 -C "$work/unpacked"
    $python -m venv --system-site-packages "$work/builder"
    "$work/builder/bin/pip" wheel -v --no-index --no-build-isolation --no-deps -w "$work/dist" "$work/unpacked"
    ls -l "$work/dist"
}

# The wheel in an environment without any other package: the first lines of a new user.
try_wheel() {
    rm -rf "$work/clean"
    $python -m venv "$work/clean"
    "$work/clean/bin/pip" install --no-index "$work"/dist/*.whl
    "$work/clean/bin/pip" check
    "$work/clean/bin/python" - samples/profiles/traveller.txt <<'END' | grep -F "H4T9QZ LINDQVIST/AGNES MS"
import sys, vantro_profile
profile = vantro_profile.parse_profile(open(sys.argv[1], encoding="utf-8").read())
print(profile.record_locator, profile.name)
END
    # It also works where there is no C++ library, and its own library is found beside the module.
    objdump -p "$work"/clean/lib/python*/site-packages/vantro_profile/*.so* >"$work/needed"
    grep -F "NEEDED               libvantro-c.so.1" "$work/needed"
    grep -F 'RUNPATH              $ORIGIN' "$work/needed"
    if grep -F "NEEDED               libstdc++" "$work/needed"; then return 1; fi
}

# All tests, with the wheel and Debian's pytest.
test_wheel() {
    "$work/builder/bin/pip" install --no-index --no-deps --force-reinstall "$work"/dist/*.whl
    run_tests "$work/builder/bin/python"
}

check_types() {
    MYPYPATH=bindings/python/src:bindings/python/tests mypy --config-file bindings/python/pyproject.toml \
        --cache-dir "$work/mypy" bindings/python/src bindings/python/tests
}

main() {
    install_missing "${python_packages[@]}"
    step "build the source package and the wheel" strictly build_packages
    check "the wheel alone" strictly try_wheel
    check "tests with the wheel" strictly test_wheel
    check "types" strictly check_types
    close_counts
}

# In braces, so that a change of this file while it runs does no harm.
{
    if [[ ${1:-} == quick ]]; then quick; else main; fi
    exit
}
