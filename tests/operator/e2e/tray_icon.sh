#!/usr/bin/env bash
# Minimizing hides the window, and the icon brings it back: a double click, or Show in its menu. A
# single click does nothing. The icon goes with the launcher.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/mouse.bash"
story_begin "$0" "$@"
start_launcher
tray_icon

operate minimize
expect_hidden
tray_click 1
sleep 1
launcher_hidden || fail "a single click showed the window"
tray_click 1 2
expect_shown

# A window that was maximized comes back in its normal state.
area() { xdotool getwindowgeometry "$(xdotool search --onlyvisible --name ' - Tarvo Launcher$')" | tail -1; }
normal=$(area)
operate maximize
await 5 eval '[[ $(area) != "$normal" ]]' || fail "not maximized: $(area)"
operate minimize
expect_hidden
tray_click 1 2
expect_shown
await 5 eval '[[ $(area) == "$normal" ]]' || fail "back as $(area), not as $normal"

operate minimize
expect_hidden
tray_click 3
sleep 1
launcher_hidden || fail "the menu alone showed the window"
# The menu stands at the cursor, its one entry right below.
xdotool mousemove_relative 14 10
sleep 0.3
xdotool click 1
expect_shown

close_launcher
await 5 tray_gone || fail "the icon is still there"
