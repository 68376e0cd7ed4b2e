# shellcheck shell=bash
# What the scripts with several processes share: a folder of their own, which is their home, an end
# of all that they started (in `pids`), and waiting. Sourced, not run.

home=${ZQ_HOME:-$(mktemp -d)}
mkdir -m 0700 -p "$home/runtime"
pids=()
cleanup() {
  for pid in "${pids[@]}"; do
    kill -CONT "$pid" 2>/dev/null || continue  # it may stand still
    kill "$pid" 2>/dev/null || true
  done
  wait 2>/dev/null || true
  rm -rf "$home"
}
trap cleanup EXIT
export HOME=$home XDG_RUNTIME_DIR=$home/runtime

# Runs the script anew on a session bus of its own, in the same home: what the bus starts, such as
# the accessibility bus, puts its socket there, and not where that of another script lies.
on_own_bus() {  # ARGUMENT...
  [[ -z ${ZQ_HOME:-} ]] || return 0
  ZQ_HOME=$home dbus-run-session -- bash "$0" "$@"
  exit
}

until_true() {  # waits for a condition, not for a time
  for _ in $(seq 600); do
    if "$@"; then return 0; fi
    sleep 0.05
  done
  echo "never came: $*" >&2
  find "$home" -type f \( -name out -o -name err \) -exec tail {} + >&2
  exit 1
}
