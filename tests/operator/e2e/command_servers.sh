#!/usr/bin/env bash
# Another program starts, awaits, restarts and stops the servers by the command line, and reads the launcher's
# state in its three forms.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/command.bash"
story_begin "$0" "$@"
settings_write "$ROOT" LoginAutoKillEnabled=1 CharAutoKillEnabled=1 MapAutoKillEnabled=1
start_launcher
expect_answer 0 "" "" --start login
expect_log 5 "Login Server Started! [Low Priority]"
expect_count login 1
expect_answer 0 "" "" --wait listening login 30
expect_answer 4 "" "The time is over." --wait listening all 1
expect_answer 0 "" "" --start all
expect_log 5 "Map Server Started [High Priority]"
expect_equal "$(count_log "Login Server Started!")" 1 "starts of login"
expect_answer 0 "" "" --wait listening all 60

expect_equal "$(json 'state["components"]["map"]["state"]')" listening "the map server's state"
expect_equal "$(json 'state["components"]["map"]["port"]')" "${PORTS[2]}" "the map server's port"
expect_equal "$(json 'state["components"]["map"]["process_id"]')" "$(server_pid map)" "its process"
expect_equal "$(json 'state["components"]["map"]["memory_bytes"] > 500000')" True "its memory"
expect_equal "$(json 'state["root"]')" "$(wine_path "$ROOT")" "the root"
ask --state text
grep -qE '^Map: listening since [0-9: -]+, process [0-9]+, [0-9.,]+ MB, no restarts, at ' <<<"$SAID" ||
  fail "the state says: $SAID"
[[ $(operate tooltip Sem 2 | tr -d '\r') == *"listening since "* ]] || fail "$(operate tooltip Sem 2)"

before=$(server_pid map)
expect_answer 0 "" "" --restart map
expect_log 5 "Map Server Stopped!"
expect_count map 1
[[ $(server_pid map) != "$before" ]] || fail "the map server was not restarted"
server crash login
crashed() { [[ $(json 'state["components"]["login"]["restarts"]["crash"]') == 1 ]]; }
await 20 crashed || fail "no restart counted: $SAID"
expect_equal "$(json 'state["components"]["map"]["restarts"]["other"]')" 1 "restarts of map"
expect_equal "$(json 'state["components"]["login"]["last_failure"]["cause"]')" crash "the last failure"

expect_answer 0 "" "" --stop map
expect_log 5 "Map Server Stopped!"
expect_count map 0
expect_answer 0 "" "" --stop all
expect_answer 0 "" "" --wait stopped all 10
for name in login char map; do expect_count "$name" 0; done
expect_answer 0 "" "" --close
launcher_wait || fail "the launcher ended with $?"
expect_answer 3 "" "No launcher runs in this server root." --state
expect_answer 3 "" "No launcher runs in this server root." --wait stopped all 5
