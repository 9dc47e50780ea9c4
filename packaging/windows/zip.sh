#!/usr/bin/env bash
# Builds the archive for Windows: build/windows-zip/VantroProfileUtils-<version>-windows.zip with both COM servers, their
# manifests and type libraries, the script that registers them, the command-line tool, the documents, examples and
# samples, the JSON Schemas of the tool's outputs, and checksums. Installs missing packages (Debian).
set -euo pipefail
cd "$(dirname "$0")/../.."
# shellcheck source=scripts/lib.sh
source scripts/lib.sh

install_missing "${windows_zip_packages[@]}"

# The same sources produce the same archive, whoever builds it and when.
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}
export SOURCE_DATE_EPOCH TZ=UTC LC_ALL=C
umask 022

version=$(sed -nE 's/^project\(VantroProfileUtils VERSION ([0-9.]+).*/\1/p' CMakeLists.txt)
name=VantroProfileUtils-$version
out=$root/build/windows-zip
rm -rf "$out"

for architecture in x86 x64; do
    step "mingw-$architecture: configure" cmake --preset "mingw-$architecture"
    step "mingw-$architecture: build" cmake --build --preset "mingw-$architecture" -j 2 --target VantroProfileUtils \
        VantroKestoFaces vantro_manifest vantro_profile_cli
    built=build/mingw-$architecture
    folder=$out/$name/$architecture
    mkdir -p "$folder" "$out/$name/development/$architecture"
    cp "$built/bin/VantroProfileUtils.dll" "$built/bin/VantroProfileUtils.manifest" "$built/bin/vantro-profile.exe" \
        "$folder"
    cp "$built/server/idl/vantro_profile_utils.tlb" "$folder/VantroProfileUtils.tlb"
    cp "$built/bin/VantroKestoFaces.dll" "$out/$name/development/$architecture"
done
cp server/vantro_profile_utils.idl "$out/$name/VantroProfileUtils.idl"
cp -r docs examples samples schemas "$out/$name"
cp packaging/windows/README.md CHANGELOG.md LICENSE SECURITY.md "$out/$name"
# The command prompt does not find labels in a file with plain line feeds.
sed 's/$/\r/' packaging/windows/install.cmd >"$out/$name/install.cmd"

(cd "$out/$name" && find . -type f -printf '%P\0' | sort -z | xargs -0 sha256sum) >"$out/SHA256SUMS"
mv "$out/SHA256SUMS" "$out/$name/SHA256SUMS"
find "$out/$name" -type f -exec chmod 644 {} +
find "$out/$name" -exec touch -d "@$SOURCE_DATE_EPOCH" {} +
(cd "$out" && find "$name" -type f | sort | zip -q -X -@ "$name-windows.zip")
(cd "$out" && sha256sum "$name-windows.zip" >"$name-windows.zip.sha256")
echo "$out/$name-windows.zip"
