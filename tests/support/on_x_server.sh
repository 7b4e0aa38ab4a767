#!/usr/bin/env bash
# on_x_server.sh PROGRAM [ARGUMENT...]: runs the program's windows on an X server of its own, on a
# display that is free, and ends with the program's status. Nothing stays behind.
set -euo pipefail

folder=$(mktemp -d)
server=
clean_up() {
  if [ -n "$server" ]; then
    kill "$server" 2>/dev/null || true
    wait "$server" 2>/dev/null || true
  fi
  rm -rf "$folder"
}
trap clean_up EXIT
trap 'exit 143' INT TERM

# The server writes the number of its display as soon as it answers there.
mkfifo "$folder/display"
Xvfb -displayfd 3 -screen 0 1280x1024x24 -dpi 96 -nolisten tcp -noreset \
  3<>"$folder/display" >"$folder/log" 2>&1 &
server=$!
if ! read -r -t 20 number <"$folder/display"; then
  cat "$folder/log" >&2
  exit 1
fi
DISPLAY=:$number QT_QPA_PLATFORM=xcb "$@"
