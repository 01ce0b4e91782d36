#!/usr/bin/env bash
# A server whose executable is no program yet (it is being copied, or spoilt) ends nothing: the line is
# red, the other servers are watched, and the launch is tried again until it succeeds.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
mv "$ROOT/char-server.exe" "$ROOT/kept"
printf 'half a program' >"$ROOT/char-server.exe"
start_launcher
operate click bStart 3
expect_log 10 "[char-server.exe] can't be started: "
expect_log 10 "(system error 193)"
expect_log 10 "Map Server Started [High Priority]"
expect_equal "$(operate text bStart 1 | tr -d '\r')" "Stop" "char button"
expect_light 5 1 0x0000FF
mv "$ROOT/kept" "$ROOT/char-server.exe"
expect_log 10 "Char Server Started [Norm Priority]"
expect_log 15 "Listening Char Server"
expect_count char 1
operate click bStart 4
close_launcher
