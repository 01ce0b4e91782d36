#!/usr/bin/env bash
# Scripts that hang, and take all the time that they can get while servers crash, delay no restart; each is ended with
# its children after its minute.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/events.bash"
story_begin "$0" "$@"
settings_write "$ROOT" RunOnEvent=1
put_script '@echo off' '>>"told\%TARVO_EVENT%-%TARVO_COMPONENT%.txt" echo "%TARVO_TEXT%"' \
  ':busy' 'if "%TARVO_EVENT%"=="crashed" if exist busy.txt goto busy' \
  'hung-server.exe wait-text RTLog "no such line" 600' '>told\after.txt echo after'
# A program that waits for what never comes, by a name that can be counted.
cp "$WINDOWS_BUILD/operator.exe" "$ROOT/hung-server.exe"
touch "$ROOT/busy.txt"
start_launcher
operate click bStart 3
expect_log 15 "Listening Map Server"
expect_told started-map 'Map Server Started'
for round in 1 2 3; do
  map=$(server_pid map)
  server crash map
  # The crash watch looks every 5 seconds, hanging scripts or not.
  restarted() { [[ $(count_log "Map Server Started") == $((round + 1)) ]]; }
  await 8 restarted || fail "crash $round: not restarted in time"
  expect_count map 1
  [[ $(server_pid map) != "$map" ]] || fail "the same process"
done
expect_told crashed-map 'Map Server crashed, restarting...'
# Those of the three starts; that of the crash does nothing but take time, which is enough of it.
expect_count hung 3
rm "$ROOT/busy.txt"
expect_count hung 4
operate click bStart 4
# Those that waited for a place run last: two rounds of a minute.
none_hangs() { has_count hung 0; }
await 200 none_hangs || fail "$(server_count hung) scripts still hang"
[[ ! -e $ROOT/told/after.txt ]] || fail "a script outlived its end"
close_launcher
