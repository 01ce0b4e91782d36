#!/usr/bin/env bash
# Ten thousand questions for the state in a row, and as many messages that look like commands and are none: the
# launcher goes on as before, with as many handles and as much memory. TARVO_STORM: another number of them.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/command.bash"
story_begin "$0" "$@"
count=${TARVO_STORM:-10000}
storm() { wine_run "$WINDOWS_BUILD/command-storm.exe" "$(wine_path "$ROOT/tarvo-launcher.exe")" "$@" | tr -d '\r'; }
measure() { wine_run "$WINDOWS_BUILD/benches/measure.exe" "$@" | tr -d '\r'; }
# A finding, by whose number on the button it is seen that the check-up has run by itself: it takes memory once.
sed -i 's/\r$//' "$ROOT/conf/map_athena.conf"
checked_up() { [[ $(state cmdCheckUp) == *'text="Check-up ('* ]]; }
start_launcher
await 20 checked_up || fail "no check-up by itself"
operate click bStart 0
expect_log 15 "Listening Login Server"
burden() {
  measure handles tarvo-launcher.exe
  measure objects tarvo-launcher.exe
  awk '/^Private/ { sum += $2 } END { print sum }' "/proc/$LAUNCHER_PROCESS/smaps_rollup"
}
storm asks "$((count / 10))" >/dev/null || fail "a question was not answered"
flat=0
# What is made at its first use is made once; what is lost with each question is lost in every round.
for ((round = 0; round < 3 && !flat; ++round)); do
  read -r handles gdi windows memory < <(burden | xargs)
  ((handles > 10 && memory > 1000)) || fail "no figures: $handles handles, $memory KiB"
  read -r _ slowest < <(storm asks "$count")
  [[ -n ${slowest:-} ]] || fail "a question was not answered"
  ((slowest <= 2000)) || fail "an answer took $slowest ms"
  read -r handles_after gdi_after windows_after memory_after < <(burden | xargs)
  echo "$count questions: handles $handles to $handles_after, GDI objects $gdi to $gdi_after," \
    "windows $windows to $windows_after, KiB $memory to $memory_after, slowest $slowest ms"
  ((flat = handles_after <= handles + 2 && gdi_after <= gdi && windows_after <= windows &&
    memory_after <= memory + 256)) || true
done
((flat)) || fail "handles, objects or memory grow with the questions"
storm garbage "$count" || fail "no answer after messages of others"
expect_count login 1
expect_no_log "Login Server Stopped!"
expect_equal "$(count_log "Login Server Started!")" 1 "starts of login"
no_box || fail "a box came up: $(operate box)"
operate click bStart 0
expect_log 10 "Login Server Stopped!"
close_launcher
