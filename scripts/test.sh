#!/usr/bin/env bash
# Sets up what is missing, builds, and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
# What only the tests use: the package's checkers, the validator of the JSON
# schemas, a browser in which the report index is checked as it renders, and
# openssl, which makes the certificates of the listener that speaks TLS.
bash scripts/install_missing.sh lintian desktop-file-utils man-db zsh chromium python3-jsonschema openssl
bash scripts/setup.sh
cd build
ctest --output-on-failure --no-tests=error
