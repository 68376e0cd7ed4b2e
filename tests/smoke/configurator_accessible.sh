#!/usr/bin/env bash
# A session with the configurator through the accessibility tree alone, as a screen reader and a
# switch device do it, without pointer and keys: a new project with two groups and a value of each
# type, changed, undone, done again, renamed, saved and opened again. Nothing that is met on the
# way is without a name.
set -euo pipefail
bin=$1
for program in Xvfb dbus-run-session; do
  command -v "$program" >/dev/null || exit 77
done
[[ -x $bin/zq-configurator && -x $bin/accessibility_reader && -x $bin/zqc ]] || exit 77

# shellcheck source=tests/smoke/home.bash
source "$(dirname "${BASH_SOURCE[0]}")/home.bash"
on_own_bus "$bin"
# shellcheck source=tests/smoke/display.bash
source "$(dirname "${BASH_SOURCE[0]}")/display.bash"
export XDG_DATA_HOME=$home/data XDG_CONFIG_HOME=$home/config

reader() { "$bin/accessibility_reader" zq-configurator "$@" 2>/dev/null; }
press() { until_true reader press "$@"; }
menu() { press 'push button' "$1" && press 'push button' "$2"; }
shows() { reader >"$home/tree" && grep -qE "^ *$1 '$2'" "$home/tree"; }
names_all() {
  reader nameless >"$home/nameless" && return
  echo "without a name: $1" >&2
  cat "$home/nameless" >&2
  exit 1
}
start() {
  "$bin/zq-configurator" >"$home/out" 2>"$home/err" &
  configurator=$!
  pids+=("$configurator")
  until_true shows 'push button' File
}
quit() {
  menu File Quit
  until_true ended
  wait "$configurator"
  "$bin/zqc" check "$file"
}
ended() { ! kill -0 "$configurator" 2>/dev/null; }

file=$home/sample.zquic
lists() { "$bin/zqc" list "$file" 2>/dev/null | tr -s ' ' | grep -qF -- "$1"; }
fill() {  # FIELD TEXT WHAT the file has then
  until_true reader fill text "$1" "$2"
  until_true lists "$3"
}

start
names_all welcome
menu File 'New project…'
until_true reader fill text 'File name:' "$file"
press 'push button' Save
until_true shows text 'Search groups and values'
names_all 'an empty project'

for group in First Second; do
  menu Add Group
  until_true reader fill text Group "$group"
  until_true grep -qF "\"$group\"" "$file"
done
names_all 'a group'
types=(Integer Number Text Flag 'Point or size')
contents=('42' '2.5' 'Grün & mehr' '' '7')
kept=('int 42' 'double 2.5' 'string "Grün & mehr"' 'bool true' 'pointSize 7')
for i in 0 1 2 3 4; do
  press 'push button' "Add ${types[i],,}"
  fill Key "Key $i" "Second Key $i"
  case ${types[i]} in
    Flag) press 'check box' Value ;;
    Point*) fill x "${contents[i]}" "Key $i ${kept[i]}" ;;
    *) fill Value "${contents[i]}" "Key $i ${kept[i]}" ;;
  esac
  until_true lists "Key $i ${kept[i]}"
  names_all "a value: ${types[i]}"
done

press 'list item' 'Key 1'
fill Value 8 'Key 1 double 8'
menu Edit 'Undo change value'
until_true lists 'Key 1 double 2.5'
menu Edit 'Redo change value'
until_true lists 'Key 1 double 8'
press 'list item' First
until_true reader fill text Group 'The first'
until_true grep -qF '"The first"' "$file"
for pane in Project Code Value; do
  menu View "$pane"
  names_all "$pane"
done
press 'push button' Help
names_all 'an open menu'
press 'push button' 'About the configurator'
until_true shows 'push button' Close
names_all 'a question'
press 'push button' Close
before=$(stat -c %i "$file")
menu File 'Save and broadcast'
written() { [[ $(stat -c %i "$file") != "$before" ]]; }
until_true written
quit

start
press 'list item' sample
press 'list item' Second
until_true shows 'list item' 'Key 4'
names_all 'opened again'
lists 'Key 1 double 8'
if [[ -n ${ZQ_KEEP:-} ]]; then cp "$home/tree" "$ZQ_KEEP/configurator-tree.txt"; fi
quit
echo "a project made, changed, undone, renamed, saved and opened again without pointer and keys"
