#!/usr/bin/env bash
# Plays the example of live settings on a display and a session bus of its own: BIN is where
# the programs lie, and OUT where two pictures go, before and after changes from a shell.
set -euo pipefail
bin=$1 out=$2
if [[ -z ${ZQ_INSIDE_BUS:-} ]]; then
  exec env -u DBUS_SESSION_BUS_ADDRESS ZQ_INSIDE_BUS=1 dbus-run-session -- bash "$0" "$@" \
    2> >(grep -v 'Failed to set fd limit' >&2)
fi
home=$(mktemp -d)
mkdir -m 0700 "$home/runtime"
pids=()
cleanup() {  # the window before its display
  for ((i = ${#pids[@]} - 1; i >= 0; --i)); do
    kill "${pids[i]}" 2>/dev/null || true
    wait "${pids[i]}" 2>/dev/null || true
  done
  rm -rf "$home"
}
trap cleanup EXIT

Xvfb -displayfd 5 -screen 0 420x420x24 -nolisten tcp 5>"$home/display" >/dev/null 2>&1 &
pids+=($!)
until_true() {
  for _ in $(seq 200); do
    if "$@"; then return 0; fi
    sleep 0.05
  done
  echo "never came: $*" >&2
  exit 1
}
until_true test -s "$home/display"
DISPLAY=:$(cat "$home/display")
export DISPLAY HOME=$home XDG_RUNTIME_DIR=$home/runtime QT_QPA_PLATFORM=xcb

# A copy, so that the demonstration leaves the settings as they are.
cp "$bin/example_live_settings" "$bin/live_settings.zquic" "$home/"
"$home/example_live_settings" &
pids+=($!)
until_true xdotool search --onlyvisible --name 'Live settings' >/dev/null 2>&1

# Waits for the screen to become another one than it was last.
: >"$home/last.png"
changed() { "$bin/screen_picture" "$home/now.png" && ! cmp -s "$home/now.png" "$home/last.png"; }
picture() {
  sleep 0.5  # for the window's last frame; nothing but a picture hangs on it
  until_true changed
  cp "$home/now.png" "$home/last.png"
  cp "$home/now.png" "$out/$1.png"
}
picture live-settings-1
change() { "$bin/zqc" set "$home/live_settings.zquic" "$@" --broadcast >/dev/null; }
change Dots diameter 38
change Paper blue 0.4
change Title text 'Changed from a shell'
picture live-settings-2
