#!/usr/bin/env bash
# A press on a "Show" option hides that server's own window, the next one shows it, and no other's.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/mouse.bash"
story_begin "$0" "$@"
choose_demo_settings "$ROOT"
start_launcher
expect_log 20 "Listening Map Server"
names=(login char map)
for i in 0 1 2; do
  title="${names[$i]} server"
  window_unseen "$title" || fail "$title is to be seen from the start"
  operate click opt_ShowWin "$i" # The first press hides, also what is hidden.
  sleep 0.5
  window_unseen "$title" || fail "$title was shown by the first press"
  operate click opt_ShowWin "$i"
  await 5 window_seen "$title" || fail "$title was not shown by the second press"
  operate click opt_ShowWin "$i"
  await 5 window_unseen "$title" || fail "$title was not hidden by the third press"
done
operate click opt_ShowWin 1
await 5 window_seen "char server" || fail "char server is not shown"
window_unseen "login server" && window_unseen "map server" || fail "another window was shown"

# Each press of a double click counts, but on a button that starts and stops: there the second one
# would take back what the first did.
operate page 2
press opt_ShowWin 1
await 5 window_unseen "char server" || fail "char server was not hidden by the mouse"
press opt_ShowWin 1 2
press opt_ShowWin 1
await 5 window_seen "char server" || fail "a double click is not two presses on an option"
checked=$(state chkAutoStart 0)
press chkAutoStart 0 2
expect_equal "$(state chkAutoStart 0)" "$checked" "the box after a double click"
press chkAutoStart 0
[[ $(state chkAutoStart 0) != "$checked" ]] || fail "the box does not take a press of the mouse"
operate page 1
press bStart 0 2
expect_log 10 "Login Server Stopped!"
sleep 1
expect_count login 0
operate click bStart 4
close_launcher
