#!/usr/bin/env bash
# Builds the benchmarks and runs them all; every figure stands beside its floor of the same run.
set -euo pipefail
here=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.." && pwd)
cd "$here"
. scripts/packages.sh
. "$here/scripts/ccache.sh"
# shellcheck disable=SC2086
need_packages $packages_build $packages_test $packages_bench
[ -f build/bench/build.ninja ] || cmake --preset bench >/dev/null
cmake --build --preset bench >/dev/null
for rows in 100000 1000000; do
  for name in load_bench first_rows_bench save_bench access_bench paradox_bench engine_bench grid_bench adjust_bench eps_bench map_bench raster_bench export_bench database_bench gazetteer_bench analysis_bench; do
    echo "== $name, $rows rows"
    build/bench/bin/$name "$rows"
  done
done
echo "== excel_bench"
build/bench/bin/excel_bench
echo "== rehearsal_bench"
build/bench/bin/rehearsal_bench 100000
echo "== coords_bench"
build/bench/bin/coords_bench
echo "== projection_bench"
build/bench/bin/projection_bench
echo "== start"
bench/start.sh build/bench/bin build/bench/bin/samples/talpa_sample.deg
