#!/bin/sh
# zrt without a command and with a display starts the zrt-window beside it,
# whatever zrt-window PATH may hold.
set -eu
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
cp "$1" "$dir/zrt"
printf '#!/bin/sh\necho "window started with $# arguments"\n' >"$dir/zrt-window"
chmod +x "$dir/zrt-window"
started=$(env -u DISPLAY -u WAYLAND_DISPLAY QT_QPA_PLATFORM=offscreen "$dir/zrt")
[ "$started" = "window started with 0 arguments" ] || { echo "zrt printed: $started"; exit 1; }
