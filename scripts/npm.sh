# The readers of npm that tests hold ours against, in build/npm, from the lock file. To be sourced
# where `here` is the folder of the project. Without the registry (or npm) those tests are skipped.
npm_readers() {
  local from=$here/tests/tools/npm to=$here/build/npm
  cmp -s "$from/package-lock.json" "$to/package-lock.json" && [ -d "$to/node_modules" ] && return 0
  if ! command -v npm >/dev/null; then
    echo "npm is not installed: tests that need its readers are skipped"
    return 0
  fi
  rm -rf "$to" && mkdir -p "$to" && cp "$from"/package*.json "$to/"
  if ! (cd "$to" && timeout 120 npm ci --ignore-scripts --no-audit --no-fund) >"$to/npm.log" 2>&1; then
    echo "the npm registry does not answer: tests that need its readers are skipped"
    rm -rf "$to"
  fi
}
