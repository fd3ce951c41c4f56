#!/usr/bin/env bash
# Installs what is missing, registers the ODBC drivers and builds in build/
# the given targets, or everything.
# A second call installs and rebuilds nothing that is already there.
set -euo pipefail
cd "$(dirname "$0")/.."

# GnuTLS's headers only for the tests' loopback listener, which speaks TLS.
bash scripts/install_missing.sh cmake gcc g++ make dpkg-dev qt6-base-dev libsqlite3-dev unixodbc \
    unixodbc-dev odbcinst tdsodbc libsqliteodbc libtomlplusplus-dev pkg-config libgnutls28-dev

register_driver() { # name, library file
    if ! odbcinst -q -d -n "$1" >/dev/null 2>&1; then
        library=$(find /usr/lib -name "$2" 2>/dev/null | head -n 1)
        [ -n "$library" ] || { echo "ODBC driver library $2 not found" >&2; exit 1; }
        printf '[%s]\nDescription=%s\nDriver=%s\n' "$1" "$1" "$library" > /tmp/zrt-odbc-driver.ini
        odbcinst -i -d -f /tmp/zrt-odbc-driver.ini >/dev/null
    fi
}
register_driver FreeTDS libtdsodbc.so
register_driver SQLite3 libsqlite3odbc.so

[ -f build/CMakeCache.txt ] || cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo
targets=()
for target in "$@"; do
    targets+=(--target "$target")
done
cmake --build build -j"$(nproc)" "${targets[@]}"
