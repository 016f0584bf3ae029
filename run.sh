#!/usr/bin/env bash
# Builds the program and starts it: ./run.sh [file.deg]
# Without a display a program of the tests shows the same windows under a virtual X server and
# leaves pictures of them in build/pictures.
set -euo pipefail
here=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")" && pwd)
. "$here/scripts/packages.sh"
. "$here/scripts/ccache.sh"

file=${1:-}
if [ -n "$file" ]; then
  file=$(realpath -m -- "$file")
fi

# shellcheck disable=SC2086
need_packages $packages_build
cd "$here"
[ -f build/release/build.ninja ] || cmake --preset release >/dev/null
cmake --build --preset release

file=${file:-$here/build/bin/samples/talpa_sample.deg}
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  exec build/bin/talpena "$file"
fi

# shellcheck disable=SC2086
need_packages $packages_pictures
pictures=$here/build/pictures
rm -rf "$pictures"
mkdir -p "$pictures"
QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1600x1000x24" \
  build/release/tools/take_pictures "$pictures" "$file"
echo "No display: pictures of the windows are in $pictures"
ls "$pictures"
