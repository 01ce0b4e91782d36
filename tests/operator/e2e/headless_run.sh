#!/usr/bin/env bash
# Without anybody at the screen the log is printed as it grows, and in the end all is stopped in good order.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
choose_demo_settings "$ROOT"
printed=$WINE_DIR/printed
run_headless "$ROOT" 20 >"$printed" &
run=$!
printed_so_far() { grep -qF "Map Server Started" "$printed"; }
await 15 printed_so_far || fail "nothing printed while it runs: $(cat "$printed")"
kill -0 "$run" || fail "it has ended already"
wait "$run" || fail "exit code $?"
for line in "Launcher Ready!" "Login Server Started!" "Listening Login Server" "Listening Char Server" \
  "Listening Map Server"; do
  expect_equal "$(grep -cF -- "$line" "$printed")" 1 "times '$line' is printed"
done
for name in login char map; do expect_count "$name" 0; done
