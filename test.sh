#!/usr/bin/env bash
# What has to pass before a commit: formatting, every test under the sanitizers, GCC's build of the
# release with warnings as errors and the scenarios and pictures of the program that it made, and
# some seconds of fuzzing for each reader.
#   --all    runs everything anew, adds GCC's plain build with its tests, the linter and half a
#            minute of fuzzing for each reader
#   --lint   adds the linter
# What passed on exactly these sources is not run again (docs/testing.md).
# Ends on one plain line: N passed, N failed.
set -uo pipefail
here=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")" && pwd)
cd "$here" || exit 1
. scripts/packages.sh
. "$here/scripts/ccache.sh"

all=no
lint=no
for option in "$@"; do
  case $option in
  --all) all=yes lint=yes ;;
  --lint) lint=yes ;;
  *)
    echo "usage: ./test.sh [--all] [--lint]" >&2
    exit 2
    ;;
  esac
done
# shellcheck disable=SC2086
need_packages $packages_build $packages_test

mkdir -p build/stamps
unset TALPENA_KEPT_DATA
. scripts/locales.sh
. scripts/npm.sh
npm_readers
[ "$all" = yes ] && rm -rf build/stamps/*.stamp build/asan/cases build/dev/cases build/asan/fuzz
jobs=$(nproc)
passed=0
failed=0
if [ "$all" = yes ]; then fuzz_seconds=30; else fuzz_seconds=10; fi
fuzz_seconds=${TALPENA_FUZZ_SECONDS:-$fuzz_seconds}

# A hash of the sources under these paths, and of the installed packages: compilers and libraries.
state_of() { # path...
  {
    git ls-files -co --exclude-standard -z -- "$@" | sort -z | xargs -0 -r sha256sum 2>/dev/null
    dpkg-query -W
  } | sha256sum | cut -d' ' -f1
}

# The real data lie outside of the sources, if they are there.
real_data=$(find ../shared/data -type f -printf '%P %s %T@\n' 2>/dev/null | sort | sha256sum | cut -c1-16)

build="CMakeLists.txt CMakePresets.json cmake src app tools data"
scripts="test.sh scripts"

count() { # passed failed
  passed=$((passed + $1))
  failed=$((failed + $2))
}

# stage NAME STATE COMMAND...: the command prints "PASSED n FAILED n" last.
stage() {
  local name=$1 state=$2 stamp=build/stamps/$1.stamp
  shift 2
  if [ -f "$stamp" ] && [ "$(head -n1 "$stamp")" = "$state" ]; then
    local before
    before=$(tail -n1 "$stamp")
    echo "== $name: $before passed on these sources before"
    count "$before" 0
    return
  fi
  echo "== $name"
  local log=build/stamps/$name.log result began=$SECONDS
  "$@" 2>&1 | tee "$log"
  echo "$name took $((SECONDS - began)) s"
  result=$(grep -E '^PASSED [0-9]+ FAILED [0-9]+$' "$log" | tail -n1)
  if [ -z "$result" ]; then
    echo "stage $name did not end"
    count 0 1
    return
  fi
  read -r _ p _ f <<<"$result"
  count "$p" "$f"
  [ "$f" = 0 ] && printf '%s\n%s\n' "$state" "$p" >"$stamp"
}

check_format() {
  if git ls-files -co --exclude-standard '*.cpp' '*.h' | xargs clang-format --dry-run -Werror; then
    echo "PASSED 1 FAILED 0"
  else
    echo "PASSED 0 FAILED 1"
  fi
}

# Prints what went wrong, if anything did.
build_preset() { # preset [option of the configuration...]
  local preset=$1 log=build/stamps/$1.build.log
  shift
  cmake --preset "$preset" "$@" >"$log" 2>&1 &&
    cmake --build --preset "$preset" -- -d stats >>"$log" 2>&1 && return
  grep -E 'error|warning|FAILED' "$log" | head -n 50
  echo "the $preset build failed"
  echo "PASSED 0 FAILED 1"
  return 1
}

# Runs what ctest knows and adds up the cases.
run_ctest() { # preset jobs
  local log=build/stamps/$1.ctest.log junit=$here/build/stamps/$1.junit.xml
  rm -f "$junit" build/"$1"/cases/*.counts
  ctest --preset "$1" -j "$2" --output-junit "$junit" >"$log" 2>&1
  grep -vE '^Test project|^ *Start|Passed' "$log" | tail -n 200
  /usr/bin/python3 scripts/count_cases.py "build/$1/cases" "$junit"
}

run_tests() { # preset
  build_preset "$1" || return
  [ "$all" = no ] && export TALPENA_KEPT_DATA=$real_data.$(state_of data tests/data ':!data/help' ':!data/strings')
  run_ctest "$1" "$jobs"
}

# Warnings end this build; the scenarios wait more than they work.
run_release() {
  build_preset release -DTALPENA_WERROR=ON || return
  run_ctest release $((jobs + 1))
  if env -u DISPLAY -u WAYLAND_DISPLAY ./run.sh >build/stamps/pictures.log 2>&1 &&
    [ -n "$(ls build/pictures/*.png)" ]; then
    echo "pictures of the windows were taken"
  else
    tail -n 40 build/stamps/pictures.log
    return
  fi
}

# The pictures are a test beside the scenarios.
run_program() {
  local log=build/stamps/scenarios.log p=0 f=1
  run_release | tee "$log"
  read -r _ p _ f < <(grep -E '^PASSED [0-9]+ FAILED [0-9]+$' "$log" | tail -n1)
  if grep -q '^pictures of the windows' "$log"; then p=$((p + 1)); else f=$((f + 1)); fi
  echo "PASSED $p FAILED $f"
}

# The targets were built with the sanitizers' tests. Readers of files get the whole time, the
# targets beside them a third.
run_fuzz() {
  cmake --build --preset asan --target fuzz_targets >build/stamps/fuzz.build.log 2>&1 ||
    { grep -E 'error|FAILED' build/stamps/fuzz.build.log | head -n 50
      echo "PASSED 0 FAILED 1"
      return; }
  mkdir -p build/asan/fuzz
  rm -f build/asan/fuzz/*.passed build/asan/fuzz/*.failed
  for name in deg_header deg_reader period_line original dsw tlp text_import; do echo "$name $fuzz_seconds"; done >build/stamps/fuzz.list
  for name in numbers jet_values jet_pages msys_queries dbase foxpro paradox excel xlsx mapsource wpt gdate condition geo_format cfg; do
    echo "$name $((fuzz_seconds / 3))"
  done >>build/stamps/fuzz.list
  xargs -P"$jobs" -L1 scripts/fuzz_one.sh <build/stamps/fuzz.list
  local good bad
  good=$(ls build/asan/fuzz/*.passed 2>/dev/null | wc -l)
  bad=$(($(wc -l <build/stamps/fuzz.list) - good))
  echo "PASSED $good FAILED $bad"
}

# shellcheck disable=SC2086
{
  tests="$(state_of $build tests fuzz $scripts) $real_data"
  stage format "$(state_of '*.cpp' '*.h' .clang-format)" check_format
  stage asan "$tests" run_tests asan
  stage release "$(state_of $build tests/endtoend tests/pictures run.sh $scripts)" run_program
  stage fuzz "$(state_of $build fuzz tests/fakes $scripts) $fuzz_seconds" run_fuzz
  [ "$all" = yes ] && stage dev "$tests" run_tests dev
  [ "$lint" = yes ] && stage tidy "$(state_of $build .clang-tidy $scripts)" scripts/tidy.sh
}

echo
echo "$passed passed, $failed failed"
[ "$failed" = 0 ] && [ "$passed" -gt 0 ]
