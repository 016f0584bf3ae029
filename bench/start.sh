#!/usr/bin/env bash
# Start to window shown, beside a minimal Qt window with a table view, in turn, in the same X
# server: bench/start.sh BIN_DIR FILE.deg [runs]
set -euo pipefail
bin=$1
file=$2
runs=${3:-9}

if [ -z "${BENCH_INSIDE_X:-}" ]; then
  BENCH_INSIDE_X=1 exec xvfb-run -a -s "-screen 0 1600x1000x24" "$0" "$bin" "$file" "$runs"
fi
export XDG_CONFIG_HOME
XDG_CONFIG_HOME=$(mktemp -d)
trap 'rm -rf "$XDG_CONFIG_HOME"' EXIT

# Milliseconds from the start of a command until a window of that name is seen.
until_shown() { # name command...
  local name=$1 begin end pid
  shift
  begin=$(date +%s%N)
  "$@" >/dev/null 2>&1 &
  pid=$!
  # Its own --sync looks only twice a second.
  until xdotool search --onlyvisible --name "$name" >/dev/null 2>&1; do :; done
  end=$(date +%s%N)
  kill -9 "$pid"
  wait "$pid" 2>/dev/null || true
  echo $(((end - begin) / 1000000))
}

median() { sort -n | awk '{v[NR]=$1} END {print v[int((NR+1)/2)]}'; }

floor=""
program=""
for _ in $(seq "$runs"); do
  floor+="$(until_shown '^minimal window$' "$bin/minimal_window")"$'\n'
  program+="$(until_shown '^Talpena - ' "$bin/talpena" "$file")"$'\n'
done
f=$(printf '%s' "$floor" | median)
p=$(printf '%s' "$program" | median)
echo "minimal window ${f} ms, program ${p} ms, ratio $(awk "BEGIN {printf \"%.2f\", $p/$f}")"
