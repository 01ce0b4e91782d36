#!/usr/bin/env bash
# A conf file without CR LF is one line: a key at its very start takes the rest of the file for its value. The
# launcher starts with megabytes of it all the same; the log shows the line's beginning until newer lines push it out.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
{ printf 'map_ip:127.0.0.1\n'; head -c 4000000 /dev/zero | tr '\0' 'x' | fold -w 99; } >"$ROOT/conf/map_athena.conf"
launcher_start "$ROOT"
operate wait-window 20 || fail "no window"
expect_log 20 "Launcher Ready!"
operate text RTLog | grep -q '^20.*: Map Server: 127\.0\.0\.1 xxx.*xxx\.\.\.' || fail "no beginning of the long line"
operate text RTLog | awk '{ if (length($0) > 1100) exit 1 }' || fail "a line is longer than can be shown"
operate click bStart 0
expect_log 20 "Login Server Started!"
expect_no_log "xxx"
operate click bStart 0
expect_log 20 "Login Server Stopped!"
operate close
operate wait-gone 30 || fail "the launcher did not close"
launcher_wait || fail "the launcher ended with code $?"
