#!/usr/bin/env bash
# Sets up what is missing, builds, and starts the tool (arguments go to it).
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
exec build/src/app/zrt "$@"
