# shellcheck shell=bash disable=SC2154
# What the scripts with a real window share: a folder and a display of their own, and a probe that
# is told what to do on its standard input. Sourced, not run; `bin` is set.

# shellcheck source=tests/smoke/home.bash
[[ -v home ]] || source "$(dirname "${BASH_SOURCE[0]}")/home.bash"
export QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1

# Without -noreset it begins anew when the last window closes, and the next finds no display.
Xvfb -displayfd 5 -screen 0 1280x800x24 -nolisten tcp -noreset 5>"$home/display" >/dev/null 2>&1 &
pids+=($!)
until_true test -s "$home/display"
DISPLAY=:$(cat "$home/display")
export DISPLAY

mkfifo "$home/in"
start_probe() {  # PROGRAM TITLE
  "$bin/$1" <"$home/in" >"$home/out" 2>"$home/err" &
  pids+=($!)
  exec 6>"$home/in"
  until_true heard ready
  window=$(xdotool search --sync --onlyvisible --name "^$2\$")
  xdotool windowfocus --sync "$window"
}
heard() { [[ $(grep -cxF -- "$1" "$home/out") -ge ${2:-1} ]]; }
said() { grep -qF -- "$1" "$home/out"; }
find_places() {  # LAST: until that one is known
  echo places >&6
  until_true said "at $1"
}
place() { sed -n "s/^at $1 //p" "$home/out" | tail -1; }
# shellcheck disable=SC2046
move() { xdotool mousemove --window "$window" $(place "$1"); }
grab() {  # FILE: what the window shows now
  local count
  count=$(grep -cx grabbed "$home/out" || true)
  echo "grab $1" >&6
  until_true heard grabbed $((count + 1))
}
