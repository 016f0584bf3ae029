#!/usr/bin/env bash
# Takes the pictures of the user guide from the program's windows: every one that a page of
# data/help shows, in each language of the guide, light, on the sample file.
#   scripts/help_pictures.sh [PRESET]     PRESET of the build to run, release when not given
# Pictures that no page shows are not kept in data/help/pictures.
set -euo pipefail
here=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.." && pwd)
cd "$here"
. scripts/packages.sh
# shellcheck disable=SC2086
need_packages $packages_build $packages_pictures
limit=153600 # bytes; a guide is to be opened at once

preset=${1:-release}
[ -f "build/$preset/build.ninja" ] || cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset" --target take_pictures small_png
bin=$here/build/$preset/bin
[ "$preset" = release ] && bin=$here/build/bin

taken=$(mktemp -d)
# A home of its own, so that nobody's settings change what the windows look like, and always the
# same, since the preferences show a folder of it; with the program in it, since imports show where
# the examples are.
home=${TMPDIR:-/tmp}/guide
mkdir "$home"
ln -s "$bin" "$home/talpena"
trap 'rm -rf "$taken" "$home"' EXIT
HOME=$home XDG_CONFIG_HOME=$home XDG_CACHE_HOME=$home TALPENA_FOLDER=$home/talpena \
  QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1280x800x24" \
  "build/$preset/tools/take_pictures" "$taken" "$bin/samples/talpa_sample.deg"

missing=0
for language in fr en; do
  folder=data/help/pictures/$language
  mkdir -p "$folder"
  rm -f "$folder"/*.png
  names=$(grep -oh "pictures/$language/[a-z-]*\.png" data/help/"$language"/*.html | xargs -n1 basename -s .png | sort -u)
  for name in $names; do
    picture=$taken/${name}_$language.png
    if [ ! -f "$picture" ]; then
      echo "there is no picture \"$name\" in $language" >&2
      missing=1
      continue
    fi
    "build/$preset/tools/small_png" "$picture" "$folder/$name.png"
    if [ "$(stat -c %s "$folder/$name.png")" -gt $limit ]; then
      echo "$folder/$name.png is larger than $limit bytes" >&2
      missing=1
    fi
  done
done
exit $missing
