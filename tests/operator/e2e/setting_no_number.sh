#!/usr/bin/env bash
# A setting that is no number where one belongs ends the start with a box that names the value.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
settings_write "$ROOT" CharPri=high
launcher_start "$ROOT"
shown=$(operate answer ok --wait 20) || fail "no box"
[[ $shown == *13* && $shown == *"Type mismatch"* && $shown == *CharPri* ]] || fail "'$shown'"
code=0
launcher_wait || code=$?
[[ $code -ne 0 ]] || fail "exit code 0"
settings_write "$ROOT" CharPri=7
launcher_start "$ROOT"
shown=$(operate answer ok --wait 20) || fail "no box"
[[ $shown == *380* && $shown == *CharPri* ]] || fail "'$shown'"
launcher_wait || true
settings_write "$ROOT" CharPri=2 LoginChkInterval=often
start_launcher
expect_log 5 "Login Check Interval: 1 seconds."
close_launcher
