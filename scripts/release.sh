#!/usr/bin/env bash
# Builds the release archive of the COM server: build/release-archive/VantroProfileUtils-<version>.zip with both servers,
# their manifests, the command-line tool, the type library, the documents, the JSON Schemas of the tool's outputs and
# checksums. Installs missing packages (Debian).
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

install_missing "${com_x64_packages[@]}" "${com_x86_packages[@]}" git zip

# The same sources produce the same archive, whoever builds it and when.
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}
export SOURCE_DATE_EPOCH TZ=UTC LC_ALL=C
umask 022

version=$(sed -nE 's/^project\(VantroProfileUtils VERSION ([0-9.]+).*/\1/p' CMakeLists.txt)
name=VantroProfileUtils-$version
out=$root/build/release-archive
rm -rf "$out"

for architecture in x86 x64; do
    step "mingw-$architecture: configure" cmake --preset "mingw-$architecture"
    step "mingw-$architecture: build" cmake --build --preset "mingw-$architecture" -j 2 --target VantroProfileUtils \
        VantroKestoFaces vantro_manifest vantro_profile_cli
    bin=build/mingw-$architecture/bin
    mkdir -p "$out/$name/$architecture" "$out/$name/development/$architecture"
    cp "$bin/VantroProfileUtils.dll" "$bin/VantroProfileUtils.manifest" "$bin/vantro-profile.exe" \
        "$out/$name/$architecture"
    cp "$bin/VantroKestoFaces.dll" "$out/$name/development/$architecture"
done
cp build/mingw-x64/server/idl/vantro_profile_utils.tlb "$out/$name/VantroProfileUtils.tlb"
cp server/vantro_profile_utils.idl "$out/$name/VantroProfileUtils.idl"
mkdir -p "$out/$name/docs"
cp docs/captures.md docs/com.md docs/parse.md docs/powershell.md docs/rows.md "$out/$name/docs"
cp -r schemas "$out/$name/schemas"
cp README.md CHANGELOG.md LICENSE SECURITY.md "$out/$name"

(cd "$out/$name" && find . -type f -print0 | sort -z | xargs -0 sha256sum) >"$out/SHA256SUMS"
mv "$out/SHA256SUMS" "$out/$name/SHA256SUMS"
find "$out/$name" -type f -exec chmod 644 {} +
find "$out/$name" -exec touch -d "@$SOURCE_DATE_EPOCH" {} +
(cd "$out" && find "$name" -type f | sort | zip -q -X -@ "$name.zip")
(cd "$out" && sha256sum "$name.zip" >"$name.zip.sha256")
echo "$out/$name.zip"
