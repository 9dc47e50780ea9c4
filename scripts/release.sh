#!/usr/bin/env bash
# Makes and checks everything that a release consists of, from a tag, in a clean checkout of its own. The files are then
# in build/releases/VERSION: the sources, the Debian packages, the Python packages, the npm package, the Windows archive,
# the site, the bill of materials (SPDX) and checksums.
#
#   scripts/release.sh v1.2.3       the version in CMakeLists.txt and a section of CHANGELOG.md must be those of the tag
#   scripts/release.sh --rehearse   the last commit, whose changes are still under "Unreleased"
#
# Takes about half an hour on two cores. The last line of a green run is "N passed, 0 failed, M skipped".
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

# What a release consists of: a title, the script that makes and checks it, the files that it leaves.
parts=(
    "tests|scripts/test.sh|"
    "binary interfaces|scripts/abi.sh check|"
    "Python packages|scripts/python.sh|build/python/dist/*"
    "Debian packages|scripts/debian.sh|build/debian/packages/*.deb"
    "npm package|scripts/javascript.sh|build/js/dist/*.tgz"
    "Windows archive|scripts/test-windows-zip.sh|build/windows-zip/*.zip"
    "site|scripts/site.sh|"
)

usage() {
    echo "usage: scripts/release.sh v1.2.3 | --rehearse" >&2
    exit 2
}

rehearsal=
case ${1:-} in
--rehearse) tag=HEAD rehearsal=yes ;;
v[0-9]*.[0-9]*.[0-9]*) tag=$1 ;;
*) usage ;;
esac
if (($# != 1)); then usage; fi
commit=$(git rev-parse --verify -q "$tag^{commit}") || {
    echo "scripts/release.sh: there is no tag $tag" >&2
    exit 2
}

# The checkout is always in the same folder, so that the compiler cache knows its files.
checkout=$root/build/releases/checkout
version=$(git show "$commit:CMakeLists.txt" | sed -nE 's/^project\(VantroProfileUtils VERSION ([0-9.]+).*/\1/p')
files=$root/build/releases/$version
base=VantroProfileUtils-$version
# The same sources produce the same files, whoever builds them and when.
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct "$commit")
export SOURCE_DATE_EPOCH root checkout version files base commit tag rehearsal

check_version() {
    if [[ $rehearsal ]]; then
        grep -Fx "## [Unreleased]" "$checkout/CHANGELOG.md"
        return
    fi
    [[ $tag == "v$version" ]]
    grep -E "^## \[${version//./\\.}\] - [0-9]{4}-[0-9]{2}-[0-9]{2}$" "$checkout/CHANGELOG.md"
}

clean_checkout() {
    rm -rf "$checkout" "$files"
    mkdir -p "$files"
    git clone -q --shared "$root" "$checkout"
    git -C "$checkout" checkout -q --detach "$commit"
}

# pack NAME FOLDER: the folder's files as NAME.tar.gz, without what differs from one machine to another.
pack_folder() {
    tar --sort=name --mtime="@$SOURCE_DATE_EPOCH" --owner=0 --group=0 --numeric-owner --mode=u+w,go=rX \
        --transform "s,^\.,$1," -C "$2" -cf - . | gzip -9n >"$files/$1.tar.gz"
}

pack_sources() { git archive --format=tar --prefix="$base/" "$commit" | gzip -9n >"$files/$base-source.tar.gz"; }
pack_site() { pack_folder "$base-site" "$checkout/build/site"; }

# The files of a release, each once, and each with the version in its name.
check_files() {
    local pattern name
    mv "$files/vantro-profile-utils-$version.tgz" "$files/vantro-profile-utils-$version-npm.tgz"
    for pattern in "$base-source.tar.gz" "$base-site.tar.gz" "$base-windows.zip" "vantro*$version*.whl" \
        "vantro*$version.tar.gz" "vantro-profile-utils-$version-npm.tgz" "vantro-profile_$version*.deb" \
        "libvantro-c1_$version*.deb" "libvantroprofileutils-dev_$version*.deb" "python3-vantro-profile_$version*.deb"; do
        name=$(find "$files" -maxdepth 1 -name "$pattern" -printf '%f ')
        if (($(wc -w <<<"$name") != 1)); then
            echo "$pattern: expected one file, found: $name"
            return 1
        fi
    done
}

write_sums() {
    (cd "$files" && find . -maxdepth 1 -type f ! -name SHA256SUMS -printf '%P\n' | LC_ALL=C sort | xargs sha256sum >SHA256SUMS)
    (cd "$files" && sha256sum --check --quiet SHA256SUMS)
}

bill_of_materials() {
    python3 -B "$checkout/packaging/release/sbom.py" "$files" "$version" "$commit" "$SOURCE_DATE_EPOCH"
}

main() {
    local part title script found
    step "clean checkout of $tag" strictly clean_checkout
    check "version and changelog" strictly check_version
    for part in "${parts[@]}"; do
        IFS='|' read -r title script found <<<"$part"
        # shellcheck disable=SC2086 # a script and its arguments
        count_closing_line "$title" bash -c "cd '$checkout' && exec bash $script"
        # shellcheck disable=SC2086 # a pattern
        if [[ $found ]]; then step "$title: files" cp $checkout/$found "$files"; fi
    done
    step "pack the sources" strictly pack_sources
    step "pack the site" strictly pack_site
    check "files" strictly check_files
    check "bill of materials" strictly bill_of_materials
    check "checksums" strictly write_sums
    (cd "$files" && du -h -- *)
    close_counts
}

# In braces, so that a change of this file while it runs does no harm.
{
    main
    exit
}
