#!/usr/bin/env bash
# Plays stories of tarvo-acceptance.exe under Wine, in a folder as a stranger unpacks it.
#
#   tests/operator/acceptance/under_wine.sh                      all of them
#   tests/operator/acceptance/under_wine.sh --story start_stop   one; the words are the program's
#
# TARVO_WINDOWS_BUILD names the Windows build, build/windows-64 otherwise. The exit code is the program's, or 77 when
# all that was to be played was skipped.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
source "$here/../../../scripts/wine-env.sh"
source "$here/../e2e/silent.bash"
build=${TARVO_WINDOWS_BUILD:-$WINE_REPOSITORY/build/windows-64}
[[ -f $build/tarvo-acceptance.exe ]] || wine_fail "build the preset windows-64 first"
TARVO_NETNS=${TARVO_NETNS:-1} wine_own_network "$0" "$@"
wine_start
mkdir "$WINE_DIR/unpacked"
cp "$build"/{tarvo-acceptance,tarvo-launcher}.exe "$build"/servers/{login,char,map,console}-server.exe "$WINE_DIR/unpacked/"
if silence_hosts; then set -- --silent "${SILENT_HOSTS[0]}" "$@"; fi
TARVO_WINE_LIMIT=660 wine_run "$WINE_DIR/unpacked/tarvo-acceptance.exe" "$@"
report=$WINE_DIR/unpacked/acceptance-report.txt
[[ ! -f $report ]] || ! grep -qE '^0 held, 0 did not hold, [1-9]' "$report" || exit 77
