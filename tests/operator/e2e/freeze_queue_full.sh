#!/usr/bin/env bash
# The other kind of freeze: the server lives, nobody accepts, its queue is full. The connect of a probe that
# nobody answers ends after a second, so the kill comes within the server's seconds and five more, and the
# successor within another five; the light's tool tip says what is wrong.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/silent.bash"
story_begin "$0" "$@"
settings_write "$ROOT" LoginChkInterval=1000 LoginTimeout=5 LoginAutoKillEnabled=1
start_launcher
operate click bStart 0
expect_log 10 "Listening Login Server"
expect_light 5 0 0x00C000
expect_tip "Login: healthy" 0
server hang login
expect_log 10 "Login server freeze!... waiting..."
expect_light 5 0 0x0000FF
expect_tip "Login: trouble|127.0.0.1:${PORTS[0]}: no answer in 1 s" 0
expect_log 15 "Shuting down Login..."
expect_log 10 "Login Server crashed, restarting..."
within 10 "Login server freeze!" "Shuting down Login..."
within 5 "Shuting down Login..." "Login Server Started!"
expect_count login 1
listens_again() { [[ $(count_log "Listening Login Server") == 2 ]]; }
await 15 listens_again || fail "not watched again"
expect_light 5 0 0x00C000
expect_tip "Login: healthy" 0
operate click bStart 4
close_launcher
