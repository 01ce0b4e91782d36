#!/usr/bin/env bash
# In the mode "Map Start" a start of the map server randomizes; a second one in the same hour does not.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/randomizer_verbs.bash"
story_begin "$0" "$@"
# Both starts, and the next launcher's, belong into one hour.
until (($(date +%-M) < 58)); do sleep 1; done
put_ranges '<base_exp_rate Min="555" Max="555"/>'
settings_write "$ROOT" AutoRandomize=0 MaxRndDay=1 MaxRndHour=1
start_launcher
cp "$(server_file)" "$WINE_DIR/before.conf"
operate click bStart 0
expect_log 20 "Login Server Started!"
expect_no_log "Starting Randomizer"
operate click bStart 2
expect_log 20 "Map Server Started"
expect_equal "$(text RTLog | grep -c 'Randomize was succesfull, 1 change(s)')" 1 "runs at the first start"
sed $'s/^base_exp_rate:.*/base_exp_rate: 555\r/' "$WINE_DIR/before.conf" >"$WINE_DIR/wanted.conf"
cmp "$(server_file)" "$WINE_DIR/wanted.conf" || fail "the file after the first start"
expect_equal "$(settings_read "$ROOT" HourRndCnt) $(settings_read "$ROOT" DayRndCnt)" "1 1" "the counters"

cp "$WINE_DIR/before.conf" "$(server_file)"
operate click bStart 2
expect_log 20 "Map Server Stopped!"
operate click bStart 2
expect_log 20 "Map Server Started"
expect_equal "$(count_log 'Map Server Started')" 2 "map starts"
expect_equal "$(count_log 'Starting Randomizer')" 1 "runs after the second start"
cmp "$(server_file)" "$WINE_DIR/before.conf" || fail "the second start changed the file"

# The next launcher remembers.
operate click bStart 4
close_launcher
start_launcher
operate click bStart 2
expect_log 20 "Map Server Started"
expect_no_log "Starting Randomizer"
operate click bStart 4
close_launcher
