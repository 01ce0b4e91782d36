#!/usr/bin/env bash
# The trigger: "Map crash" upgrades when the map server crashes and at no other crash, "Any crash" at
# each; with "Set to "Manual" after Upgrade" the next crash is a plain restart again.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/upgrade_verbs.bash"
story_begin "$0" "$@"
new_builds login char map
keep_old
start_launcher
type_paths
operate click optMode 1
expect_equal "$(settings_read "$ROOT" UpdateMode)" "1" "UpdateMode"
operate click bStart 3
expect_log 20 "Listening Map Server"
server crash login
expect_log 10 "Login Server crashed, restarting..."
expect_count login 1
expect_no_log "Upgrade in progress..."
expect_old_in_root

server crash map
expect_log 15 "Upgrade complete!"
expect_log 10 "Starting Map Server..."
for name in login char map; do expect_count "$name" 1; done
expect_new_in_root
expect_old_in_backup
expect_equal "$(count_log "Map Server crashed")" "1" "crashes of the map server"
if operate box; then fail "an upgrade on a crash shows no box"; fi

operate click optMode 2
operate check chk_Opts 2
new_builds login char map
server crash char
upgrades() { [[ $(count_log "Upgrade complete!") == "$1" ]]; }
await 15 upgrades 2 || fail "no upgrade on the char server's crash"
for name in login char map; do expect_count "$name" 1; done
expect_new_in_root
expect_state optMode 0 "checked=1"
expect_equal "$(settings_read "$ROOT" UpdateMode)" "0" "UpdateMode"

keep_old
new_builds login char map
server crash map
restarted() { [[ $(count_log "Map Server crashed") == 2 ]]; }
await 10 restarted || fail "the map server's second crash went unnoticed"
expect_count map 1
upgrades 2 || fail "an upgrade in spite of Manual"
expect_old_in_root
expect_nothing_beside
operate click bStart 4
close_launcher
