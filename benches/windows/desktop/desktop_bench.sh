#!/usr/bin/env bash
# The desktop's figures in the Windows programs themselves, one line each: name, value, unit, limit, held or
# short.
#
#   benches/windows/desktop/desktop_bench.sh [ROUNDS]     freezes whose picture is waited for, 20 unless given
set -euo pipefail
source "$(dirname "$0")/../../../tests/operator/e2e/story.sh"
source "$(dirname "$0")/../figures.bash"
rounds=${1:-20}
BENCH=$WINDOWS_BUILD/benches
WINE_SCREEN=1920x1080
story_begin "$0" "$@"
bench() { wine_run "$BENCH/$1.exe" "${@:2}" 2>/dev/null | tr -d '\r'; }
value() { awk -v name="$1" '$1 == name { print $2 }'; }
minus() { awk -v a="$1" -v b="$2" 'BEGIN { print a - b }'; }

# The log: 50,000 lines, ten in each event, three times, each of which is judged.
for run in 1 2 3; do
  bench log-flood 50000 10 >"$WINE_DIR/flood$run"
  ratio "$(value last <"$WINE_DIR/flood$run")" "$(value first <"$WINE_DIR/flood$run")" >>"$WINE_DIR/ratios"
  echo >>"$WINE_DIR/ratios"
  value answer <"$WINE_DIR/flood$run" >>"$WINE_DIR/answers"
done
ratios=$(sort -n "$WINE_DIR/ratios" | xargs)
answers=$(sort -n "$WINE_DIR/answers" | xargs)
# of NAME: its largest value of the three.
of() { cat "$WINE_DIR"/flood? | value "$1" | sort -n | tail -1; }
figure "log line, last 1000 to first: ${ratios// /, }" "${ratios##* }" ratio 1.1
# A line, at most 82 letters of source, is added while the source is at most 25000 long.
figure "longest source of the log's view" "$(of source)" letters 25082
figure "letters shown that are not the view's" "$(of differs)" letters 0
figure "place that is read moves while 150 lines come" "$(of moved)" pixels 0
figure "longest answer meanwhile, ms: ${answers// /, }" "${answers##* }" ms 100

# Ten thousand pictures.
changes=$(bench picture-changes 10000)
figure "GDI objects more after 10000 picture changes" "$(value gdi <<<"$changes")" objects 0
figure "USER objects more after 10000 picture changes" "$(value user <<<"$changes")" objects 0
figure "tick with every state changed, drawn" "$(value tick <<<"$changes")" ms 20

# From the alarm to the picture, in the launcher: the char server closes its port and opens it again.
settings_write "$ROOT" CharChkInterval=1370 LoginChkInterval=1000 CharTimeout=60 CharAutoKillEnabled=1 \
  LoginAutoKillEnabled=1 LoginAutoStart=1 CharAutoStart=1 MapAutoStart=1 WriteLog=1
start_launcher
expect_log 20 "Listening Map Server"
logs=("$ROOT"/*.log)
wine_spawn "$BENCH/picture-watch.exe" "$rounds" "$(wine_path "${logs[0]}")" "freeze!" >"$WINE_DIR/pictures"
watch=$WINE_SPAWNED
await 20 grep -qs ready "$WINE_DIR/pictures" || fail "the notification area is not watched"
for _ in $(seq "$rounds"); do
  sleep "$((6 + RANDOM % 2)).$((RANDOM % 10))"
  server close-port char >/dev/null
  sleep 4
  server answer char >/dev/null
done
wait "$watch" || fail "the pictures were not watched to the end"
sed -i 's/\r//' "$WINE_DIR/pictures"
figure "alarm state to picture, worst of $rounds" \
  "$(grep -E '^[0-9.]+$' "$WINE_DIR/pictures" | sort -n | tail -1)" ms 2020
figure "status tick to the next, worst of all that time" "$(value gap <"$WINE_DIR/pictures")" ms 2020
operate click bStart 4
close_launcher

# What the status tick needs: the launcher with nothing else going on, and then not even that.
cpu_milliseconds() { awk '{ sum += $1 } END { printf "%.3f", sum / 1e6 }' /proc/"$1"/task/*/schedstat; }
entitled() { [[ $(operate state | head -1) == *"title=\"$1\""* ]]; }
# used TITLE SECONDS: milliseconds of processor time in that state.
used() {
  await 150 entitled "$1" || fail "the launcher does not come to $1"
  sleep 1
  local before
  before=$(cpu_milliseconds "$WINE_SPAWNED")
  sleep "$2"
  minus "$(cpu_milliseconds "$WINE_SPAWNED")" "$before"
}
cp "$BENCH/status-tick.exe" "$ROOT/"
cd "$ROOT"
wine_spawn status-tick.exe 30 45
operate wait-window 30
tick=$(used tick 120)
nothing=$(used nothing 120)
figure "status tick and strips over 120 s, of one core" \
  "$(awk -v t="$tick" -v n="$nothing" 'BEGIN { printf "%.4f", (t - n) / 1200 }')" % 0.05
operate click bStart 4
operate close
operate wait-gone 30
figures_held
