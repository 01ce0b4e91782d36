#!/usr/bin/env bash
# "Start with Windows" writes the start-up entry, named after the server, and takes it away again. What
# the box shows comes back at the next start; the entry is changed by the click alone.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
RUN='HKLM\SOFTWARE\Microsoft\Windows\CurrentVersion\Run'
entry() { wine_run reg query "$RUN" /v Aurora 2>/dev/null | tr -d '\r' | sed -nE 's/^ +Aurora +REG_SZ +//p'; }
start_launcher
expect_equal "$(entry)" "" "entry before the click"
operate check Check2
expect_equal "$(entry)" "$(wine_path "$ROOT")\\tarvo-launcher.exe" "entry"
close_launcher
start_launcher
expect_state Check2 "" "checked=1"
operate uncheck Check2
expect_equal "$(entry)" "" "entry after the second click"
close_launcher
