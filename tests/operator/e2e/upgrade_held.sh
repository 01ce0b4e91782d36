#!/usr/bin/env bash
# A target that is held for a second when its copy begins is waited for: the upgrade goes through.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/upgrade_verbs.bash"
story_begin "$0" "$@"
new_builds login char map
keep_old
start_launcher
type_paths
cd "$ROOT"
wine_spawn "$(wine_path "$ROOT/map-server.exe")"
cd "$E2E_REPOSITORY"
expect_count map 1
begun=$(date +%s%N)
operate click UpdateNow &
button=$!
sleep 1
server crash map
expect_box "Upgrade was succesfull!" ok
took=$((($(date +%s%N) - begun) / 1000000))
wait "$button"
((took >= 1000)) || fail "done after $took ms, while the file was in use"
expect_new_in_root
expect_old_in_backup
expect_nothing_beside
expect_log 5 "Upgrade complete!"
close_launcher
