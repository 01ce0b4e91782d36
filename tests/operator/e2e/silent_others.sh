#!/usr/bin/env bash
# Two hosts drop packets: the death of the third, healthy server is answered all the same.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/silent.bash"
story_begin "$0" "$@"
silence_hosts || fail "wants a network of its own"
conf_host char_athena.conf char_ip "${SILENT_HOSTS[0]}"
conf_host map_athena.conf map_ip "${SILENT_HOSTS[1]}"
settings_write "$ROOT" CharTimeout=300 MapTimeout=300 LoginAutoKillEnabled=1 CharAutoKillEnabled=1 \
  MapAutoKillEnabled=1
start_launcher
operate click bStart 3
expect_log 30 "Map server is freeze!... waiting..."
expect_log 5 "Char server freeze!... waiting..."
for crash in 1 2 3; do
  old=$(server_pid login)
  begin=$(date +%s%N)
  server crash login
  succeeded() { [[ $(count_log "Login Server Started!") == $((crash + 1)) ]]; }
  await 20 succeeded || fail "no successor"
  took=$((($(date +%s%N) - begin) / 1000000))
  # 5 and 4 seconds, and the time that the story takes to ask on a machine that may be busy. Probes that waited
  # for the system's own end would hold the window up for 20 and more each.
  ((took <= 16000)) || fail "the successor came after $took ms"
  expect_count login 1
  [[ $(server_pid login) != "$old" ]] || fail "the same process"
  sleep "$crash.3"
done
expect_no_log "Shuting down"
operate click bStart 4
close_launcher
