#!/usr/bin/env bash
# A server that crashes is back by itself, again and again, and the others are left alone.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
start_launcher
operate click bStart 3
expect_log 15 "Listening Map Server"
login=$(server_pid login)
char=$(server_pid char)
map=$(server_pid map)
server crash map
expect_log 10 "Map Server crashed, restarting..."
expect_count map 1
[[ $(server_pid map) != "$map" ]] || fail "the same process"
[[ $(operate text lblErr) == "Map: "20* ]] || fail "last failure: $(operate text lblErr)"
expect_light 5 2 0x0000FF
expect_light 20 2 0x00C000
server crash map
twice() { [[ $(count_log "Map Server crashed, restarting...") == 2 ]]; }
await 10 twice || fail "the second crash went unnoticed"
expect_count map 1
expect_equal "$(server_pid login)" "$login" "login's process"
expect_equal "$(server_pid char)" "$char" "char's process"
expect_no_log "Login Server crashed"
operate click bStart 4
close_launcher
