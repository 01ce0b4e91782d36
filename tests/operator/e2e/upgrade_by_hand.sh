#!/usr/bin/env bash
# An upgrade by hand with everything running: chosen in the dialog, dropped and typed; asked, done,
# and every server is back on the new build, the old one in LBackup.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/upgrade_verbs.bash"
story_begin "$0" "$@"
new_builds login char map
keep_old
start_launcher
expect_equal "$(operate text oPath 0 | tr -d '\r')" "$(wine_path "$ROOT/login-server.exe")" "TO"
expect_equal "$(operate text oPath 3 | tr -d '\r')" "n/a" "last upgrade"

operate click cmd_nBrowse 0
operate cancel-file
expect_equal "$(operate text nPath 0 | tr -d '\r')" "" "after Cancel"
operate click cmd_nBrowse 0
operate choose-file "$(new_path login)"
operate drop nPath 1 "C:\\Users\\char-server.exe.lnk"
expect_box "This is a shortcut." ok
operate drop nPath 1 "C:\\builds.zip"
expect_box "Please, drop an executable (*.exe)." ok
expect_equal "$(operate text nPath 1 | tr -d '\r')" "" "after two refused drops"
operate drop nPath 1 "$(new_path char)"
operate set nPath 2 "$(new_path map)"
expect_equal "$(operate text nPath 0 | tr -d '\r')" "$(new_path login)" "the chosen path"
expect_equal "$(operate text nPath 1 | tr -d '\r')" "$(new_path char)" "the dropped path"
expect_equal "$(settings_read "$ROOT" LoginFrom)" "$(new_path login)" "LoginFrom"
expect_equal "$(settings_read "$ROOT" CharFrom)" "$(new_path char)" "CharFrom"
if settings_read "$ROOT" MapFrom; then fail "a typed path was stored"; fi

operate click bStart 3
expect_log 20 "Listening Map Server"
before=$(server_pid map)
operate click UpdateNow
expect_box "The server components are running." no
expect_old_in_root
expect_no_backup
expect_equal "$(server_pid map)" "$before" "map's process after No"
operate click UpdateNow
expect_box "Stop all to Upgrade?" yes
expect_box "Upgrade was succesfull!" ok
for line in "Upgrade in progress..." "Stopping Login Server..." "Login Server Stopped!" \
  "Stopping Char Server..." "Stopping Map Server..." "Creating LBackup folder (first time)" \
  "_login-server.exe" "Upgrading Login Server..." "Upgrading Char Server..." \
  "Upgrading Map Server..." "Upgrade complete!" "Starting Login Server..." \
  "Starting Char Server..." "Starting Map Server..."; do
  expect_log 5 "$line"
done
for name in login char map; do expect_count "$name" 1; done
[[ $(server_pid map) != "$before" ]] || fail "the map server was not restarted"
expect_new_in_root
expect_old_in_backup
expect_nothing_beside
expect_equal "$(settings_read "$ROOT" LDATE)" "2026-01-11 12:34:56" "LDATE"
expect_equal "$(settings_read "$ROOT" MDATE)" "2026-01-11 12:34:56" "MDATE"
expect_equal "$(operate text oPath 3 | tr -d '\r')" "$(settings_read "$ROOT" LASTUPDATE)" "last upgrade"
await 20 has_light 2 0x00C000 || fail "the map server's light is not green again"
expect_no_log "crashed"
operate click bStart 4
close_launcher
