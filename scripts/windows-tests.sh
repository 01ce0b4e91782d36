#!/usr/bin/env bash
# Runs the adapters' tests of the Windows build under Wine: a clean prefix, a virtual display and,
# where it is allowed, a network of its own.
#
#   scripts/windows-tests.sh [BUILD-FOLDER] [gtest option...]
#
# BUILD-FOLDER is that of the Windows build; TARVO_WINDOWS_BUILD goes before it, build/windows-64 is
# taken when neither is given.
set -u
source "$(dirname "${BASH_SOURCE[0]}")/wine-env.sh"
export TARVO_NETNS=${TARVO_NETNS:-1}
wine_own_network "$0" "$@"

given=
if [[ $# -gt 0 && $1 != -* ]]; then
  given=$(cd "$1" && pwd)
  shift
fi
build=${TARVO_WINDOWS_BUILD:-${given:-$WINE_REPOSITORY/build/windows-64}}
program=$build/tests/windows/windows_tests.exe
if [[ ! -f $program ]]; then
  echo "There is no $program." >&2
  echo "Build it first: cmake --preset windows-64 && cmake --build --preset windows-64" >&2
  exit 1
fi
for server in login char map; do
  if [[ ! -f $build/servers/$server-server.exe ]]; then
    echo "There is no $build/servers/$server-server.exe: build the preset windows-64 whole." >&2
    exit 1
  fi
done

wine_start
cd "$WINE_DIR" || exit 1
wine_run "$program" --gtest_color=no "$@"
