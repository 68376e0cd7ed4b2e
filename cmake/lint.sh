#!/usr/bin/env bash
# What can be told by reading: formatting, the reach of Qt, the size of files, loose ends.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/shell.sh"

# The folder may belong to someone else than the one who runs this, as in a container; a copy
# without a history is read whole.
tracked() {
  {
    git -c safe.directory="$root" ls-files -- "$@" 2>/dev/null ||
      (shopt -s globstar nullglob && printf '%s\n' **/*.{cpp,hpp,sh,cmake,txt,md,in} | grep -v '^build/')
  } | while IFS= read -r file; do [[ -f $file ]] && printf '%s\n' "$file"; done
}

status=0
complain() { # <sentence> <findings>
  [[ -z $2 ]] && return
  printf '%s\n%s\n' "$red$1$plain" "$2"
  status=1
}

mapfile -t sources < <(tracked '*.cpp' '*.hpp' | grep -E '\.(cpp|hpp)$')
mapfile -t texts < <(tracked '*.cpp' '*.hpp' '*.cmake' '*CMakeLists.txt' '*.sh' '*.py' run test 'bench/run')
mapfile -t all < <(tracked . | grep -vE '\.(png|svg|jpg|gif|webp|bin)$|(^|/)(corpus|data)/')

if ! command -v clang-format-16 >/dev/null; then
  complain "clang-format-16 is missing." "Install it, for the formatting is part of the check."
else
  complain "Not formatted; run clang-format-16 -i on:" \
    "$(printf '%s\0' "${sources[@]}" | xargs -0 -r -P "$jobs" -n 20 clang-format-16 --dry-run 2>&1 |
      sed -n 's/^\([^ :]*\):[0-9]*:[0-9]*: .*clang-format.*/\1/p' | sort -u || true)"
fi

complain "Qt below its floor:" \
  "$(printf '%s\n' "${sources[@]}" |
    grep -vE '^(zqswiftui/platform/qt|apps|tools/[a-z]+/with_qt|bench|examples|tests/(qt|desktop|gallery|configurator|compile_fail|consumer))/' |
    xargs -r -d '\n' grep -nE '^ *# *include *[<"](Q[A-Z]|Qt[A-Z]|qt6?/|q[a-z]+\.h[>"])' || true)"

complain "Longer than 500 lines:" \
  "$(printf '%s\n' "${texts[@]}" | xargs -r -d '\n' awk 'FNR == 501 { print FILENAME }')"

complain "Loose ends; finish them or open an issue:" \
  "$(printf '%s\n' "${all[@]}" | xargs -r -d '\n' grep -nIE '\b(TO''DO|FIX''ME)\b' || true)"

complain "No licence line at the top:" \
  "$(printf '%s\n' "${sources[@]}" | xargs -r -d '\n' awk \
    'FNR == 1 && $0 != "// ZQSwiftUI, MIT licence; see LICENSE." { print FILENAME }')"

complain "A header without #pragma once:" \
  "$(printf '%s\n' "${sources[@]}" | grep '\.hpp$' | xargs -r -d '\n' grep -L '^#pragma once' || true)"

exit $status
