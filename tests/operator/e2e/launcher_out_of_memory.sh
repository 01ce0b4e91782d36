#!/usr/bin/env bash
# Memory runs out in a minimized launcher: it comes back minimized, with its servers under control.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/faults.bash"
faulty_begin "$0" "$@"
STARTED=$SECONDS
start_launcher
operate click bStart 3
expect_log 15 "Listening Map Server"
pids="$(server_pid login) $(server_pid char) $(server_pid map)"
operate minimize
grow_old
raise memory
expect_fault 0xC0000017 "restarting..."
hidden() { [[ $(state window) == *"visible=0"* ]]; }
await 20 hidden || fail "it did not come back minimized"
server crash char
await 10 eval '[[ $(count_log "Char Server crashed, restarting...") == 1 ]]' || fail "nobody watches"
expect_count char 1
expect_equal "$(server_pid login) $(server_pid map)" "${pids%% *} ${pids##* }" "processes"
expect_equal "$(count_log "under control")" 3 "servers under control"
