#!/usr/bin/env bash
# A server that dies at once after each start is started anew every 5 seconds, without limit, until the
# operator stops it.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
echo die-at-start >"$ROOT/char-server.behaviour"
start_launcher
operate click bStart 1
three() { (($(count_log "Char Server crashed, restarting...") >= 3)); }
await 30 three || fail "fewer than three restarts"
rm "$ROOT/char-server.behaviour"
expect_log 25 "Listening Char Server"
operate click bStart 1
expect_log 10 "Char Server Stopped!"
expect_count char 0
close_launcher
