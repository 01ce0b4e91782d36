#!/usr/bin/env bash
# The system asks all programs before it ends a session. Until it tells more the launcher restarts nothing: servers that
# end at the question were once taken for crashed ones. Called off, the watches go on; ended, also under a message box,
# the settings are saved and the servers left to the system.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
start_launcher
operate click bStart 3
expect_log 15 "Listening Map Server"
operate check chkAK 2
operate set TTO 2 77
operate page 1
operate log-off asked
server crash map
expect_count map 0
sleep 8
expect_count map 0
expect_no_log "crashed"
operate log-off off
expect_log 10 "Map Server crashed, restarting..."
expect_count map 1
expect_equal "$(count_log "Map Server crashed")" 1 "restarts"

operate close
operate box | grep -qF "Please, stop servers" || fail "the close was not refused"
operate log-off asked
operate log-off ends
operate wait-gone 20 || fail "the launcher stayed"
launcher_wait || fail "exit code $?"
expect_equal "$(settings_read "$ROOT" MapTimeout)" 77 "the autokill time"
expect_count login 1
expect_count map 1
