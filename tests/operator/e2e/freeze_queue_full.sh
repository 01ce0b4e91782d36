#!/usr/bin/env bash
# The other kind of freeze: the server lives, nobody accepts, its queue is full.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
settings_write "$ROOT" LoginChkInterval=1000 LoginTimeout=5 LoginAutoKillEnabled=1
start_launcher
operate click bStart 0
expect_log 10 "Listening Login Server"
server hang login
# Each connect blocks as long as the system tries; in a network of its own that is a few seconds.
expect_log 200 "Login server freeze!... waiting..."
expect_log 200 "Shuting down Login..."
expect_log 15 "Login Server crashed, restarting..."
expect_count login 1
operate click bStart 4
close_launcher
