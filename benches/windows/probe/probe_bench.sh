#!/usr/bin/env bash
# What silent servers cost, in the launcher itself under Wine, in a network of its own: one line each, with
# name, value, unit, limit, held or short.
#
#   benches/windows/probe/probe_bench.sh [ROUNDS]     10 unless given
set -euo pipefail
source "$(dirname "$0")/../../../tests/operator/e2e/story.sh"
source "$(dirname "$0")/../../../tests/operator/e2e/silent.bash"
source "$(dirname "$0")/../figures.bash"
rounds=${1:-10}
BENCH=$WINDOWS_BUILD/benches
story_begin "$0" "$@"

# watch ARGUMENT...: begins to watch, and waits until it does.
watch() {
  rm -f "$WINE_DIR/watched"
  wine_spawn "$BENCH/probe-watch.exe" "$@" >"$WINE_DIR/watched"
  WATCH=$WINE_SPAWNED
  await 20 grep -qs ready "$WINE_DIR/watched" || fail "the launcher is not watched"
}
# watched: its figures are in MS and ANSWER.
watched() {
  wait "$WATCH" || fail "not watched to the end: $(<"$WINE_DIR/watched")"
  sed -i 's/\r//' "$WINE_DIR/watched"
  WORST=$(grep -E '^[0-9.]+$' "$WINE_DIR/watched" | sort -n | tail -1)
  ANSWER=$(awk '$1 == "answer" { print $2 }' "$WINE_DIR/watched")
}

settings_write "$ROOT" LoginChkInterval=1000 LoginTimeout=5 LoginAutoKillEnabled=1 LoginAutoStart=1 WriteLog=1
start_launcher
expect_log 20 "Listening Login Server"
logs=("$ROOT"/*.log)
watch kills "$rounds" "$(wine_path "${logs[0]}")" "freeze!" login-server.exe
for round in $(seq "$rounds"); do
  sleep "0.$((RANDOM % 10))"
  server hang login >/dev/null
  restarted() { [[ $(count_log "Listening Login Server") -gt $round ]]; }
  await 60 restarted || fail "not started again"
done
watched
# 5 seconds of its own and 5 more; a tick makes two probes of a second each.
figure "queue full: freeze line to kill, worst of $rounds" "$WORST" ms 10000
figure "queue full: longest time without an answer" "$ANSWER" ms 2500
operate click bStart 4
close_launcher

silence_hosts || fail "wants a network of its own"
conf_host char_athena.conf char_ip "${SILENT_HOSTS[0]}"
conf_host map_athena.conf map_ip "${SILENT_HOSTS[1]}"
settings_write "$ROOT" LoginTimeout=300 CharTimeout=300 MapTimeout=300 CharAutoKillEnabled=1 \
  MapAutoKillEnabled=1 CharAutoStart=1 MapAutoStart=1
start_launcher
expect_log 30 "Map server is freeze!... waiting..."
watch successors "$rounds" login-server.exe
watched
figure "two silent: death to successor, worst of $rounds" "$WORST" ms 9000
figure "two silent: longest time without an answer" "$ANSWER" ms 2500
operate click bStart 4
close_launcher
figures_held
