#!/usr/bin/env bash
# Each refusal, by its box and its line; no file is touched.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/upgrade_verbs.bash"
story_begin "$0" "$@"
new_builds login char map
keep_old
start_launcher
refused() {
  operate click UpdateNow
  expect_box "$1" ok
  [[ -z ${2:-} ]] || expect_log 5 "$2"
  expect_old_in_root
  expect_no_backup
}
refused "Please, select the right new components (login, char, map)" \
  "Update Error: Please, select the right new components (login, char, map)"
type_paths
operate set nPath 2 "$(new_path char)"
refused "Error, please select the right components." \
  "Update Error: Please select the right components."
for index in 0 1 2; do
  type_paths
  operate set nPath $index "C:\\gone\\$index.exe"
  refused "File missing: C:\\gone\\$index.exe" "Update Error: File missing: C:\\gone\\$index.exe"
done
expect_no_log "Upgrade in progress..."

type_paths
operate click UpdateNow
expect_box "Upgrade was succesfull!" ok
expect_new_in_root
expect_old_in_backup
lines=$(count_log "Upgrade")
operate click UpdateNow
expect_box "FROM and TO components are the same version, upgrade stopped!" ok
expect_equal "$(count_log "Upgrade")" "$lines" "lines of an upgrade with nothing new"

# The same file in other letter case is another text, and so no refusal.
new_builds login
path=$(new_path login)
operate set nPath 1 "${path^^}"
operate uncheck chk_Opts 0
operate click UpdateNow
expect_box "Upgrade was succesfull!" ok
expect_same "$ROOT/char-server.exe" "$NEWS/login-server.exe" "the root's char"
expect_nothing_beside
close_launcher
