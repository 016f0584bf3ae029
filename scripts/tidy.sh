#!/usr/bin/env bash
# Runs clang-tidy over every source file of the program, several at a time. A file that was clean
# is not looked at again until it, a header that it includes, or the checks change: what was clean is
# kept beside the compiler cache, by a hash of what the linter read, for every clone.
# Ends on the line that test.sh counts: PASSED n FAILED n.
set -uo pipefail
here=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.." && pwd)
cd "$here" || exit 1
. scripts/packages.sh
. "$here/scripts/ccache.sh"
# shellcheck disable=SC2086
need_packages $packages_build $packages_test

# The build knows what each file includes, and makes what is generated.
clean=${XDG_CACHE_HOME:-$HOME/.cache}/talpena-tidy
export clean
find "$clean" -type f -mtime +60 -delete 2>/dev/null # changed long ago, or gone
mkdir -p "$clean" build/tidy/findings
if ! { { [ -f build/dev/build.ninja ] || cmake --preset dev >/dev/null; } &&
  cmake --build --preset dev >build/tidy/build.log 2>&1; }; then
  grep -E 'error|FAILED' build/tidy/build.log | head -n 50
  echo "PASSED 0 FAILED 1"
  exit 1
fi

# The linter reads the headers themselves, not what the compiler made of them.
sed -E 's/ -Winvalid-pch -include [^ ]*cmake_pch\.hxx//' build/dev/compile_commands.json \
  >build/tidy/compile_commands.json

# What the linter reads beside our files: its checks, the flags, the headers of the packages.
checks=$({
  clang-tidy --version
  cat .clang-tidy
  sed "s,$here,,g" build/tidy/compile_commands.json | tr ' "' '\n\n' | grep '^-' | sort -u
  dpkg-query -W 'clang*' 'libstdc++*' 'qt6*' 'libqt6*' 'libsqlite3*' 'libicu*' 'mdbtools*'
} 2>/dev/null | sha256sum | cut -d' ' -f1)

# "source key" a line: the key changes with the contents of all that the source includes of ours.
keys() {
  {
    git ls-files -co --exclude-standard -- src app tools data | xargs -d '\n' sha256sum
    echo "--"
    ninja -C build/dev -t deps
  } 2>/dev/null | awk -v here="$here/" -v checks="$checks" '
    /^--$/ { deps = 1; next }
    !deps { sum[$2] = substr($1, 1, 16); next }
    /^ / {
      path = $1
      sub(/^\.\.\/\.\.\//, "", path)
      if (index(path, here) == 1) path = substr(path, length(here) + 1)
      # What the build generates is no source of ours.
      if (source == "" && path in sum && path ~ /^(src|app|tools)\/.*\.cpp$/) source = path
      if (source != "" && path in sum) key[source] = key[source] sum[path]
      next
    }
    { source = "" }
    END { for (s in key) print s, checks key[s] }' |
    while read -r source key; do
      printf '%s %s\n' "$source" "$(printf %s "$key" | sha256sum | cut -d' ' -f1)"
    done
}

lint() { # source key
  local log=build/tidy/findings/$2
  if clang-tidy -p build/tidy --quiet --warnings-as-errors='*' --extra-arg=-w "$1" \
    >"$log" 2>/dev/null; then
    touch "$clean/$2"
    rm -f "$log"
  else
    echo "$1"
    cat "$log"
  fi
}
export -f lint

keys >build/tidy/keys
while read -r source key; do
  touch -c "$clean/$key" # in use
  [ -f "$clean/$key" ] || printf '%s %s\n' "$source" "$key"
done <build/tidy/keys | xargs -r -P"$(nproc)" -L1 bash -c 'lint "$0" "$1"'

passed=0
failed=0
while read -r _ key; do
  if [ -f "$clean/$key" ]; then passed=$((passed + 1)); else failed=$((failed + 1)); fi
done <build/tidy/keys
[ $((passed + failed)) -gt 0 ] || failed=1
echo "PASSED $passed FAILED $failed"
[ "$failed" = 0 ]
