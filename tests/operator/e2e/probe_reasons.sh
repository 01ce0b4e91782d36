#!/usr/bin/env bash
# Why a probe failed stands in the light's tool tip: a port that is closed, a host that drops packets, a name
# that nobody knows. It is gone when the server listens again.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/silent.bash"
story_begin "$0" "$@"
silence_hosts || fail "wants a network of its own"
conf_host char_athena.conf char_ip "${SILENT_HOSTS[0]}"
conf_host map_athena.conf map_ip "no-such-host.invalid"
settings_write "$ROOT" LoginChkInterval=1000 LoginTimeout=300 CharTimeout=300 MapTimeout=300 \
  LoginAutoKillEnabled=1 CharAutoKillEnabled=1 MapAutoKillEnabled=1
start_launcher
operate click bStart 3
expect_log 15 "Listening Login Server"
expect_tip "Login: healthy" 0
expect_log 30 "Map server is freeze!... waiting..."
server close-port login
expect_log 10 "Login server freeze!... waiting..."
expect_tip "Login: trouble|127.0.0.1:${PORTS[0]}: refused" 0
# The grace of a start ends with a green light, answered or not; the tool tip tells.
[[ $(tip 1) == *"|${SILENT_HOSTS[0]}:${PORTS[1]}: no answer in 1 s" ]] || fail "char: $(tip 1)"
[[ $(tip 2) == *"|no-such-host.invalid:${PORTS[2]}: the name is unknown" ]] || fail "map: $(tip 2)"
server answer login
expect_log 10 "Login server is back!"
expect_tip "Login: healthy" 0
operate click bStart 1
expect_tip "Char: not watched" 1
operate click bStart 4
close_launcher
