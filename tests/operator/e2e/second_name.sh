#!/usr/bin/env bash
# A server root that has a second name, as by a junction or a substituted drive, is one root: a launcher that is started
# by the other name shows the first one's window and ends, and a command by that name reaches the first one.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/command.bash"
story_begin "$0" "$@"
ln -s "$ROOT" "$WINE_DIR/second"
start_launcher
second() {
  local ROOT=$WINE_DIR/second
  ask "$@"
}
second
expect_equal "$ANSWERED" 0 "exit code of the start by the second name ($COMPLAINED)"
expect_count login 0
second --start login
expect_equal "$ANSWERED" 0 "exit code of the command by the second name ($COMPLAINED)"
expect_log 10 "Login Server Started"
expect_count login 1
operate click bStart 4
close_launcher
