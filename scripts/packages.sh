# The Debian packages that the project needs, and their installation. To be sourced.

packages_build="g++ cmake ninja-build pkg-config ccache git
  qt6-base-dev qt6-svg-dev qt6-translations-l10n libgl1-mesa-dev libsqlite3-dev libicu-dev mdbtools-dev
  libxlsxwriter-dev libexpat1-dev zlib1g-dev libqcustomplot-dev
  fonts-dejavu-core"
packages_pictures="xvfb xauth fonts-dejavu-core"
packages_test="libgtest-dev libgmock-dev libproj-dev libgeographiclib-dev mdbtools locales
  clang lld clang-format clang-tidy libclang-rt-14-dev xvfb xauth fonts-dejavu-core xdotool openbox strace
  at-spi2-core dbus dbus-x11 python3 python3-pyatspi procps ghostscript gpsbabel
  gdal-bin python3-dbfread pxlib-dev python3-xlrd python3-openpyxl gnumeric"
packages_bench="libbenchmark-dev sqlite3"

# Installs what is missing of the packages named. Without the right to install it says exactly
# what is missing and ends the script.
need_packages() {
  local missing="" name
  for name in "$@"; do
    dpkg-query -W -f='${Status}' "$name" 2>/dev/null | grep -q '^install ok installed$' ||
      missing="$missing $name"
  done
  [ -z "$missing" ] && return 0
  local as_root=""
  if [ "$(id -u)" != 0 ]; then
    if command -v sudo >/dev/null && sudo -n true 2>/dev/null; then
      as_root="sudo -n"
    else
      echo "These packages are missing:$missing" >&2
      echo "Install them as root: apt-get install$missing" >&2
      exit 1
    fi
  fi
  echo "Installing:$missing"
  $as_root apt-get update -qq
  # shellcheck disable=SC2086  # the list is words on purpose
  if ! $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq \
    --no-install-recommends $missing >/dev/null; then
    echo "apt-get could not install:$missing" >&2
    exit 1
  fi
}
