#!/usr/bin/env bash
# A server that cannot be killed: the window comes back to life after a bound, and the log says so.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
echo refuse-to-die >"$ROOT/login-server.behaviour"
start_launcher
operate click bStart 0
expect_log 10 "Login Server Started!"
server state login
expect_count login 1
operate click bStart 0
expect_log 15 "[login-server.exe] refuses to end, still in memory!"
expect_log 1 "Login Server Stopped!"
expect_equal "$(operate text bStart 0 | tr -d '\r')" "Start" "login button"
expect_count login 1
server die login
expect_count login 0
close_launcher
