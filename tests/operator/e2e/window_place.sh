#!/usr/bin/env bash
# The window comes back where it stood, unless no screen is there any more.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/mouse.bash"
story_begin "$0" "$@"
window() { xdotool search --onlyvisible --name '^\[Aurora\] - Tarvo Launcher$' | head -1; }
geometry() { xdotool getwindowgeometry --shell "$(window)" | grep -E '^(X|Y|WIDTH|HEIGHT)=' | tr '\n' ' '; }
start_launcher
close_launcher
if settings_read "$ROOT" WindowPlace; then fail "a place was saved, though nobody moved the window"; fi

start_launcher
xdotool windowsize "$(window)" 900 600
sleep 0.5
xdotool windowmove "$(window)" 250 180
sleep 1
before=$(geometry)
close_launcher
place=$(settings_read "$ROOT" WindowPlace) || fail "no place was saved"
[[ $place =~ ^2[0-9]+,1[0-9]+,9[0-9]+,6[0-9]+$ ]] || fail "saved: $place"

start_launcher
sleep 1
expect_equal "$(geometry)" "$before" "place"
close_launcher

for nowhere in 9000,9000,900,600 -5000,100,900,600 nonsense; do
  settings_write "$ROOT" "WindowPlace=$nowhere"
  start_launcher
  sleep 0.5
  eval "$(xdotool getwindowgeometry --shell "$(window)" | grep -E '^(X|Y)=')"
  ((X >= 0 && X < 1200 && Y >= 0 && Y < 950)) || fail "$nowhere: it stands at $X,$Y"
  close_launcher
done
