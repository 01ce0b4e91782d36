#!/usr/bin/env bash
# The figures of the command line, one line each: name, value, unit, limit, held or short. The rival is the least
# console program, a whole process each, run by turns.
#
#   benches/windows/outside_bench.sh [RUNS]     30 unless given
set -euo pipefail
source "$(dirname "$0")/../../tests/operator/e2e/story.sh"
source "$(dirname "$0")/figures.bash"
runs=${1:-30}
BENCH=$WINDOWS_BUILD/benches
story_begin "$0" "$@"

measure() { wine_run "$BENCH/measure.exe" "$@" | tr -d '\r'; }

cp "$BENCH/bare-console.exe" "$ROOT/"
start_launcher
cd "$ROOT"
measure run bare-console.exe >/dev/null
measure run tarvo-launcher.exe --state json >/dev/null
for _ in $(seq "$runs"); do
  measure run bare-console.exe >>"$WINE_DIR/bare"
  measure run tarvo-launcher.exe --state json >>"$WINE_DIR/state"
done
bare=$(median <"$WINE_DIR/bare")
state=$(median <"$WINE_DIR/state")
figure "--state json ($state ms) to a bare console program ($bare ms)" "$(ratio "$state" "$bare")" ratio 2

# A conf file of the size that servers have, and settings to look up in it.
printf '// What the next setting is good for, in a line or two of words.\r\n%.0s' {1..3000} >>"$ROOT/conf/battle_athena.conf"
measure run tarvo-launcher.exe --check --json >/dev/null
for _ in $(seq "$runs"); do measure run tarvo-launcher.exe --check --json >>"$WINE_DIR/check"; done
check=$(median <"$WINE_DIR/check")
figure "check-up of a server root, a whole process" "$check" ms 200
close_launcher

# The check-up that runs by itself has most to do in a root with a large conf file: if it came before the first picture,
# that one would be late there. The randomizer reads the same file before it, with and without the check-up.
cp conf/battle_athena.conf "$WINE_DIR/some.conf"
for _ in {1..80}; do cat "$WINE_DIR/some.conf"; done >conf/battle_athena.conf
cp "$BENCH/without-check-up.exe" "$ROOT/"
start_of() { measure start "$1.exe" TarvoLauncherMain; }
start_of tarvo-launcher >/dev/null
start_of without-check-up >/dev/null
for _ in $(seq "$runs"); do
  start_of tarvo-launcher >>"$WINE_DIR/with"
  start_of without-check-up >>"$WINE_DIR/without"
done
with=$(median <"$WINE_DIR/with")
without=$(median <"$WINE_DIR/without")
figure "start to painted, 16 MB to check up ($with ms) to no check-up ($without ms)" "$(ratio "$with" "$without")" ratio 1.1
figures_held
