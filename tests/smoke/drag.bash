# shellcheck shell=bash disable=SC2154
# Drags by a process of their own: a window whose rows are dragged, each something of a folder.
# Sourced after display.bash.

told() { grep -qxF -- "$1" "$home/source/out"; }
start_source() {  # FOLDER
  mkdir "$home/source"
  mkfifo "$home/source/in"
  "$bin/drop_probe" source "$1" <"$home/source/in" >"$home/source/out" 2>"$home/source/err" &
  pids+=($!)
  exec 7>"$home/source/in"
  until_true told ready
  source_window=$(xdotool search --sync --onlyvisible --name '^SOURCE$')
  echo places >&7
  until_true grep -q '^at withheld' "$home/source/out"
}

drags=0
pick_up() {  # WHAT: until the drag is under way
  drags=$((drags + 1))
  local x y
  read -r x y <<<"$(sed -n "s/^at $1 //p" "$home/source/out")"
  xdotool mousemove --window "$source_window" "$x" "$y" mousedown 1
  until_true nudged "dragging $drags"
}
# Moves the pointer to and fro, by more than the ten points that make a drag.
by=12
nudged() {
  by=$((-by))
  xdotool mousemove_relative -- "$by" 0
  told "$1"
}
carry_to() {  # WINDOW X Y
  xdotool mousemove --window "$1" "$2" "$3"
  until_true nudged "over $drags taken"
}
let_go() {  # HOW it ends
  xdotool mouseup 1
  until_true told "ended $drags $1"
}
