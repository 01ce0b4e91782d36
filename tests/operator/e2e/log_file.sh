#!/usr/bin/env bash
# The log file of the day holds the lines of the chosen level, and the supervision goes on when it cannot
# be written.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
# All lines belong into one day's file.
until [[ $(date +%H%M) < 2358 ]]; do sleep 1; done
settings_write "$ROOT" WriteLog=1 WriteMode=0
start_launcher
expect_log 10 "Launcher Ready!"
file=$ROOT/$(date +%Y%m%d).log
expect_equal "$(tail -c 17 "$file" | tr '\r\n' '<>')" "Launcher Ready!<>" "the file's last line"
[[ $(tail -1 "$file") =~ ^20[0-9]{2}-[0-9]{2}-[0-9]{2}\ [0-9:]{8}:\ Launcher ]] || fail "no stamp"
operate select LogH 0 "Errors & Warn & Extra"
operate click bStart 0
expect_log 10 "Login Server Started!"
if grep -q Started "$file"; then fail "a green line in the file"; fi
operate select Prior 0 Norm
expect_log 5 "Login Server running with Norm priority."
grep -q "running with Norm priority\." "$file" || fail "an orange line is missing in the file"
operate select LogH 0 "Only Errors"
server crash login
expect_log 10 "Login Server crashed, restarting..."
if grep -q crashed "$file"; then fail "a red line in the file"; fi
operate uncheck WLog
operate select LogH 0 "Everything"
operate click bStart 0
expect_log 10 "Login Server Stopped!"
if grep -q Stopped "$file"; then fail "a line in the file though none is wanted"; fi
rm "$file"
mkdir "$file"
operate check WLog
operate click bStart 0
started_again() { [[ $(count_log "Login Server Started!") == 3 ]]; }
await 10 started_again || fail "a file that cannot be written stopped the launcher"
operate click bStart 0
close_launcher
