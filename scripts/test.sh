#!/usr/bin/env bash
# Sets up what is missing, builds, and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
# What only the tests use: the package's checkers, the validator of the JSON
# schemas, and a browser in which the report index is checked as it renders.
bash scripts/install_missing.sh lintian desktop-file-utils man-db zsh chromium python3-jsonschema
bash scripts/setup.sh
cd build
ctest --output-on-failure --no-tests=error
