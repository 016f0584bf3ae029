#!/usr/bin/env bash
# Builds and runs every test: formatting, the tests of the dev build (warnings are errors), the
# same tests under the sanitizers, half a minute of fuzzing for each reader, and a start of the program.
# With --lint the linter looks at every source file too, which takes minutes at the first time.
# Stages that passed on exactly these sources are not run again; --all runs them all the same.
# Ends on one plain line: N passed, N failed.
set -uo pipefail
here=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")" && pwd)
cd "$here" || exit 1
. scripts/packages.sh
. "$here/scripts/ccache.sh"
# shellcheck disable=SC2086
need_packages $packages_build $packages_test

for locale in de_DE tr_TR; do
  locale -a 2>/dev/null | grep -qi "^$locale.utf-\?8$" ||
    localedef -i "$locale" -f UTF-8 "$locale.UTF-8" 2>/dev/null ||
    echo "locale $locale.UTF-8 could not be made: its tests are skipped"
done

mkdir -p build/stamps
passed=0
failed=0
fuzz_seconds=${TALPENA_FUZZ_SECONDS:-30}
lint=no
for option in "$@"; do
  case $option in
  --all) rm -f build/stamps/* ;;
  --lint) lint=yes ;;
  *)
    echo "usage: ./test.sh [--all] [--lint]" >&2
    exit 2
    ;;
  esac
done

# What the results depend on: every source file, the compiler, and whether the real data is there.
state=$({
  git ls-files -co --exclude-standard -z | sort -z | xargs -0 sha256sum 2>/dev/null
  g++ --version
  ls ../shared/data 2>/dev/null
} | sha256sum | cut -d' ' -f1)

count() { # passed failed
  passed=$((passed + $1))
  failed=$((failed + $2))
}

# stage NAME COMMAND...: the command prints "PASSED n FAILED n" last.
stage() {
  local name=$1 stamp=build/stamps/$1
  shift
  if [ -f "$stamp" ] && [ "$(head -n1 "$stamp")" = "$state" ]; then
    local before
    before=$(tail -n1 "$stamp")
    echo "== $name: $before passed on these sources before"
    count "$before" 0
    return
  fi
  echo "== $name"
  local log=build/stamps/$name.log result
  "$@" 2>&1 | tee "$log"
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

# The counts that ctest closes with.
run_ctest() { # preset
  { [ -f "build/$1/build.ninja" ] || cmake --preset "$1" >/dev/null; } &&
    cmake --build --preset "$1" -- -d stats >"build/stamps/$1.build.log" 2>&1 ||
    { grep -E 'error|warning|FAILED' "build/stamps/$1.build.log" | head -n 50
      echo "the $1 build failed"
      echo "PASSED 0 FAILED 1"
      return; }
  local log=build/stamps/$1.ctest.log total bad
  ctest --preset "$1" -j2 --progress >"$log" 2>&1
  grep -vE '^Test project|^ *Start|Passed' "$log" | tail -n 200
  bad=$(sed -nE 's/.* ([0-9]+) tests? failed out of ([0-9]+).*/\1/p' "$log" | tail -n1)
  total=$(sed -nE 's/.* ([0-9]+) tests? failed out of ([0-9]+).*/\2/p' "$log" | tail -n1)
  if [ -z "$total" ] || [ "$total" = 0 ]; then
    echo "no test ran in the $1 build"
    echo "PASSED 0 FAILED 1"
    return
  fi
  echo "PASSED $((total - bad)) FAILED $bad"
}

# The targets were built with the sanitizers' tests. Readers of files get the whole time, the
# targets beside them a third.
run_fuzz() {
  cmake --build --preset asan --target fuzz_targets >build/stamps/fuzz.build.log 2>&1 ||
    { grep -E 'error|FAILED' build/stamps/fuzz.build.log | head -n 50
      echo "PASSED 0 FAILED 1"
      return; }
  rm -rf build/asan/fuzz
  for name in deg_header deg_reader period_line original dsw tlp; do echo "$name $fuzz_seconds"; done >build/stamps/fuzz.list
  for name in numbers jet_values condition; do echo "$name $((fuzz_seconds / 3))"; done >>build/stamps/fuzz.list
  xargs -P2 -L1 scripts/fuzz_one.sh <build/stamps/fuzz.list
  local good bad
  good=$(ls build/asan/fuzz/*.passed 2>/dev/null | wc -l)
  bad=$(($(wc -l <build/stamps/fuzz.list) - good))
  echo "PASSED $good FAILED $bad"
}

run_program() {
  if env -u DISPLAY -u WAYLAND_DISPLAY ./run.sh && [ -n "$(ls build/pictures/*.png)" ]; then
    echo "PASSED 1 FAILED 0"
  else
    echo "PASSED 0 FAILED 1"
  fi
}

stage format check_format
stage dev run_ctest dev
[ "$lint" = yes ] && stage tidy scripts/tidy.sh
stage asan run_ctest asan
stage fuzz run_fuzz
stage program run_program

echo
echo "$passed passed, $failed failed"
[ "$failed" = 0 ] && [ "$passed" -gt 0 ]
