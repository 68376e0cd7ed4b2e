# shellcheck shell=bash
# What run, test and bench/run share: a root, a voice, and a place to run in. Sourced, not run.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
jobs=$(nproc)
bold='' red='' green='' plain=''
if [[ -t 1 ]]; then
  bold=$'\e[1m' red=$'\e[31m' green=$'\e[32m' plain=$'\e[0m'
fi

# stage <what happens now>: one line, with the time since the start.
stage() { printf '%s[%02d:%02d] %s%s\n' "$bold" $((SECONDS / 60)) $((SECONDS % 60)) "$*" "$plain"; }

# must <sentence for the failure> <command…>
must() {
  local sentence=$1
  shift
  "$@" || fail "$sentence"
}

# quietly <log> <lines worth seeing> <sentence> <command…>: the command's output goes to a
# file; of a success only the lines matching the pattern are shown (none where it is empty),
# of a failure everything.
quietly() {
  local log=$1 pattern=$2 sentence=$3
  shift 3
  mkdir -p "$(dirname "$log")"
  if "$@" >"$log" 2>&1; then
    [[ -z $pattern ]] || grep -E "$pattern" "$log" || true
  else
    cat "$log"
    fail "$sentence"
  fi
}

fail() {
  printf '%s%s%s\n' "$red" "$*" "$plain"
  exit 1
}

# Qt warns at every start unless this folder exists and is ours alone.
prepare_runtime_dir() {
  if [[ -z ${XDG_RUNTIME_DIR:-} ]]; then
    XDG_RUNTIME_DIR=$(mktemp -d)
    export XDG_RUNTIME_DIR
    trap 'rm -rf "$XDG_RUNTIME_DIR"' EXIT
  fi
}

# configure <preset>: silent unless it fails.
configure() {
  mkdir -p build
  quietly "build/configure-$1.log" '' "Configuring the preset $1 failed; see above." \
    cmake --preset "$1"
}

# build <preset> [target…]
build() {
  local preset=$1
  shift
  configure "$preset"
  must "The build of the preset $preset failed; see above." \
    cmake --build --preset "$preset" -j "$jobs" ${1:+--target "$@"}
}
