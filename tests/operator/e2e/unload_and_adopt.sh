#!/usr/bin/env bash
# The launcher alone is unloaded; a new one takes the servers under control and notices their crash.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
start_launcher
operate click bStart 3
expect_log 15 "Listening Map Server"
pids="$(server_pid login) $(server_pid char) $(server_pid map)"
operate click Command1
expect_box "This option will stop the launcher without kill the server" no
expect_count map 1
operate click Command1
expect_box "press Start and the components will be under control again." yes
operate wait-gone 20 || fail "the launcher stayed"
launcher_wait || fail "exit code $?"

start_launcher
expect_log 10 "Attention!, server components found in memory."
expect_no_log "under control"
operate click bStart 3
expect_log 10 "[login-server.exe] was found in memory!"
expect_log 10 "Login Server under control! [Low Priority]"
expect_log 10 "Char Server under control [Norm Priority]"
expect_log 10 "Map Server under control [High Priority]"
expect_log 5 "Listening Map Server"
expect_equal "$(server_pid login) $(server_pid char) $(server_pid map)" "$pids" "processes"
server crash char
expect_log 10 "Char Server crashed, restarting..."
expect_count char 1
operate click bStart 4
close_launcher
