#!/usr/bin/env bash
# A calendar entry that falls due randomizes once and restarts the running servers.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/randomizer_verbs.bash"
story_begin "$0" "$@"
put_ranges '<base_exp_rate Min="555" Max="555"/>'
start_launcher
operate click opt_Rnd 2
operate click bStart 0
expect_log 20 "Login Server Started!"
login=$(server_pid login)

# An entry for the next minute that is far enough off to be put in first.
due=$(LC_ALL=C date -d "@$(($(date +%s) + 75))" '+%a %H %M')
read -r day hour minute <<<"$due"
operate select lstDay "$day"
operate scroll ScrollTime 0 "$((10#$hour))"
operate scroll ScrollTime 1 "$((10#$minute))"
expect_equal "$(text txt_Time 0):$(text txt_Time 1)" "$hour:$minute" "the time"
operate select cmbRstrt Yes
operate click cmdCalendar 0
operate click cmdCalendar 0 # A second press adds nothing.
expect_equal "$(items lstDTRands)" "$day $hour:$minute restart=Y" "the calendar"
expect_bytes rndcalendar.xml "$(xml Calendar "<${day}_$hour:$minute Restart=\"Yes\"/>")"
cp "$(server_file)" "$WINE_DIR/before.conf"
expect_no_log "Starting Randomizer"

expect_log 150 "Randomize: Restarting Server"
expect_log 20 "Login Server Stopped!"
sed $'s/^base_exp_rate:.*/base_exp_rate: 555\r/' "$WINE_DIR/before.conf" >"$WINE_DIR/wanted.conf"
cmp "$(server_file)" "$WINE_DIR/wanted.conf" || fail "the file after the calendar's run"
expect_count login 1
[[ $(server_pid login) != "$login" ]] || fail "the login server was not restarted"
[[ $(settings_read "$ROOT" LastRandProcess) == ????-??-??\ "$hour:$minute":?? ]] ||
  fail "LastRandProcess is '$(settings_read "$ROOT" LastRandProcess)'"
sleep 32 # Two more ticks, at least one of them in the same minute.
expect_equal "$(count_log 'Starting Randomizer')" 1 "runs in the minute"

operate select lstDTRands "#0"
operate click cmdCalendar 1
expect_bytes rndcalendar.xml $'<Calendar/>\r\n'
operate click bStart 4
close_launcher
