#!/usr/bin/env bash
# The log can be copied, searched from wherever the focus is, and opens the day's file.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/mouse.bash"
story_begin "$0" "$@"
window() { xdotool search --onlyvisible --name '^\[Aurora\] - Tarvo Launcher$' | head -1; }
# Into the log, near its upper left corner.
log_click() {
  xdotool mousemove --window "$(window)" 80 130
  sleep 0.3
  xdotool click "$1"
  sleep 0.5
}
clipboard() { operate clipboard | tr -d '\r'; }
start_launcher
operate page 1
xdotool windowfocus "$(window)"
sleep 0.5

log_click 1
xdotool key ctrl+a ctrl+c
sleep 0.5
[[ $(clipboard) == *"Tarvo Launcher v."*"Launcher Ready!"* ]] || fail "copied: $(clipboard)"

xdotool key ctrl+Home ctrl+f
await 5 window_seen "Find" || fail "no search dialog"
xdotool type "ready"
xdotool key Return
sleep 0.5
xdotool key Escape
await 5 window_unseen "Find" || fail "the search dialog stayed"
xdotool windowfocus "$(window)"
sleep 0.5
xdotool key ctrl+c
sleep 0.5
expect_equal "$(clipboard)" "Ready" "found and copied"

log_click 3
xdotool key o
expect_box "There is no log file of today yet." ok
close_launcher
