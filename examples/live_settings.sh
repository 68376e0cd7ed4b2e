#!/usr/bin/env bash
# Plays the configurator beside the example of live settings, on a display and a session bus of
# their own: BIN is where the programs lie, and OUT where the pictures go. A value is dragged in
# the one and the drawing of the other follows; at last one is changed from a shell, and both follow.
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

Xvfb -displayfd 5 -screen 0 1480x700x24 -nolisten tcp -noreset 5>"$home/display" >/dev/null 2>&1 &
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
window() { xdotool search --onlyvisible --name "$1" 2>/dev/null | head -1; }
opened() { [[ -n $(window "$1") ]]; }
"$home/example_live_settings" &
pids+=($!)
"$bin/zq-configurator" "$home/live_settings.zquic" >/dev/null &
pids+=($!)
until_true opened '^Live settings$'
until_true opened 'Configurator$'
xdotool windowsize --sync "$(window 'Configurator$')" 1050 700
xdotool windowmove --sync "$(window '^Live settings$')" 1055 0
xdotool windowfocus --sync "$(window 'Configurator$')"

# Waits for the screen to become another one than it was last.
: >"$home/last.png"
changed() { "$bin/screen_picture" "$home/now.png" && ! cmp -s "$home/now.png" "$home/last.png"; }
picture() {
  sleep 0.5  # for the window's last frame; nothing but a picture hangs on it
  until_true changed
  cp "$home/now.png" "$home/last.png"
  cp "$home/now.png" "$out/$1.png"
}
# Whether the diameter stands in the file, which is written once it has come to rest.
holds() { [[ $("$bin/zqc" get "$home/live_settings.zquic" Dots diameter --type double) == "$1" ]]; }
drag() {
  xdotool mousemove "$1" "$2" mousedown 1
  for ((x = $1; x <= $1 + $3; x += 4)); do xdotool mousemove "$x" "$2"; done
  xdotool mouseup 1
}
xdotool mousemove 500 167 click 1 # diameter, the third value of the first group
picture live-settings-1
drag 815 191 32
until_true holds 34.0
picture live-settings-2
"$bin/zqc" set "$home/live_settings.zquic" Paper blue 0.4 --broadcast >/dev/null
picture live-settings-3
