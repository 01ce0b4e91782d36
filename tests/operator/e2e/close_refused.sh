#!/usr/bin/env bash
# The launcher does not close while a server runs.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
start_launcher
operate click bStart 0
expect_log 10 "Login Server Started!"
operate close
expect_box "Please, stop servers before close this application" ok
expect_state window "" "visible=1"
expect_count login 1
operate click bStart 0
expect_log 10 "Login Server Stopped!"
close_launcher
expect_equal "$(settings_read "$ROOT" LoginExe)" "login-server.exe" "LoginExe"
