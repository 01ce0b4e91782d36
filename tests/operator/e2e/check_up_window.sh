#!/usr/bin/env bash
# The check-up: once by itself, when the window is there; in a window of its own; copied; repaired; closed by Esc.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/mouse.bash"
story_begin "$0" "$@"
caption_counts_two() { [[ $(state cmdCheckUp) == *'text="Check-up (2)..."'* ]]; }
no_errors() { [[ $(operate text lblCheck) =~ ^[0-9]+\ notes?\. ]]; }
check_up_unseen() { [[ $(state lstCheck) == *visible=0* ]]; }
conf=$ROOT/conf/map_athena.conf
sed -i 's/\r$//' "$conf"
cp "$conf" "$WINE_DIR/before.conf"
settings_write "$ROOT" LoginAutoKillEnabled=1 CharAutoKillEnabled=1 MapAutoKillEnabled=1
start_launcher
lines=$(operate text RTLog)
await 20 caption_counts_two || fail "the button says '$(state cmdCheckUp)'"
expect_equal "$(operate text RTLog)" "$lines" "the log after the check-up"
[[ $(operate items lstCheck 2>&1) == *"no lstCheck"* ]] || fail "a window came up by itself"

operate click cmdCheckUp
operate wait-text lblCheck "2 errors" 20 || fail "the window says '$(operate text lblCheck)'"
items=$(operate items lstCheck | tr -d '\r')
[[ $items == "error: conf-line-ends: conf\\map_athena.conf"* ]] || fail "the list says '$items'"
[[ $items == *"error: port: Map"* ]] || fail "the list says '$items'"
expect_state cmdRepair "" "enabled=1"
operate click cmdCopy
copied=$(operate clipboard | tr -d '\r')
expect_equal "$copied" "$items"$'\n'"$(operate text lblCheck | tr -d "\r")" "the clipboard"

# The ticks go on beside it.
operate click bStart 0
expect_log 20 "Listening Login Server"

operate click cmdRepair
expect_box "conf\\map_athena.conf" no
cmp "$conf" "$WINE_DIR/before.conf" || fail "No has changed the file"
operate click cmdRepair
expect_box "line ends of Windows" yes
await 20 no_errors || fail "after the repair: $(operate items lstCheck)"
[[ $(grep -c $'\r$' "$conf") == $(wc -l <"$conf") ]] || fail "not all lines end with CR LF"
cmp "$WINE_DIR/before.conf" <(tr -d '\r' <"$conf") || fail "more than the line ends was changed"
old=("$ROOT"/conf/map_athena.conf.*.old)
cmp "${old[0]}" "$WINE_DIR/before.conf" || fail "the old file was not kept"
expect_state cmdCheckUp "" 'text="Check-up..."'
expect_state cmdRepair "" "enabled=0"

operate click cmdCheckUp
xdotool key Escape
await 10 check_up_unseen || fail "Esc does not close the window"
operate click bStart 0
close_launcher
