#!/usr/bin/env bash
# Builds the Debian packages of the last commit, in build/debian/packages, and checks them: lintian, and a clean root in
# which the commands of docs/debian.md install, try and purge them. They are for the Debian release that this runs on.
# Takes about five minutes on two cores, most of it for compiling, after the Debian packages that it installs. The last
# line of a green run is "N passed, 0 failed, M skipped".
#
# scripts/debian.sh again also builds them a second time, in another folder and without a cache, and compares.
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

export packages=$root/build/debian/packages again=$root/build/debian/again clean_root=$root/build/debian/root

# export_tree FOLDER: the last commit, with packaging/debian as debian/. The packages of a version that CHANGELOG.md has
# no section for yet are older than those of the release, and newer than those of earlier commits.
export_tree() {
    local version release
    mkdir -p "$1"
    git archive HEAD | tar -x -C "$1"
    cp -r "$1/packaging/debian" "$1/debian"
    version=$(sed -nE 's/^project\(VantroProfileUtils VERSION ([0-9.]+).*/\1/p' "$1/CMakeLists.txt")
    if ! grep -qF "## [$version]" "$1/CHANGELOG.md"; then
        version+=$(TZ=UTC git log -1 --date=format-local:'~%Y%m%d%H%M%S' --format=%cd)
    fi
    release=$(. /etc/os-release && echo "$VERSION_CODENAME")
    {
        printf 'vantro-profile-utils (%s) %s; urgency=medium\n\n' "$version" "$release"
        git log -1 --format='  * Commit %h. CHANGELOG.md lists the changes.%n'
        git log -1 --date=rfc --format=" -- $(sed -n 's/^Maintainer: //p' "$1/debian/control")  %cd"
    } >"$1/debian/changelog"
}

# build_packages FOLDER: with Debian's own Python and tools, whatever else the search path has.
build_packages() {
    # Debhelper sets another home folder.
    export CCACHE_DIR=${CCACHE_DIR:-${HOME:-/nowhere}/.cache/ccache} PATH=/usr/sbin:/usr/bin:/sbin:/bin
    rm -rf "$1"
    export_tree "$1/source"
    cd "$1/source"
    DEB_BUILD_OPTIONS+=" terse" dpkg-buildpackage --unsigned-source --unsigned-changes
}

build() { build_packages "$packages"; }

same_again() {
    local file
    (CCACHE_DISABLE=1 DEB_BUILD_OPTIONS=nocheck build_packages "$again")
    for file in "$packages"/*.deb "$packages"/*.tar.*; do cmp "$file" "$again/${file##*/}"; done
    rm -rf "$again"
}

# debian/copyright contains the LICENSE of the project.
same_licence() {
    diff <(sed -n '/^Permission/,$p' LICENSE) \
        <(sed -n '/^License:/,$s/^ //p' packaging/debian/copyright | sed 's/^\.$//')
}

# Hints are listed and allowed; errors and warnings are not.
run_lintian() { lintian --display-info --pedantic --fail-on error,warning "$packages"/*.changes; }

make_clean_root() {
    local sources=/etc/apt/sources.list.d/debian.sources release
    if [[ ! -f $sources ]]; then sources=/etc/apt/sources.list; fi
    release=$(. /etc/os-release && echo "$VERSION_CODENAME")
    rm -rf --one-file-system "$clean_root"
    mmdebstrap --variant=apt "$release" "$clean_root" - <"$sources"
    printf '%s;\n' 'APT::Get::Assume-Yes "true"' 'APT::Install-Recommends "false"' \
        >"$clean_root/etc/apt/apt.conf.d/unattended"
    # shellcheck disable=SC2016 # a user's sudo; the root has none and needs none
    install -m 755 /dev/stdin "$clean_root/usr/local/bin/sudo" <<<'#!/bin/sh
exec "$@"'
    run_cleanly /mnt apt-get update
}

# run_cleanly FOLDER COMMAND...: in the clean root, where /mnt has the packages and their sources.
run_cleanly() {
    # shellcheck disable=SC2016 # the inner shell expands them
    unshare -m bash -euo pipefail -c '
        mount --rbind /dev "$clean_root/dev"
        mount -t proc proc "$clean_root/proc"
        mount -t tmpfs tmpfs "$clean_root/tmp"
        mount --bind "$packages" "$clean_root/mnt"
        exec chroot "$clean_root" env -i HOME=/root PATH=/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 \
            DEBIAN_FRONTEND=noninteractive AUTOPKGTEST_TMP=/tmp bash -euo pipefail -c "cd \"\$0\"; \"\$@\"" "$@"
    ' cleanly "$@"
}

# blocks TITLE KIND: the blocks of this kind in this section of the document.
blocks() {
    awk -v "title=## $1" -v "beginning=\`\`\`$2" '
        /^## / { inside = $0 == title }
        /^```/ { block = inside && $0 == beginning; next }
        block' docs/debian.md
}

# run_section TITLE: the commands of this section, in the folder with the packages. They print every line that the
# document says.
run_section() {
    local commands line output=$root/build/debian/output
    commands=$(blocks "$1" sh)
    run_cleanly /mnt bash -euxo pipefail -c "${commands:?}" | tee "$output"
    while IFS= read -r line; do
        grep -Fxq -- "$line" <(sed 's/ *$//' "$output") || { echo "not printed: $line" && return 1; }
    done < <(blocks "$1" text)
}

install_test_tools() {
    local names
    names=$(sed -n 's/^Depends: //p' packaging/debian/tests/control | tr -d ,)
    # shellcheck disable=SC2086 # one word per package
    run_cleanly /mnt apt-get install $names
}

run_package_tests() {
    local test
    for test in $(sed -n 's/^Tests: //p' packaging/debian/tests/control); do
        check "installed packages, tests/$test" strictly "run_cleanly /mnt/source debian/tests/$test"
    done
}

# Of the packages, less the package manager's own files.
purge() {
    run_section Removal
    run_cleanly / find . -xdev -iname '*vantro*' ! -path './mnt/*' ! -path './var/log/*' ! -path './var/cache/*' |
        tee build/debian/left
    [[ ! -s build/debian/left ]]
}

main() {
    local section
    install_missing "${debian_packages[@]}"
    step "packages: build, and samples" strictly build
    check "licence" strictly same_licence
    check "lintian" strictly run_lintian
    grep -E '^[EWIPX]: ' "$log" || true
    if [[ ${1:-} == again ]]; then check "the same packages again" strictly same_again; fi
    if ((EUID != 0)); then
        echo "The packages were not installed: the clean root needs the rights of root."
        skipped=$((skipped + 1))
        return
    fi
    step "clean root" strictly make_clean_root
    for section in "The tool" "From Python" "C++ and C"; do
        check "docs/debian.md, $section" strictly "run_section '$section'"
    done
    step "tools of the tests" strictly install_test_tools
    run_package_tests
    check "docs/debian.md, Removal: nothing is left" strictly purge
}

# In braces, so that a change of this file while it runs does no harm.
{
    main "$@"
    close_counts
    exit
}
