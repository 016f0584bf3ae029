#!/usr/bin/env bash
# fuzz_long.sh RUNS NAME[:LONGEST]...: runs fuzz targets one after the other, each RUNS times from
# its own corpus and a fixed seed, in the background of everything else. LONGEST, bytes, bounds the
# inputs. What is found goes to build/fuzz/found; a line for each target says how it ended.
set -u
here=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.." && pwd)
cd "$here" || exit 1
. "$here/scripts/ccache.sh"
runs=$1
shift
found=build/fuzz/found
mkdir -p "$found"
cmake --preset fuzz >/dev/null && cmake --build --preset fuzz >"$found/build.log" 2>&1 || {
  tail -n 20 "$found/build.log"
  exit 1
}
# Freed memory is watched for less long: most of the time would go into the allocator.
export ASAN_OPTIONS=malloc_context_size=1:quarantine_size_mb=8
failed=0
for target in "$@"; do
  name=${target%%:*}
  longest=0
  [ "$target" != "$name" ] && longest=${target##*:}
  rm -rf "${found:?}/$name"
  mkdir -p "$found/$name"
  began=$SECONDS
  nice -n 19 "build/fuzz/bin/${name}_fuzz" "$found/$name" "fuzz/corpus/$name" -runs="$runs" \
    -seed=20261122 -max_len="$longest" -entropic=0 -reload=0 -detect_leaks=0 -timeout=20 \
    -rss_limit_mb=2048 -artifact_prefix="$found/$name." -print_final_stats=1 \
    >"$found/$name.log" 2>&1
  code=$?
  [ "$code" = 0 ] || failed=1
  done=$(sed -nE 's/^stat::number_of_executed_units: *//p' "$found/$name.log")
  echo "$name: ${done:-0} executions in $((SECONDS - began)) s, ended with $code"
done
exit "$failed"
