#!/usr/bin/env bash
# The gallery paints each of its pages without a display, and leaves pictures with something in.
set -euo pipefail
gallery=$1/zq-gallery
[[ -x $gallery ]] || exit 77
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
mkdir -m 0700 "$out/runtime"
env -u DISPLAY -u WAYLAND_DISPLAY QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR="$out/runtime" \
  DBUS_SESSION_BUS_ADDRESS=disabled: "$gallery" --snapshot "$out"
pictures=$(find "$out" -name '*.png' -size +0 | wc -l)
empty=$(find "$out" -name '*.png' -empty)
echo "$pictures pictures"
[[ $pictures -gt 0 ]] || { echo "The gallery painted nothing." && exit 1; }
[[ -z $empty ]] || { echo "Empty: $empty" && exit 1; }
