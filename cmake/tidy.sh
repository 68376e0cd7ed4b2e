#!/usr/bin/env bash
# clang-tidy over the library, the apps and the tools, as many files at once as there are cores.
# A file found clean is not read again until it, or anything it includes, or the rules change.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/shell.sh"
[[ -f build/asan/compile_commands.json ]] || configure asan

check_one() { # <source>
  local source=$1 stamp object key
  stamp=build/asan/tidy/${source//\//_}.clean
  object=$(find build/asan -path "*/$source.o" -print -quit)
  # Ninja has the headers of each object; where the object is missing the file is always read.
  if [[ -n $object ]]; then
    key=$(ninja -C build/asan -t deps "${object#build/asan/}" |
      awk '/^ / { print $1 }' | (cd build/asan && grep -v '^/usr/' | sort | xargs -r cat -- ../../.clang-tidy) |
      sha256sum)
    [[ -f $stamp && $(<"$stamp") == "$key" ]] && return 0
  fi
  local output
  if output=$(clang-tidy-16 -p build/asan --quiet "$source" 2>/dev/null); then
    [[ -n $object ]] && printf '%s\n' "$key" >"$stamp"
    return 0
  fi
  printf '%s\n' "$output"
  return 1
}
export -f check_one

mkdir -p build/asan/tidy
sources=$(sed -n 's/^ *"file": "\(.*\)".*/\1/p' build/asan/compile_commands.json |
  sed -nE "s#^$root/((zqswiftui|apps|tools)/.*)#\1#p" | sort -u)
[[ -n $sources ]] || fail "There is nothing to read: build/asan names no source of ours."
xargs -r -d '\n' -P "$jobs" -n 1 bash -c 'check_one "$1"' tidy <<<"$sources"
