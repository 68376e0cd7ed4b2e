#!/usr/bin/env bash
# A real window on a virtual display: clicked, hovered, tabbed, typed into, resized, scrolled,
# and read and pressed by a second process over the accessibility bus.
set -euo pipefail
bin=$1
for program in Xvfb xdotool dbus-run-session; do
  command -v "$program" >/dev/null || exit 77
done
[[ -x $bin/window_probe ]] || exit 77
if [[ -z ${ZQ_INSIDE_BUS:-} ]]; then
  exec env -u DBUS_SESSION_BUS_ADDRESS ZQ_INSIDE_BUS=1 dbus-run-session -- bash "$0" "$bin"
fi

home=$(mktemp -d)
mkdir -m 0700 "$home/runtime"
pids=()
cleanup() {
  for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$home"
}
trap cleanup EXIT
export HOME=$home XDG_RUNTIME_DIR=$home/runtime QT_QPA_PLATFORM=xcb
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1

Xvfb -displayfd 5 -screen 0 1280x800x24 -nolisten tcp 5>"$home/display" >/dev/null 2>&1 &
pids+=($!)
until_true() {  # waits for a condition, not for a time
  for _ in $(seq 400); do
    if "$@"; then return 0; fi
    sleep 0.05
  done
  echo "never came: $*" >&2
  cat "$home/out" >&2
  exit 1
}
until_true test -s "$home/display"
DISPLAY=:$(cat "$home/display")
export DISPLAY

mkfifo "$home/in"
"$bin/window_probe" <"$home/in" >"$home/out" 2>"$home/err" &
pids+=($!)
exec 6>"$home/in"
heard() { [[ $(grep -cxF -- "$1" "$home/out") -ge ${2:-1} ]]; }
said() { grep -qF -- "$1" "$home/out"; }
until_true heard ready
window=$(xdotool search --sync --onlyvisible --name '^PROBE$')
xdotool windowfocus --sync "$window"

echo places >&6
until_true said "at scroll"
place() { sed -n "s/^at $1 //p" "$home/out" | head -1; }
# shellcheck disable=SC2046
move() { xdotool mousemove --window "$window" $(place "$1"); }

move Save
until_true heard "hover in"
xdotool click 1
until_true heard "pressed Save"
move field
until_true heard "hover out"

xdotool click 1
xdotool key End
xdotool type --delay 15 ', c,'
until_true heard "tokens [a] [b] [ c] []"

# From the field backwards: OK, Settings, Save.
xdotool key shift+Tab
xdotool key space
until_true heard "pressed OK"
xdotool key shift+Tab
xdotool key Return
until_true heard "pressed Settings"

move scroll
before=$home/before.png after=$home/after.png
echo "grab $before" >&6
until_true heard grabbed 1
xdotool click --repeat 3 5
scrolled() {
  local count
  count=$(grep -cx grabbed "$home/out")
  echo "grab $after" >&6
  until_true heard grabbed $((count + 1))
  ! cmp -s "$before" "$after"
}
until_true scrolled

xdotool windowsize "$window" 300 500
resized() {
  echo size >&6
  said "size 300"
}
until_true resized

tree=$home/tree
read_tree() { "$bin/accessibility_reader" window_probe OK >"$tree" 2>/dev/null; }
until_true read_tree
until_true heard "pressed OK" 2
for name in Save Settings OK; do
  grep -q "push button '$name'" "$tree" || { echo "not in the accessibility tree: $name" >&2; cat "$tree" >&2; exit 1; }
done
# Texts out of sight are read as well, and keep their places on the bus.
grep -q "'tag399'" "$tree" || { echo "not in the accessibility tree: tag399" >&2; exit 1; }
echo quit >&6
if [[ -n ${ZQ_KEEP:-} ]]; then cp "$home"/*.png "$tree" "$ZQ_KEEP"; fi
echo "clicked, hovered, tabbed, typed, scrolled, resized, read and pressed"
