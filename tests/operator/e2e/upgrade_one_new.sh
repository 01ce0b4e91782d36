#!/usr/bin/env bash
# Only the map server's file is new: refused with "Only full upgrades", a warning without; then all
# three are replaced all the same.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/upgrade_verbs.bash"
story_begin "$0" "$@"
new_builds login char map
start_launcher
type_paths
operate uncheck chk_Opts 0
operate click UpdateNow
expect_box "Upgrade was succesfull!" ok
expect_no_backup
expect_new_in_root
keep_old
new_builds map
operate check chk_Opts 0
operate check chk_Opts 1
operate click UpdateNow
expect_box "Some components don't have changes, upgrade stopped!" ok
expect_log 5 "Error, some server component have not changes! - Upgrade stopped"
expect_old_in_root
expect_no_backup
expect_equal "$(settings_read "$ROOT" MDATE)" "2026-01-11 12:34:56" "MDATE"

operate uncheck chk_Opts 1
# Other bytes, the same date: not new, and yet copied with the rest.
printf 'more' >>"$NEWS/char-server.exe"
touch -d "2026-01-11 12:34:56 UTC" "$NEWS/char-server.exe"
operate click UpdateNow
expect_box "Upgrade was succesfull!" ok
expect_log 5 "Warning, some server component have not changes!"
expect_new_in_root
expect_old_in_backup
expect_equal "$(settings_read "$ROOT" LDATE)" "2026-01-11 12:34:56" "LDATE"
expect_equal "$(settings_read "$ROOT" CDATE)" "2026-01-11 12:34:56" "CDATE"
expect_equal "$(settings_read "$ROOT" MDATE)" "2026-01-12 12:34:56" "MDATE"
expect_nothing_beside
close_launcher
