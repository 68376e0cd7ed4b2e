#!/usr/bin/env bash
# The configurator's document is killed at random moments while it is edited: the file is a whole
# project each time, with all that was saved, and never something between two edits. ROUNDS tells
# how often.
set -euo pipefail
bin=$1
rounds=${ROUNDS:-30}
[[ -x $bin/document_probe && -x $bin/zqc ]] || exit 77

# shellcheck source=tests/smoke/home.bash
source "$(dirname "${BASH_SOURCE[0]}")/home.bash"
export XDG_DATA_HOME=$home QT_QPA_PLATFORM=offscreen DBUS_SESSION_BUS_ADDRESS=disabled:
file=$home/project.zquic

items() { for key in $(seq 200); do printf '{"key":"filler %s"},' "$key"; done; }
cat >"$file" <<JSON
{"groupList": [{"name": "first", "itemList": [$(items) {"key": "number", "type": "int"}]},
               {"name": "last", "itemList": [$(items) {"key": "number", "type": "int"}]}]}
JSON

said() { [[ $(grep -c "^$1 " "$home/out") -ge $2 ]]; }
last() { grep "^$1 " "$home/out" | tail -1 | cut -d ' ' -f 2; }
number() { "$bin/zqc" get "$file" "$1" number --type int; }
saves=0
for round in $(seq "$rounds"); do
  "$bin/document_probe" "$file" >"$home/out" 2>"$home/err" &
  pid=$!
  pids+=("$pid")
  until_true said edit 1
  until_true said saved $((RANDOM % 4))
  kill -9 "$pid"
  wait "$pid" 2>/dev/null || true
  "$bin/zqc" check "$file"
  found=$(number first)
  saved=$(last saved || true)
  if [[ $found != "$(number last)" ]] || ((found < ${saved:-0} || found > $(last edit))); then
    echo "round $round: $found in the file, saved $saved, edited $(last edit)" >&2
    exit 1
  fi
  saves=$((saves + $(grep -c '^saved ' "$home/out" || true)))
done
echo "killed $rounds times, after $saves saves of $found edits"
