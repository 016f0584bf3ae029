#!/usr/bin/env bash
# Runs one fuzz target on its corpus for some seconds and leaves NAME.passed or NAME.failed in
# build/fuzz/results. What the run finds goes into build/fuzz/found, never into the sources.
set -u
target=$1
seconds=$2
name=$(basename "$target")
results=build/fuzz/results
found=build/fuzz/found/$name
mkdir -p "$results" "$found"
rm -f "$results/$name".*
corpus=fuzz/corpus/${name%_fuzz}
if nice "$target" "$found" "$corpus" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
  -artifact_prefix="$found/" -print_final_stats=1 >"$results/$name.log" 2>&1; then
  runs=$(sed -nE 's/^stat::number_of_executed_units: *//p' "$results/$name.log")
  echo "$name: $runs executions"
  touch "$results/$name.passed"
else
  tail -n 40 "$results/$name.log"
  touch "$results/$name.failed"
fi
