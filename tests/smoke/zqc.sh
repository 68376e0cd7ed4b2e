#!/usr/bin/env bash
# zqc as a shell sees it: exit codes, bytes on standard output, and a broadcast from one process
# to another over a bus of its own.
set -euo pipefail
zqc=$1/zqc
[[ -x $zqc ]] || exit 77
if [[ -z ${ZQ_INSIDE_BUS:-} ]] && command -v dbus-run-session >/dev/null; then
  exec env -u DBUS_SESSION_BUS_ADDRESS ZQ_INSIDE_BUS=1 dbus-run-session -- bash "$0" "$1"
fi
home=$(mktemp -d)
watcher=
cleanup() {
  [[ -z $watcher ]] || kill "$watcher" 2>/dev/null || true
  rm -rf "$home"
}
trap cleanup EXIT
cd "$home"
unset DISPLAY WAYLAND_DISPLAY

fail() {
  echo "$*"
  exit 1
}
expect() { # <exit code> <command…>
  local wanted=$1 code=0
  shift
  "$@" >out 2>err || code=$?
  [[ $code == "$wanted" ]] || fail "$* ended with $code, not $wanted: $(cat err)"
}

expect 0 "$zqc" init p.zquic --name Smoke --bundle-id Com.Example.Smoke
expect 73 "$zqc" init p.zquic --name Smoke --bundle-id x
expect 0 "$zqc" set p.zquic Canvas 'Max zoom' 4 --type double
expect 0 "$zqc" get p.zquic Canvas maxZoom --type double
[[ $(<out) == 4.0 ]] || fail "get printed $(<out)"
expect 0 "$zqc" check p.zquic
expect 0 "$zqc" list p.zquic
! grep -q $'\e' out || fail "a pipe gets colours"
expect 0 "$zqc" swift p.zquic
[[ $(tail -c 1 out) == '}' ]] || fail "the source has another last byte"
expect 66 "$zqc" swift none.zquic
expect 64 "$zqc" swift
[[ ! -e /dev/full ]] || { "$zqc" swift p.zquic >/dev/full 2>err && fail "a full disk went unseen"; }
echo '{"name": }' >broken.zquic
expect 65 "$zqc" swift broken.zquic
grep -qx 'zqc: broken.zquic:1:10: expected a value' err || fail "$(<err)"

code=0
env DBUS_SESSION_BUS_ADDRESS=disabled: "$zqc" broadcast p.zquic 2>err || code=$?
[[ $code == 69 ]] || fail "a broadcast without a bus ended with $code"
[[ -n ${ZQ_INSIDE_BUS:-} ]] && ! grep -q 'without Qt' err || exit 0

# Told again until it is heard: the watcher may not listen yet.
"$zqc" watch com.example.SMOKE --count 1 >heard &
watcher=$!
for _ in $(seq 200); do
  expect 0 "$zqc" set p.zquic Canvas maxZoom 5 --broadcast
  kill -0 "$watcher" 2>/dev/null || break
done
wait "$watcher" || fail "watch ended badly"
watcher=
[[ $(wc -l <heard) == 1 ]] || fail "not one line: $(<heard)"
"$zqc" normalize p.zquic -o p.zquic
"$zqc" normalize heard >heard.zquic
cmp p.zquic heard.zquic || fail "another project was heard"
echo "made, changed, read, translated, refused and broadcast"
