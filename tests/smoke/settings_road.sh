#!/usr/bin/env bash
# An editor in one process and applications in others, on a session bus of their own: the
# application that is meant sees the last of a hundred edits, those of other names hear nothing.
set -euo pipefail
bin=$1
command -v dbus-run-session >/dev/null && [[ -x $bin/settings_peer ]] || exit 77

# shellcheck source=tests/smoke/home.bash
source "$(dirname "${BASH_SOURCE[0]}")/home.bash"
on_own_bus "$bin"
export XDG_DATA_HOME=$home QT_QPA_PLATFORM=offscreen

project='{"groupList":[{"name":"Canvas","itemList":[{"key":"zoom","doubleValue":4}]}]}'
for name in paint pain painter; do
  mkdir "$home/$name"
  echo "$project" >"$home/$name/ZQConfigurator.zquic"
  "$bin/settings_peer" follow "$name" >"$home/$name/out" 2>"$home/$name/err" &
  pids+=($!)
done
for name in paint pain painter; do until_true grep -q '^following 4$' "$home/$name/out"; done

mkdir "$home/editor"
echo "$project" >"$home/editor/project.zquic"
"$bin/settings_peer" edit paint "$home/editor/project.zquic" 100 >"$home/editor/out"
until_true grep -q '^value 999$' "$home/paint/out"
wait "${pids[0]}"

grep -q '"doubleValue": 999.0' "$home/editor/project.zquic"
writes=$(sed -n 's/^writes //p' "$home/editor/out")
quarters=$(sed -n 's/^quarters //p' "$home/editor/out")
echo "100 edits in $quarters quarters of a second, $writes writes"
((writes >= 1 && writes <= quarters + 1))
for name in pain painter; do
  [[ $(<"$home/$name/out") == "following 4" ]] || { echo "$name heard of it" && exit 1; }
done
