#!/usr/bin/env bash
# Outside a server root, and with a file missing, the launcher says so and ends; nothing is saved.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
refused() {
  launcher_start "$ROOT"
  expect_box "$1" ok
  local code=0
  launcher_wait || code=$?
  [[ $code -ne 0 ]] || fail "exit code 0"
  if settings_read "$ROOT" LoginExe; then fail "settings were saved"; fi
}
mv "$ROOT/conf/map_athena.conf" "$ROOT/conf/kept"
refused "map_athena.conf file can't be loaded"
mv "$ROOT/conf/char_athena.conf" "$ROOT/conf/kept-too"
refused "char_athena.conf file can't be loaded"
rm "$ROOT/conf/login_athena.conf"
refused "Please, copy and start this application inside your eAthena / Freya Server Root!"

# Letters that the code page does not have: the cause stands in the same box.
cyrillic=$WINE_DIR/сервер
"$E2E_REPOSITORY/scripts/make-demo-root.sh" "$cyrillic"
launcher_start "$cyrillic"
LAUNCHER_ROOT=
shown=$(wine_run "$WINDOWS_BUILD/operator.exe" answer ok --wait 20) || fail "no message box"
[[ $shown == *"inside your eAthena / Freya Server Root!"* ]] || fail "the box says '$shown'"
[[ $shown == *"letters that the system's code page does not have."* ]] || fail "the box says '$shown'"
if launcher_wait; then fail "exit code 0"; fi
