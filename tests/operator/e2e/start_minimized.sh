#!/usr/bin/env bash
# "Start Minimized" starts the launcher hidden; it works all the same. A second launcher shows it, and from then on it
# is minimized like any other.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
choose_demo_settings "$ROOT"
settings_write "$ROOT" StartMinimized=1
launcher_start "$ROOT"
expect_log 30 "Launcher Ready!"
[[ $(state window) == *"visible=0"* ]] || fail "the window is visible"
expect_log 10 "Map Server Started"
launcher_first=$LAUNCHER_PROCESS
launcher_start "$ROOT"
launcher_wait || fail "the second launcher ended with $?"
LAUNCHER_PROCESS=$launcher_first
shown() { [[ $(state window) == *"visible=1"* ]]; }
await 10 shown || fail "the second launcher did not show the first one"
operate minimize
hidden() { [[ $(state window) == *"visible=0"* ]]; }
await 5 hidden || fail "not hidden when minimized: $(state window)"
operate restore
operate click bStart 4
expect_log 10 "Map Server Stopped!"
close_launcher
