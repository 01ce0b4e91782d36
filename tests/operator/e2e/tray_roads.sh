#!/usr/bin/env bash
# However the launcher ends, its icon goes: unloaded alone, by a fault, at the end of the session. The
# end of the session saves the settings, though a server runs, and asks nothing.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/mouse.bash"
story_begin "$0" "$@"

start_launcher
tray_icon
operate click bStart 0
expect_log 10 "Login Server Started!"
operate click Command1
expect_box "This option will stop the launcher without kill the server" yes
operate wait-gone 20 || fail "not unloaded"
await 5 tray_gone || fail "unloaded alone, and the icon is still there"
expect_count login 1
launcher_wait || fail "it ended with $?"

start_launcher
tray_icon
operate check chkAK 0
operate set TTO 0 ""
operate click bStart 0
expect_box "Type mismatch" ok
operate wait-gone 20 || fail "a fault did not end it"
await 5 tray_gone || fail "ended by a fault, and the icon is still there"
launcher_wait && fail "a fault ended it with code 0"

start_launcher
tray_icon
operate click bStart 1
expect_log 10 "Char Server Started"
operate check chkAK 2
operate set TTO 2 123
wine_run wineboot --end-session
operate wait-gone 20 || fail "the end of the session did not end it"
await 10 tray_gone || fail "the session ended, and the icon is still there"
expect_equal "$(settings_read "$ROOT" MapTimeout)" "123" "MapTimeout"
