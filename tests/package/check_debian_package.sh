#!/usr/bin/env bash
# Builds the Debian package from the build folder and checks what it installs
# and that it depends on the run-time packages.
set -euo pipefail
build=$1
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
(cd "$build" && cpack -G DEB -B "$out" >/dev/null)
deb=$(ls "$out"/*.deb)
info=$(dpkg-deb --info "$deb")
echo "$info" | grep '^ Depends:'
for needed in libodbc2 tdsodbc unixodbc libqt6widgets6; do
    echo "$info" | grep '^ Depends:' | grep -q "$needed" || { echo "missing dependency: $needed"; exit 1; }
done
contents=$(dpkg-deb --contents "$deb")
for file in ./usr/bin/zrt ./usr/share/applications/zrt.desktop ./usr/share/icons/hicolor/64x64/apps/zrt.png; do
    echo "$contents" | grep -q " $file\$" || { echo "missing file: $file"; exit 1; }
done
