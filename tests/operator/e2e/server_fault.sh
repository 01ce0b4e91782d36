#!/usr/bin/env bash
# A server that dies of an access violation is back at the next check, and the others are left alone.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
start_launcher
operate click bStart 3
expect_log 20 "Listening Map Server"
map=$(server_pid map)
server fault map
expect_log 10 "Map Server crashed, restarting..."
expect_count map 1
[[ $(server_pid map) != "$map" ]] || fail "the same process"
expect_no_log "Login Server crashed"
operate click bStart 4
for name in login char map; do expect_count "$name" 0; done
close_launcher
