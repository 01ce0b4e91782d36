#!/usr/bin/env bash
# A server that is a console program: its console stays hidden, and it is watched as any other.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
cp "$WINDOWS_BUILD/servers/console-server.exe" "$ROOT/map-console-server.exe"
settings_write "$ROOT" MapExe=map-console-server.exe
start_launcher
expect_equal "$(operate text Exes 2 | tr -d '\r')" "map-console-server.exe" "map chooser"
operate click bStart 2
expect_log 20 "Listening Map Server"
expect_count map-console 1
if xdotool search --onlyvisible --name 'map-console' >/dev/null 2>&1; then fail "a console is seen"; fi
server crash map-console
expect_log 10 "Map Server crashed, restarting..."
expect_count map-console 1
server fault map-console
twice() { [[ $(count_log "Map Server crashed, restarting...") == 2 ]]; }
await 10 twice || fail "the access violation went unnoticed"
expect_count map-console 1
operate click bStart 2
expect_count map-console 0
close_launcher
