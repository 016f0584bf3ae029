#!/usr/bin/env bash
# Draws distributions on the maps that ship and leaves the pictures in build/pictures/maps: each
# map as the window shows it (NAME.png) and as it prints (NAME.eps, NAME.page.png), and the raster
# maps (raster-NAME.png).
#   scripts/map_pictures.sh [FILE.deg...]     the real files when there are any, else the sample
set -euo pipefail
here=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.." && pwd)
. "$here/scripts/packages.sh"
. "$here/scripts/ccache.sh"
files=()
for file in "$@"; do files+=("$(realpath -- "$file")"); done
cd "$here"
# shellcheck disable=SC2086
need_packages $packages_build $packages_test
[ -f build/dev/build.ninja ] || cmake --preset dev >/dev/null
cmake --build --preset dev --target map_pictures talpena_carto talpena_raster_maps

if [ ${#files[@]} = 0 ]; then
  shopt -s nullglob
  files=(../shared/data/*.deg)
  [ ${#files[@]} = 0 ] && files=(data/samples/*.deg)
fi
out=build/pictures/maps
rm -rf "$out"
mkdir -p "$out"
build/dev/bin/map_pictures build/dev/bin/carto "$out" "${files[@]}"
for page in "$out"/*.eps; do
  gs -q -dSAFER -dBATCH -dNOPAUSE -dEPSCrop -sDEVICE=png16m -r110 -dTextAlphaBits=4 \
    -dGraphicsAlphaBits=4 -sOutputFile="${page%.eps}.page.png" "$page"
done
ls "$out" | sed 's/^/build\/pictures\/maps\//'
