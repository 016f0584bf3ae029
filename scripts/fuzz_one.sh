#!/usr/bin/env bash
# fuzz_one.sh NAME SECONDS: runs one fuzz target on its corpus and leaves NAME.passed or NAME.failed
# in build/asan/fuzz. What the run finds goes there too, never into the sources. A target that
# passed is not run again while it and its corpus are the same (NAME.kept).
set -u
name=$1
seconds=$2
results=build/asan/fuzz
found=$results/$name.found
program=build/asan/bin/${name}_fuzz
key=$({
  echo "$seconds"
  find "$program" "fuzz/corpus/$name" -type f | sort | xargs -d '\n' sha256sum
} | sha256sum | cut -d' ' -f1)
if [ "$(cat "$results/$name.kept" 2>/dev/null)" = "$key" ]; then
  echo "$name: passed before"
  touch "$results/$name.passed"
  exit
fi
rm -rf "$found" "$results/$name.kept"
mkdir -p "$found"
if nice "$program" "$found" "fuzz/corpus/$name" -max_total_time="$seconds" \
  -timeout=10 -rss_limit_mb=2048 -artifact_prefix="$found/" -print_final_stats=1 \
  >"$results/$name.log" 2>&1; then
  runs=$(sed -nE 's/^stat::number_of_executed_units: *//p' "$results/$name.log")
  echo "$name: $runs executions"
  touch "$results/$name.passed"
  echo "$key" >"$results/$name.kept"
else
  tail -n 40 "$results/$name.log"
  touch "$results/$name.failed"
fi
