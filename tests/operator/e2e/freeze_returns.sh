#!/usr/bin/env bash
# A server that answers again within its seconds is not killed.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
settings_write "$ROOT" CharChkInterval=1000 CharTimeout=60 CharAutoKillEnabled=1
start_launcher
operate click bStart 3
expect_log 15 "Listening Char Server"
char=$(server_pid char)
server close-port char
expect_log 10 "Char server freeze!... waiting..."
expect_light 5 1 0x0000FF
server answer char
expect_log 10 "Char server is back!"
# Char's return turns the login server's light; its own follows with its next probe.
expect_light 5 0 0x0000FF
expect_light 5 1 0x00C000
expect_equal "$(server_pid char)" "$char" "char's process"
expect_no_log "Shuting down"
operate click bStart 4
close_launcher
