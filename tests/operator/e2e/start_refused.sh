#!/usr/bin/env bash
# Each refusal of the start button, and what it does not start.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
settings_write "$ROOT" MapExe=no-such-server
start_launcher
operate click bStart 0
expect_box "Please, select the right servers from the list" ok
operate select Exes 2 login-server.exe
operate click bStart 1
expect_box "Please, select the right servers from the list!" ok
operate select Exes 2 map-server.exe
operate check chkAK 0
operate set TTO 0 4
operate click bStart 1
expect_box "The min autokill time is 5 second, please check." ok
for name in login char map; do expect_count "$name" 0; done
operate uncheck chkAK 0
operate click bStart 1
expect_log 10 "Char Server Started"
operate click bStart 4
expect_log 10 "Char Server Stopped!"
close_launcher
