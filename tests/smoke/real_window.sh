#!/usr/bin/env bash
# A real window on a virtual display: clicked, hovered, tabbed, typed into, resized, scrolled,
# and read and pressed by a second process over the accessibility bus.
set -euo pipefail
bin=$1
for program in Xvfb xdotool dbus-run-session; do
  command -v "$program" >/dev/null || exit 77
done
[[ -x $bin/window_probe ]] || exit 77

# shellcheck source=tests/smoke/home.bash
source "$(dirname "${BASH_SOURCE[0]}")/home.bash"
on_own_bus "$bin"
# shellcheck source=tests/smoke/display.bash
source "$(dirname "${BASH_SOURCE[0]}")/display.bash"

start_probe window_probe PROBE
find_places scroll

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
grab "$before"
xdotool click --repeat 3 5
scrolled() {
  grab "$after"
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
reader() { "$bin/accessibility_reader" window_probe "$@" 2>/dev/null; }
pressed() { reader press 'push button' OK; }
until_true pressed
reader >"$tree"
until_true heard "pressed OK" 2
for name in Save Settings OK; do
  grep -q "push button '$name'" "$tree" || { echo "not in the accessibility tree: $name" >&2; cat "$tree" >&2; exit 1; }
done
# Texts out of sight are read as well, and keep their places on the bus.
grep -q "'tag399'" "$tree" || { echo "not in the accessibility tree: tag399" >&2; exit 1; }
echo quit >&6
if [[ -n ${ZQ_KEEP:-} ]]; then cp "$home"/*.png "$tree" "$ZQ_KEEP"; fi
echo "clicked, hovered, tabbed, typed, scrolled, resized, read and pressed"
