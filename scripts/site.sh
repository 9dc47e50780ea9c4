#!/usr/bin/env bash
# Builds the site into build/site: the reference, made by the tool of build/ci-gcc from what it says about itself, the
# guides, the documents, and the C++ headers. Runs every example of the guides, and checks the links of the built pages.
# Installs what is missing (Debian). The last line of a green run is "N passed, 0 failed, 0 skipped".
#
# With "browser" it is opened in headless Chromium too, and the screenshots are in build/site-pictures.
# Look at it with: python3 -m http.server --directory build/site
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

# Debian's Python: another one in the search path does not have Debian's packages.
export python=/usr/bin/python3 work=$root/build/site-work pages=$root/build/site-src PYTHONDONTWRITEBYTECODE=1
export PATH=$root/build/ci-gcc/bin:$PATH
export playground=
if [[ -x scripts/javascript.sh ]]; then playground=playground; fi

# The tool, and a library as a user of the guides installs it. A guide's home folder is in $work/guides.
build_and_install() {
    cmake --preset ci-gcc
    cmake --build --preset ci-gcc --target vantro_profile_cli vantro_profile_shell_files vantro_c
    rm -rf "$work"
    cmake --install build/ci-gcc --prefix "$work/vantro"
}

# The headers are a part of the pages, so that links to them are checked.
write_pages() {
    (cd site && "$python" -m generator "$root/build/ci-gcc/bin/vantro-profile" "$pages" "$playground")
    {
        cat site/Doxyfile
        printf 'OUTPUT_DIRECTORY = "%s"\n' "$pages/pages"
    } | doxygen -
}

# MkDocs fails with any warning: a link to a page that is not there, a page that the navigation names and that is not.
build_site() {
    rm -rf build/site
    mkdocs build --strict --config-file "$pages/mkdocs.yml" --site-dir "$root/build/site"
    rm -f build/site/sitemap.xml.gz
}

run_guide() {
    mkdir -p "$work/guides/$guide"
    ln -sfn "$work/vantro" "$work/guides/$guide/vantro"
    "$python" site/examples.py "site/$guide.md" "$work/guides/$guide"
}

check_documents() {
    find README.md samples docs -name '*.md' -exec "$python" site/documents_check.py "$work/documents" {} +
}

main() {
    if [[ ${1:-} == browser ]]; then site_packages+=("${browser_packages[@]}"); fi
    install_missing "${site_packages[@]}"
    step "site: build the tool" strictly build_and_install
    step "site: write the pages" strictly write_pages
    step "site: build" strictly build_site
    if [[ $playground ]]; then
        check "site: playground" scripts/javascript.sh --playground build/site/playground
    fi
    check "site: the generator and the pages" "$python" -m pytest -q -p no:cacheprovider site/tests
    for guide in index guides/cpp guides/terminal guides/scripts guides/archives; do
        export guide
        check "site: examples of $guide" strictly run_guide
    done
    check "site: examples of the documents" strictly check_documents
    check "site: links" "$python" site/links.py build/site
    if [[ ${1:-} == browser ]]; then
        count_closing_line "site: in a browser" "$python" site/browser_test.py build/site build/site-pictures
    fi
    close_counts
}

# In braces, so that a change of this file while it runs does no harm.
{
    main "$@"
    exit
}
