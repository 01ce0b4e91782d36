#!/usr/bin/env bash
# On every page, at every scale and with a large font, nothing overlaps, nothing is cut, every control has
# a name and no two share an access key.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/look.bash"
export WINE_SCREEN=2560x1600
story_begin "$0" "$@"

expect_layout() {
  local faults
  start_launcher
  faults=$(operate layout) || fail "$1: $faults"
}

for scale in 100 125 150 200 300; do
  look_at_scale $scale
  expect_layout "at $scale %"
done
look_with large-font.reg
for scale in 100 200; do
  look_at_scale $scale
  expect_layout "with a large font at $scale %"
done
