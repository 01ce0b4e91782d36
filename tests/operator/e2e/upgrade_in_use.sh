#!/usr/bin/env bash
# A server that runs without the launcher's knowledge keeps its file in use: the fault names both files
# and the reason, nothing is half a file, and the next launcher goes on from there.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/upgrade_verbs.bash"
story_begin "$0" "$@"
new_builds login char map
keep_old
start_launcher
type_paths
cd "$ROOT"
wine_spawn "$(wine_path "$ROOT/char-server.exe")"
cd "$E2E_REPOSITORY"
expect_count char 1
operate click UpdateNow
box=$(operate answer ok --wait 30) || fail "no fault"
expect_contains() { [[ $box == *"$1"* ]] || fail "the fault says '$box', not '$1'"; }
expect_contains "Run-time error '70'"
expect_contains "Permission denied"
expect_contains "Copying $(new_path char) to $(wine_path "$ROOT/char-server.exe")"
operate wait-gone 30
launcher_wait && fail "the launcher ended with code 0"
expect_same "$ROOT/login-server.exe" "$NEWS/login-server.exe" "the root's login"
expect_same "$ROOT/char-server.exe" "$WINE_DIR/old/char-server.exe" "the root's char"
expect_same "$ROOT/map-server.exe" "$WINE_DIR/old/map-server.exe" "the root's map"
expect_old_in_backup
expect_nothing_beside
if settings_read "$ROOT" LDATE; then fail "a date was remembered"; fi

# A backup folder that is a file is told in the same way.
server crash char
expect_count char 0
rm -rf "$ROOT/LBackup"
touch "$ROOT/LBackup"
start_launcher
type_paths
operate click UpdateNow
box=$(operate answer ok --wait 30) || fail "no fault"
expect_contains "Run-time error '75'"
expect_contains "Creating the folder $(wine_path "$ROOT/LBackup")"
operate wait-gone 30
launcher_wait && fail "the launcher ended with code 0"
rm "$ROOT/LBackup"
start_launcher
type_paths
operate click UpdateNow
expect_box "Upgrade was succesfull!" ok
expect_new_in_root
close_launcher
