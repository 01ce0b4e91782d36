#!/usr/bin/env bash
# The operator's script hears of a start, an answer, a crash, a freeze and its end, a kill and a stop.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/events.bash"
story_begin "$0" "$@"
settings_write "$ROOT" MapChkInterval=1000 MapTimeout=30 MapAutoKillEnabled=1
put_script '@echo off' \
  '>"told\%TARVO_EVENT%-%TARVO_COMPONENT%.tmp" echo %TARVO_COUNT% [%TARVO_SERVER%] %TARVO_TIME% "%TARVO_TEXT%"' \
  'move /y "told\%TARVO_EVENT%-%TARVO_COMPONENT%.tmp" "told\%TARVO_EVENT%-%TARVO_COMPONENT%.txt" >nul'
start_launcher
operate click bStart 0
expect_log 10 "Login Server Started!"
operate check chkEvents
operate click bStart 2
expect_told started-map 'Map Server Started [High Priority]'
expect_told listening-map 'Listening Map Server'
grep -qE '^1 \[.+\] 20[0-9-]+ [0-9:]+ "' "$ROOT/told/started-map.txt" ||
  fail "the script was told: $(cat "$ROOT/told/started-map.txt")"
server close-port map
expect_told frozen-map 'Map server is freeze!... waiting...'
server answer map
expect_told back-map 'Map server is back!'
server crash map
expect_told crashed-map 'Map Server crashed, restarting...'
expect_count map 1
operate click bStart 2
expect_told stopped-map 'Map Server Stopped!'
[[ ! -e $ROOT/told/started-login.txt ]] || fail "told before it was switched on"

# Off again: the stop of the login server is not told. What is told next came after it.
operate uncheck chkEvents
operate click bStart 0
expect_log 10 "Login Server Stopped!"
operate check chkEvents
operate click bStart 1
expect_told started-char 'Char Server Started'
[[ ! -e $ROOT/told/stopped-login.txt ]] || fail "told while it was switched off"
operate click bStart 4
close_launcher
expect_told stopped-char 'Char Server Stopped!'
expect_equal "$(settings_read "$ROOT" RunOnEvent)" "1" "the setting"
