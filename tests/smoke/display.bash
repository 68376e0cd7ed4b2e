# shellcheck shell=bash disable=SC2154
# What the scripts with a real window share: a folder and a display of their own, a probe that is
# told what to do on its standard input, and waiting. Sourced, not run; `bin` is set.

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
