#!/usr/bin/env bash
# The figures of the launcher itself, one line each: name, value, unit, limit, held or short.
# The limits are those that the launcher is built to; a rival is a bare one-window program of the same toolkit,
# started by turns with it. Memory and processor time are the kernel's own figures of the process.
#
#   benches/windows/launcher_bench.sh [CYCLES]     crash-and-restart cycles, 300 unless given
set -euo pipefail
source "$(dirname "$0")/../../tests/operator/e2e/story.sh"
source "$(dirname "$0")/figures.bash"
cycles=${1:-300}
BENCH=$WINDOWS_BUILD/benches
story_begin "$0" "$@"

measure() { wine_run "$BENCH/measure.exe" "$@" | tr -d '\r'; }

private_kib() { awk '/^Private/ { sum += $2 } END { print sum }' "/proc/$1/smaps_rollup"; }
cpu_ticks() { awk '{ print $14 + $15 }' "/proc/$1/stat"; }

figure "executable, 64-bit, stripped" \
  "$(awk -v b="$(stat -c %s "$WINDOWS_BUILD/tarvo-launcher.exe")" 'BEGIN { printf "%.2f", b / 1048576 }')" MB 1.5

cp "$BENCH/bare-window.exe" "$ROOT/"
cd "$ROOT"
settings_write "$ROOT" WriteLog=1 WriteMode=0
start_measured() {
  rm -f ./*.log
  measure start tarvo-launcher.exe TarvoLauncherMain "$(date +%Y%m%d).log" "Launcher Ready!"
}
measure start bare-window.exe TarvoBareWindow >/dev/null
start_measured >/dev/null
for _ in $(seq 15); do
  measure start bare-window.exe TarvoBareWindow >>"$WINE_DIR/bare"
  start_measured >>"$WINE_DIR/launcher"
done
bare=$(median <"$WINE_DIR/bare")
ready=$(cut -d' ' -f1 "$WINE_DIR/launcher" | median)
painted=$(cut -d' ' -f2 "$WINE_DIR/launcher" | median)
figure "\"Launcher Ready!\" ($ready ms) to a bare window ($bare ms)" "$(ratio "$ready" "$bare")" ratio 1.5
figure "window painted ($painted ms) to a bare window" "$(ratio "$painted" "$bare")" ratio 1.75
settings_write "$ROOT" WriteLog=0

wine_spawn bare-window.exe
sleep 2
bare_memory=$(private_kib "$WINE_SPAWNED")
settings_write "$ROOT" LoginAutoStart=1 CharAutoStart=1 MapAutoStart=1 LoginAutoKillEnabled=1 \
  CharAutoKillEnabled=1 MapAutoKillEnabled=1
start_launcher
expect_log 20 "Listening Map Server"
launcher=$LAUNCHER_PROCESS
memory=$(private_kib "$launcher")
figure "private memory ($memory KiB) to a bare window ($bare_memory KiB)" \
  "$(ratio "$memory" "$bare_memory")" ratio 1.5

before=$(cpu_ticks "$launcher")
sleep 60
ticks=$(($(cpu_ticks "$launcher") - before))
figure "processor time over 60 s, three servers watched" \
  "$(awk -v t="$ticks" -v hz="$(getconf CLK_TCK)" 'BEGIN { printf "%.3f", t / hz / 60 * 100 }')" % 0.1

worst=0
for _ in $(seq 20); do
  sleep "$((RANDOM % 5)).$((RANDOM % 10))"
  name=$(shuf -n 1 -e login char map)
  took=$(measure successor "$name-server.exe")
  worst=$(awk -v a="$worst" -v b="$took" 'BEGIN { print (a > b ? a : b) }')
done
figure "kill of a server to its successor, worst of 20" "$worst" ms 5150

cycle() {
  local name
  for name in login char map; do
    server crash "$name" >/dev/null || true
  done
  sleep 5.2
}
# What is bounded by design is filled first: the log's view, with lines of the kind that come later,
# and the icons of the states.
for _ in $(seq 60); do cycle; done
sleep 6
handles=$(measure handles tarvo-launcher.exe)
read -r gdi windows < <(measure objects tarvo-launcher.exe)
memory=$(private_kib "$launcher")
for _ in $(seq $((cycles / 3))); do cycle; done
sleep 6
figure "$cycles crashes: system handles more than before" \
  "$(($(measure handles tarvo-launcher.exe) - handles))" handles 0
read -r gdi_after windows_after < <(measure objects tarvo-launcher.exe)
figure "$cycles crashes: GDI objects more than before" "$((gdi_after - gdi))" objects 0
figure "$cycles crashes: windows more than before" "$((windows_after - windows))" windows 0
figure "$cycles crashes: private memory more than before" \
  "$(awk -v a="$(private_kib "$launcher")" -v b="$memory" 'BEGIN { printf "%.0f", a - b }')" KiB 256
operate click bStart 4
close_launcher
figures_held
