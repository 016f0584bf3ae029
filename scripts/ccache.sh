# shellcheck shell=bash
# How the compiler cache is used, if there is one: the same for every clone, and with headers that
# were compiled before. For sourcing by the scripts that build, with $here as the root.
# shellcheck disable=SC2154  # the caller sets it
export CCACHE_BASEDIR=$here CCACHE_NOHASHDIR=1
export CCACHE_SLOPPINESS=pch_defines,time_macros
