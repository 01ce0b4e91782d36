#!/usr/bin/env bash
# The rest of the operator's buttons by the command line: an upgrade of running servers, and a run of the randomizer.
# The state goes into a file byte for byte, in the form of a monitoring system too.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/command.bash"
source "$(dirname "$0")/upgrade_verbs.bash"
source "$(dirname "$0")/randomizer_verbs.bash"
story_begin "$0" "$@"
new_builds login char map
put_ranges '<base_exp_rate Min="300" Max="300"/>'
settings_write "$ROOT" AutoRandomize=1
start_launcher
expect_answer 0 "" "" --randomize
expect_log 5 "Starting Randomizer - Updating battle_athena.conf"
grep -q '^base_exp_rate: *300' "$(server_file)" || fail "$(cat "$(server_file)")"

expect_answer 0 "" "" --start all
expect_log 20 "Listening Map Server"
type_paths
expect_answer 0 "Upgrade was succesfull!" "" --upgrade
expect_log 5 "Upgrade complete!"
expect_new_in_root
for name in login char map; do expect_count "$name" 1; done
expect_answer 1 "" "FROM and TO components are the same version, upgrade stopped!" --upgrade
no_box || fail "a box came up: $(operate box)"
expect_equal "$(json 'state["components"]["map"]["restarts"]["other"]')" 1 "restarts of map"
expect_equal "$(json 'len(state["last_upgrade"])')" 19 "the last upgrade"

ask --state prometheus
grep -q $'\r' "$WINE_DIR/said" && fail "the exposition has CR"
/usr/bin/python3 "$E2E_REPOSITORY/scripts/check-exposition.py" "$WINE_DIR/said" || fail "$SAID"
grep -qx 'tarvo_component_restarts_total{component="map",cause="other"} 1' "$WINE_DIR/said" || fail "$SAID"

# Into a pipe the same bytes.
launcher=$(wine_path "$ROOT/tarvo-launcher.exe")
piped=$(wine_run "$launcher" --state prometheus | grep -c '^# TYPE ') || fail "nothing came through a pipe"
expect_equal "$piped" "$(grep -c '^# TYPE ' "$WINE_DIR/said")" "metrics through a pipe"
# A state that is not taken whole is a refusal, so that no script swaps half of one in.
wine_run "$launcher" --state json >/dev/full 2>"$WINE_DIR/complaint" && fail "a full disk is not told"
grep -q "The output cannot be written." "$WINE_DIR/complaint" || fail "$(cat "$WINE_DIR/complaint")"

expect_answer 0 "" "" --stop all
close_launcher
