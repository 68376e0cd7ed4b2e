#!/usr/bin/env bash
# Real drags from one process to another, ten times each: a file, several, a folder, a bundle, a
# text, something of no known type, one that comes and goes, and one onto a window that is closed
# meanwhile. Then a source that hangs in its drop, and the file dialog, driven by the keyboard.
set -euo pipefail
bin=$1
for program in Xvfb xdotool; do
  command -v "$program" >/dev/null || exit 77
done
[[ -x $bin/drop_probe ]] || exit 77
export DBUS_SESSION_BUS_ADDRESS=disabled:
# shellcheck source=tests/smoke/display.bash
source "$(dirname "${BASH_SOURCE[0]}")/display.bash"
rounds=${ROUNDS:-10}

files=$home/files
mkdir -p "$files/folder" "$files/Tool.app"
touch "$files/a b.txt" "$files/é.png" "$files/100%#.txt" "$files/chosen.txt"

# shellcheck source=tests/smoke/drag.bash
source "$(dirname "${BASH_SOURCE[0]}")/drag.bash"
start_source "$files"

start_probe "drop_probe" AREAS
find_places text

drop() {  # WHAT AREA
  pick_up "$1"
  # shellcheck disable=SC2046
  carry_to "$window" $(place "$2")
  let_go copied
}
gone() { ! xdotool search --onlyvisible --name "^$1\$" >/dev/null 2>&1; }
lines() { grep -cE '^(file|many|folder|bundle|text) ' "$home/out" || true; }

for ((round = 1; round <= rounds; round++)); do
  drop one file
  until_true heard "file a b.txt" "$round"
  drop three many
  until_true heard "many [a b.txt] [é.png] [100%#.txt]" "$round"
  drop plain folder
  until_true heard "folder folder" "$round"
  drop app bundle
  until_true heard "bundle Tool.app" "$round"
  drop words text
  until_true heard "text grün & 2" "$round"

  before=$(lines)
  pick_up unknown
  move file
  for _ in 1 2 3 4; do nudged never || true; done
  let_go refused

  pick_up one
  # shellcheck disable=SC2046
  carry_to "$window" $(place file)
  xdotool mousemove 1200 700
  until_true nudged "over $drags nothing"
  let_go refused

  echo open >&6
  until_true heard "did open" "$round"
  further=$(xdotool search --sync --onlyvisible --name '^FURTHER$')
  pick_up one
  # shellcheck disable=SC2046
  carry_to "$further" $(place file)
  echo close >&6
  until_true heard "did close" "$round"
  until_true gone FURTHER
  # What the source asked of the window is never answered, so it may think itself welcome.
  for _ in 1 2; do nudged never || true; done
  xdotool mouseup 1
  until_true grep -q "^ended $drags " "$home/source/out"
  if [[ $(lines) != "$before" ]]; then
    echo "something was dropped that should not be" >&2
    exit 1
  fi
done

# A source that stands still when it is asked for the data of its drop.
asked=0
opened=$rounds
hang() {  # WINDOW
  pick_up withheld
  # shellcheck disable=SC2046
  carry_to "$1" $(place file)
  asked=$((asked + 1))
  xdotool mouseup 1
  until_true hung
}
hung() { [[ $(grep -cx asked "$home/source/out") == "$asked" ]]; }
go_on() {
  echo go >&7
  until_true grep -q "^ended $drags " "$home/source/out"
}
leave() {  # HOW TIMES: the window that it asked goes meanwhile; other drops are taken afterwards
  opened=$((opened + 1))
  echo open >&6
  until_true heard "did open" "$opened"
  hang "$(xdotool search --sync --onlyvisible --name '^FURTHER$')"
  echo "$1" >&6
  until_true heard "did $1" "$2"
  go_on
  drop one file
  until_true heard "file a b.txt" "$opened"
}
leave hide 1
leave close $((rounds + 1))
# The window goes on, and takes the keys that come meanwhile once it no longer waits.
hang "$window"
echo places >&6
until_true heard "at text $(place text)" 2

focus() { xdotool windowfocus --sync "$1"; }
dialog() {  # TITLE: until it is there and has the focus
  focus "$(xdotool search --sync --onlyvisible --name "^$1\$")"
}
focus "$window"
xdotool key Tab space
dialog Open
xdotool type --delay 15 "$files/chosen.txt"
xdotool key Return
until_true heard "file chosen.txt"
until_true gone Open
before=$(lines)
focus "$window"
xdotool key Return
dialog Open
xdotool key Escape
until_true gone Open
focus "$window"
xdotool key Tab Return
dialog "Choose Folder"
xdotool type --delay 15 "$files/folder"
xdotool key Return
until_true heard "folder folder" $((rounds + 1))
if [[ $(lines) != $((before + 1)) ]]; then
  echo "a dialog that was cancelled told something" >&2
  exit 1
fi
# The late answer of a source comes to nothing.
go_on
echo longest >&6
until_true said "longest "
longest=$(sed -n 's/^longest //p' "$home/out")
if ((longest > 3000)); then
  echo "the interface thread stood still for $longest ms" >&2
  exit 1
fi
if [[ $(lines) != $((before + 1)) ]]; then
  echo "something was dropped that came too late" >&2
  exit 1
fi
if [[ -n ${ZQ_KEEP:-} ]]; then grab "$ZQ_KEEP/drops.png"; fi
echo quit >&6
echo quit >&7
echo "$rounds of $rounds drags of each kind, and dialogs by keyboard"
echo "the interface thread waited at most $longest ms for a source that hung"
