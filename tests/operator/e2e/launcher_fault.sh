#!/usr/bin/env bash
# The launcher dies of faults of its own: it comes back with the servers under control, though nothing
# starts by itself; what fails within a minute stays down. Each is told in the day's file.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/faults.bash"
faulty_begin "$0" "$@"
codes=(memory 0xC0000017 abort 0x40000015 throw 0x40000015 access 0xC0000005)
for ((i = 0; i < ${#codes[@]}; i += 2)); do
  start_launcher
  raise "${codes[i]}"
  expect_fault "${codes[i + 1]}" "not restarted!"
  expect_equal "$(fault_lines | wc -l)" "$((i / 2 + 1))" "lines about faults"
done
sleep 2
if operate state >/dev/null 2>&1; then fail "a launcher that died at once was started again"; fi

STARTED=$SECONDS
start_launcher
operate check chkAK 2
operate set TTO 2 77
operate click bStart 3
expect_log 15 "Listening Map Server"
operate click bStart 1
pids="$(server_pid login) $(server_pid map)"
grow_old
# Its window stays as long as the event log does not answer, and a successor takes a window for somebody alive.
# And its executable is away for a moment, as in the hands of a scanner.
mv "$ROOT/tarvo-launcher.exe" "$ROOT/away"
operate fault unheard
sleep 3
mv "$ROOT/away" "$ROOT/tarvo-launcher.exe"
if launcher_wait; then fail "the launcher ended as if nothing were wrong"; fi
expect_fault 0xC0000005 "restarting..."
operate wait-window 30 || fail "the launcher did not come back"
expect_log 10 "Attention!, the launcher was restarted after a fault of its own."
expect_log 10 "Login Server under control! [Low Priority]"
expect_log 10 "Map Server under control [High Priority]"
expect_log 10 "Listening Map Server"
expect_no_log "Char Server under control"
expect_equal "$(operate text TTO 2 | tr -d '\r')" 77 "what was set and not saved"
expect_equal "$(server_pid login) $(server_pid map)" "$pids" "processes"
expect_count char 0
server crash map
expect_log 10 "Map Server crashed, restarting..."
expect_count map 1

operate fault abort
operate wait-gone 20 || fail "the launcher lives on"
expect_fault 0x40000015 "not restarted!"
sleep 3
if operate state >/dev/null 2>&1; then fail "it was started again within a minute"; fi
expect_count map 1
