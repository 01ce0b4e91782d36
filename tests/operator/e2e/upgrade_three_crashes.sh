#!/usr/bin/env bash
# Three servers that crash at once with the trigger set are one upgrade, and nobody is left down.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/upgrade_verbs.bash"
story_begin "$0" "$@"
new_builds login char map
keep_old
start_launcher
type_paths
operate click optMode 2
operate click bStart 3
expect_log 20 "Listening Map Server"
server crash login
server crash char
server crash map
expect_log 15 "Upgrade complete!"
for name in login char map; do expect_count "$name" 1; done
expect_new_in_root
expect_old_in_backup
listening() { [[ $(count_log "Listening Map Server") == 2 ]]; }
await 30 listening || fail "the map server is not listened to again"
expect_equal "$(count_log "Upgrade complete!")" "1" "upgrades"
for name in login char map; do expect_count "$name" 1; done
expect_nothing_beside
operate click bStart 4
close_launcher
