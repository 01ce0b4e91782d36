#!/usr/bin/env bash
# A second launcher in the same root shows the first one's window and ends; servers are started once.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
choose_demo_settings "$ROOT"
start_launcher
expect_log 10 "Map Server Started"
operate minimize
hidden() { [[ $(state window) == *"visible=0"* ]]; }
await 5 hidden || fail "not hidden when minimized: $(state window)"
first=$LAUNCHER_PROCESS
launcher_start "$ROOT"
launcher_wait || fail "the second launcher ended with $?"
shown() { [[ $(state window) == *"visible=1"* && $(state window) == *"minimized=0"* ]]; }
await 10 shown || fail "the first window did not come back: $(state window)"
LAUNCHER_PROCESS=$first
for name in login char map; do expect_count "$name" 1; done
operate click bStart 4
expect_log 10 "Map Server Stopped!"
close_launcher
