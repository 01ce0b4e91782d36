#!/usr/bin/env bash
# Scripts that hang, and take all the time that they can get, delay no restart; each is ended with its
# children after its minute.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/events.bash"
story_begin "$0" "$@"
settings_write "$ROOT" RunOnEvent=1
put_script '@echo off' '>>"told\%TARVO_EVENT%-%TARVO_COMPONENT%.txt" echo "%TARVO_TEXT%"' \
  'ping -n 600 127.0.0.1 >nul' '>told\after.txt echo after'
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
pings() { wine_run tasklist 2>/dev/null | grep -ci '^ping' || true; }
[[ $(pings) -gt 0 ]] || fail "no script hangs"
operate click bStart 4
no_ping() { [[ $(pings) == 0 ]]; }
# The last ones to run are those that waited: two rounds of a minute.
await 200 no_ping || fail "$(pings) scripts still hang"
[[ ! -e $ROOT/told/after.txt ]] || fail "a script outlived its end"
close_launcher
