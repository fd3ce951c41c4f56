#!/usr/bin/env bash
# Sets up what is missing, builds, and starts the tool (arguments go to it).
# Without a display the window cannot open: it says so first, then builds the
# command line only.
set -euo pipefail
cd "$(dirname "$0")/.."
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
    echo "run.sh: no display (DISPLAY, WAYLAND_DISPLAY and QT_QPA_PLATFORM are unset), so no window:" \
        "building the command line only; then run build/src/app/zrt COMMAND (zrt --help lists them)" >&2
    bash scripts/setup.sh zrt
else
    bash scripts/setup.sh zrt zrt-window
fi
exec build/src/app/zrt "$@"
