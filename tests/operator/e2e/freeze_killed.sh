#!/usr/bin/env bash
# A server that lives but has closed its port: warning, kill after its seconds, restart.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/silent.bash"
story_begin "$0" "$@"
settings_write "$ROOT" LoginChkInterval=1000 LoginTimeout=5 LoginAutoKillEnabled=1
start_launcher
expect_log 5 "Login Check Interval: 1 seconds."
operate click bStart 0
expect_log 10 "Listening Login Server"
login=$(server_pid login)
server close-port login
expect_log 10 "Login server freeze!... waiting..."
expect_light 5 0 0x0000FF
expect_tip "Login: trouble|127.0.0.1:${PORTS[0]}: refused" 0
expect_log 15 "Shuting down Login..."
expect_log 10 "Login Server crashed, restarting..."
expect_count login 1
[[ $(server_pid login) != "$login" ]] || fail "the same process"
expect_equal "$(count_log "freeze!")" "1" "warnings"
listens_again() { [[ $(count_log "Listening Login Server") == 2 ]]; }
await 15 listens_again || fail "not watched again"
expect_light 5 0 0x00C000
operate click bStart 4
close_launcher
