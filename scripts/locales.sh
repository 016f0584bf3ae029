# shellcheck shell=bash
# Makes the locales that tests run under: the system's, or, without the right to, our own in
# build/locales. To be sourced.
for locale in de_DE tr_TR; do
  locale -a 2>/dev/null | grep -i "^$locale.utf-\?8$" >/dev/null && continue
  localedef -i "$locale" -f UTF-8 "$locale.UTF-8" 2>/dev/null && continue
  mkdir -p build/locales
  if localedef -i "$locale" -f UTF-8 "$PWD/build/locales/$locale.UTF-8" 2>/dev/null; then
    export LOCPATH=$PWD/build/locales
  else
    echo "locale $locale.UTF-8 could not be made: its tests are skipped"
  fi
done
