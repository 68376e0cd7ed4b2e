# shellcheck shell=bash
# The checks that ./test --full adds. Sourced by it, after the build of the preset dev.

passed='tests passed'

full_checks() {
  check_headers
  check_asan
  check_tidy
  check_tsan
  check_consumers
  check_fuzz
}

check_headers() {
  stage "Each header alone"
  must "A header does not compile by itself; see above." \
    cmake --build --preset dev -j "$jobs" --target zq_headers
}

# Clang reads everything, so that its warnings of the programs are seen too; the programs themselves
# run in the smoke tests of dev.
check_asan() {
  stage "Build and tests with Clang, address and undefined-behaviour checks (preset asan)"
  build asan
  quietly build/asan/tests.log "$passed" "Tests failed in the Clang build with sanitizers; see above." \
    ctest --preset asan
}

check_tidy() {
  stage "clang-tidy"
  bash cmake/tidy.sh || fail "clang-tidy found something; see above."
}

# Only what is about threads: the rest would say the same as under the other presets.
check_tsan() {
  stage "Build and tests with race detection (preset tsan)"
  build tsan zq_threads_tests
  quietly build/tsan/tests.log "$passed" "Tests failed under the race detector; see above." \
    ctest --preset tsan
}

# The library as others use it: installed, and as a folder of their project.
check_consumers() {
  stage "A program of someone else, against the installed package and against the folder"
  local base=build/consumer
  rm -rf "$base"
  quietly "$base.log" '' "Installing failed; see above." \
    cmake --install build/dev --prefix "$base/installed"
  consume package -DCMAKE_PREFIX_PATH="$root/$base/installed"
  consume folder -DZQ_SOURCE="$root"
}

consume() {
  local way=$1 dir=build/consumer/$1
  shift
  quietly "$dir.log" '' "The consumer could not be configured ($way); see above." \
    cmake -S tests/consumer -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE= "$@"
  quietly "$dir.log" '' "The consumer could not be built ($way); see above." \
    cmake --build "$dir" -j "$jobs"
  quietly "$dir.log" '' "The consumer does not run ($way)." "$dir/consumer"
}

check_fuzz() {
  compgen -G 'fuzz/*.cpp' >/dev/null || return 0
  stage "Fuzz targets, 30 seconds each (preset fuzz)"
  build fuzz
  find build/fuzz/fuzz -maxdepth 1 -type f -name 'fuzz_*' -executable -print0 |
    xargs -0 -P "$jobs" -n 1 bash -c '
      name=$(basename "$1") && name=${name#fuzz_}
      found=build/fuzz/corpus/$name seeds=fuzz/corpus/$name
      mkdir -p "$found"
      [[ -d $seeds ]] || seeds=
      if "$1" -max_total_time=30 -rss_limit_mb=3000 -timeout=10 \
          -artifact_prefix="build/fuzz/$name-" "$found" $seeds >"build/fuzz/$name.log" 2>&1; then
        printf "  %s: %s\n" "$name" "$(tail -1 "build/fuzz/$name.log")"
      else
        tail -60 "build/fuzz/$name.log"
        exit 1
      fi' fuzz ||
    fail "A fuzz target stopped; its input lies beside its log in build/fuzz."
}
