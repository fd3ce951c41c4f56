#!/usr/bin/env bash
# Sets up what is missing, builds, and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cd build
ctest --output-on-failure --no-tests=error
