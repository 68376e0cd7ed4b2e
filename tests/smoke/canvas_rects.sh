#!/usr/bin/env bash
# Rectangles on a canvas in a real window: drawn with the pointer and moved with the keys, a
# corner grabbed a good way off its handle, and the keys on the handles; read by a second process.
set -euo pipefail
bin=$1
for program in Xvfb xdotool dbus-run-session; do
  command -v "$program" >/dev/null || exit 77
done
[[ -x $bin/canvas_probe ]] || exit 77

# shellcheck source=tests/smoke/home.bash
source "$(dirname "${BASH_SOURCE[0]}")/home.bash"
on_own_bus "$bin"
# shellcheck source=tests/smoke/display.bash
source "$(dirname "${BASH_SOURCE[0]}")/display.bash"

start_probe canvas_probe PROBE
find_places "Lower right corner"

go() { xdotool mousemove --window "$window" "$1" "$2"; }
drag() {  # X Y BY BY
  go "$1" "$2"
  xdotool mousedown 1
  go $(($1 + $3 / 2)) $(($2 + $4 / 2))
  go $(($1 + $3)) $(($2 + $4))
  xdotool mouseup 1
}

# The canvas is 400 points wide and 1600 units, its origin at 20, 20.
drag 70 45 100 50
until_true heard "drawn x 200 y 100, 400 by 200"
drag 170 95 -6 -6  # too short for a drag, but the focus comes
xdotool key Right shift+Down ctrl+Left
until_true heard "drawn x 201 y 110, 399 by 200"
drag 220 120 -220 -120  # 20 points over the corner: moved in, not cut
until_true heard "drawn x 0 y 0, 880 by 480"

# The corners stand at a quarter and three quarters of 400 by 200.
read -r x y <<<"$(place "Upper left corner")"
go $((x - 11)) $((y + 11))
pointed() {  # Qt::SizeFDiagCursor
  echo cursor >&6
  heard "cursor 8"
}
until_true pointed
drag $((x - 11)) $((y + 11)) 40 20
until_true heard "kept x 0.35 y 0.35, 0.5 by 0.5"
xdotool key Left shift+Down
until_true heard "kept x 0.3475 y 0.4, 0.5 by 0.5"
xdotool key Tab shift+Right
until_true heard "kept x 0.3475 y 0.4, 0.4275 by 0.35"
read -r x y <<<"$(place "Lower right corner")"
drag $((x + 10 + 9)) $((y - 9)) -40 -20  # where the key has put it
until_true heard "kept x 0.3475 y 0.4, 0.3275 by 0.25"

# Another process reads where it is.
spoken() { "$bin/accessibility_reader" canvas_probe 2>/dev/null | grep -qF "slider 'Rectangle' x 0 y 0, 880 by 480"; }
until_true spoken

if [[ -n ${ZQ_KEEP:-} ]]; then grab "$ZQ_KEEP/canvas_rects.png"; fi
echo quit >&6
echo "drawn, moved by keys, and dragged by the corners"
