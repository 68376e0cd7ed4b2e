#!/usr/bin/env bash
# Every example starts, and either ends well or still stands after two seconds.
set -euo pipefail
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
mkdir -m 0700 "$home/runtime"
export HOME=$home XDG_RUNTIME_DIR=$home/runtime QT_QPA_PLATFORM=offscreen
export DBUS_SESSION_BUS_ADDRESS=disabled:
shopt -s nullglob
examples=("$1"/example_*)
[[ ${#examples[@]} -gt 0 ]] || exit 77
status=0
for example in "${examples[@]}"; do
  code=0
  (cd "$home" && timeout 2 "$example" </dev/null) || code=$?
  if [[ $code != 0 && $code != 124 ]]; then
    echo "$(basename "$example") ended with $code."
    status=1
  fi
done
exit $status
