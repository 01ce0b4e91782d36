#!/usr/bin/env bash
# One server started and stopped, then all of them, by the buttons.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
start_launcher
operate click bStart 1
expect_log 10 "Char Server Started [Norm Priority]"
expect_count char 1
expect_state Exes 1 "enabled=0"
expect_equal "$(operate text bStart 1 | tr -d '\r')" "Stop" "char button"
expect_log 15 "Listening Char Server"
expect_light 5 1 0x00C000

operate click bStart 3
expect_log 10 "Login Server Started! [Low Priority]"
expect_log 10 "Map Server Started [High Priority]"
expect_count login 1
expect_count char 1
expect_count map 1
expect_equal "$(count_log "Char Server Started")" "1" "starts of char"
expect_log 15 "Listening Map Server"

operate select Prior 2 V-High
expect_log 5 "Map Server running with V-High priority"

operate click bStart 0
expect_log 10 "Login Server Stopped!"
expect_count login 0
expect_equal "$(operate text bStart 0 | tr -d '\r')" "Start" "login button"
expect_state Exes 0 "enabled=1"

operate click bStart 4
expect_log 10 "Char Server Stopped!"
expect_log 10 "Map Server Stopped!"
expect_equal "$(count_log "Login Server Stopped!")" "1" "stops of login"
for name in login char map; do expect_count "$name" 0; done
for i in 0 1 2; do expect_light 5 "$i" 0xC0C0C0; done
expect_no_log "crashed"
close_launcher
