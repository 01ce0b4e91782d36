#!/usr/bin/env bash
# The launcher does not close while a server runs, and a refused close leaves every part of it as it was, also when
# all its windows are asked: once its tray icon was gone after that, and its lists were empty.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/mouse.bash"
story_begin "$0" "$@"
start_launcher
operate click bStart 0
expect_log 10 "Login Server Started!"
operate close
expect_box "Please, stop servers before close this application" ok
expect_state window "" "visible=1"
expect_count login 1
wine_run taskkill /IM tarvo-launcher.exe >/dev/null
expect_box "Please, stop servers before close this application" ok
tray_icon
operate select Prior 0 V-High
expect_equal "$(operate tooltip WLog | tr -d '\r')" "Save status in log file?" "the tool tip"
operate minimize
expect_hidden
tray_click 1 2
expect_shown
operate click bStart 0
expect_log 10 "Login Server Stopped!"
close_launcher
expect_equal "$(settings_read "$ROOT" LoginExe)" "login-server.exe" "LoginExe"
