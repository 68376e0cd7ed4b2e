#!/usr/bin/env bash
# A session with the configurator on a virtual display, with pointer and keyboard alone: a new
# project with groups and a value of each type, changed, undone, renamed, saved and opened again; one
# that is dragged there; then the settings of an application that runs beside it and follows.
set -euo pipefail
bin=$1
for program in Xvfb xdotool dbus-run-session; do
  command -v "$program" >/dev/null || exit 77
done
[[ -x $bin/zq-configurator && -x $bin/accessibility_reader && -x $bin/drop_probe && -x $bin/zqc ]] || exit 77

# shellcheck source=tests/smoke/home.bash
source "$(dirname "${BASH_SOURCE[0]}")/home.bash"
on_own_bus "$bin"
# shellcheck source=tests/smoke/display.bash
source "$(dirname "${BASH_SOURCE[0]}")/display.bash"
# shellcheck source=tests/smoke/drag.bash
source "$(dirname "${BASH_SOURCE[0]}")/drag.bash"
export XDG_DATA_HOME=$home/data XDG_CONFIG_HOME=$home/config

pictures=0
keep() {  # what is seen now
  pictures=$((pictures + 1))
  if [[ -n ${ZQ_KEEP:-} ]]; then
    "$bin/screen_picture" "$ZQ_KEEP/configurator-$(printf %02d "$pictures")-$1.png"
  fi
}

start_configurator() {  # TITLE [FILE]
  "$bin/zq-configurator" "${@:2}" >"$home/out" 2>"$home/err" &
  configurator=$!
  pids+=("$configurator")
  until_true shows_window "$1"
}
shows_window() { window=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null) && [[ -n $window ]]; }
focus() {
  until_true shows_window "$1"
  xdotool windowfocus --sync "$window"
}

# What the screen shows, by role and name: "list item" "New value".
find_place() {
  read -r x y < <("$bin/accessibility_reader" zq-configurator 2>/dev/null |
    sed -nE "s/^ *$1 '$2' .*@ (-?[0-9]+ -?[0-9]+)\$/\1/p" | tail -1)
}
click() {
  until_true find_place "$1" "$2"
  xdotool mousemove "$x" "$y" click 1
}
fill() {  # FIELD TEXT
  click text "$1"
  xdotool key ctrl+a
  xdotool type --delay 15 "$2"
  xdotool key Return
}

file=$home/sample.zquic
lists() { "$bin/zqc" list "$file" 2>/dev/null | tr -s ' ' | grep -qF -- "$1"; }
counts() { [[ $("$bin/zqc" list "$file" 2>/dev/null | grep -c "^New Group 2 ") == "$1" ]]; }
has() { grep -qF -- "$1" "$file"; }
ended() { ! kill -0 "$configurator" 2>/dev/null; }

start_configurator Configurator
focus Configurator
click 'push button' File
click 'push button' 'New project…'
focus 'New project'
keep dialog
xdotool type --delay 15 "$file"
xdotool key Return
focus 'sample — Configurator'
"$bin/zqc" check "$file"
keep new-project

xdotool key ctrl+g
until_true has '"name": "New Group"'
xdotool key ctrl+g
until_true has '"name": "New Group 2"'
for number in 1 2 3 4 5; do
  xdotool key "ctrl+$number"
  until_true counts "$number"
done
for type in int double string bool pointSize; do until_true lists " $type "; done
"$bin/zqc" check "$file"
keep values

click 'list item' 'New value 2'
fill Value 2.5
until_true lists 'New value 2 double 2.5'
keep edited
click 'list item' 'New value 2'
xdotool key ctrl+z
until_true lists 'New value 2 double 64'
xdotool key ctrl+shift+z
until_true lists 'New value 2 double 2.5'
fill Key Ratio
until_true lists 'Ratio double 2.5'
keep renamed

xdotool key ctrl+s
keep saved
xdotool key ctrl+q
until_true ended
wait "$configurator"
"$bin/zqc" check "$file"
lists 'Ratio double 2.5'

start_configurator 'sample — Configurator' "$file"
until_true find_place 'list item' 'New Group 2'
click 'list item' 'New Group 2'
until_true find_place 'list item' Ratio
keep opened-again

# A project that another process drags onto the window is shown there.
mkdir "$home/dragged"
cat >"$home/dragged/dropped.zquic" <<'JSON'
{"name": "Dropped", "groupList": [{"name": "From afar", "itemList": [{"key": "Depth"}]}]}
JSON
onto=$window
start_source "$home/dragged"
pick_up project
keep dragged
carry_to "$onto" 800 500
let_go copied
until_true shows_window 'Dropped — Configurator'
echo quit >&7
until_true find_place 'list item' 'From afar'
keep dropped
focus 'Dropped — Configurator'
click 'push button' 'Open recent'
until_true find_place 'push button' sample
keep open-recent
click 'push button' sample
focus 'sample — Configurator'
xdotool key ctrl+q
until_true ended
wait "$configurator"

# Beside an application that follows its settings: a corner of its paper is of another colour, and
# of its own again.
cp "$bin/example_live_settings" "$bin/live_settings.zquic" "$home/"
file=$home/live_settings.zquic
start_configurator 'Live settings — Configurator' "$file"
xdotool windowsize --sync "$window" 900 480
"$home/example_live_settings" >"$home/live" 2>&1 &
pids+=($!)
until_true shows_window 'Live settings'
xdotool windowmove --sync "$window" 900 0
corner() { "$bin/screen_picture" "$home/$1.png" 910 400 8 8; }
is_like() { corner now && cmp -s "$home/now.png" "$home/$1.png"; }
is_other() { ! is_like "$1"; }
focus 'Live settings — Configurator'
click 'list item' Paper
click 'list item' blue
until_true find_place text Value
before=$("$bin/zqc" get "$file" Paper blue --type double)
corner before
keep beside
fill Value 0.1
until_true is_other before
keep followed
focus 'Live settings — Configurator'
click 'list item' blue
xdotool key ctrl+z
until_true is_like before
[[ $("$bin/zqc" get "$file" Paper blue --type double) == "$before" ]]

# Save tells it again, though nothing has changed.
"$bin/zqc" watch example.zqswiftui.live_settings --count 1 >"$home/heard" 2>&1 &
watcher=$!
pids+=("$watcher")
hears() { xdotool key ctrl+s && [[ -s $home/heard ]]; }
until_true hears
wait "$watcher"
xdotool key ctrl+q
until_true ended
wait "$configurator"
echo "a project made, changed, undone, renamed, saved, opened again and dropped; an application followed"
