#!/usr/bin/env bash
# The desktop's list of recently used documents between programs of another toolkit and ours: what
# they write is read, what we write they read, and two of ours that write at the same time lose
# nothing of each other or of them.
set -euo pipefail
bin=$1
[[ -x $bin/documents_probe && -x $bin/bookmark_peer ]] || exit 77

# shellcheck source=tests/smoke/home.bash
source "$(dirname "${BASH_SOURCE[0]}")/home.bash"
export XDG_DATA_HOME=$home/data
list=$XDG_DATA_HOME/recently-used.xbel
mkdir "$XDG_DATA_HOME"

for i in $(seq 20); do
  application=Editor
  ((i % 4 == 0)) && application=Probe
  "$bin/bookmark_peer" add "$list" "file:///their%20own/caf%C3%A9%20$i.txt" "$application"
done
[[ $("$bin/documents_probe" list | wc -l) == 5 ]]
"$bin/documents_probe" list | grep -qx 'file:///their%20own/caf%C3%A9%2020.txt'

rounds=100
"$bin/documents_probe" add one "$rounds" &
one=$!
"$bin/documents_probe" add two "$rounds" &
two=$!
wait "$one"
wait "$two"
"$bin/bookmark_peer" list "$list" >"$home/seen"
count() { grep -c -- "$1" "$home/seen"; }
[[ $(count 'file:///one/[0-9]* Probe:1$') == "$rounds" ]]
[[ $(count 'file:///two/[0-9]* Probe:1$') == "$rounds" ]]
[[ $(count '^file:///their%20own/.* Editor:1$') == 15 ]]
[[ $(count '^file:///their%20own/.* Probe:1$') == 5 ]]
[[ $("$bin/documents_probe" list | wc -l) == $((2 * rounds + 5)) ]]

# What both have opened is one entry of two applications.
"$bin/bookmark_peer" add "$list" file:///one/0 Editor
"$bin/documents_probe" add one 1
"$bin/bookmark_peer" list "$list" | grep -E '^file:///one/0 (Probe:2 Editor:1|Editor:1 Probe:2)$'
"$bin/documents_probe" list | head -1 | grep -qx file:///one/0
grep -q 'Ä title &amp; more' "$list"
