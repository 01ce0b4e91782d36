#!/usr/bin/env bash
# All three hosts are silent and the servers run already, so that each is probed twice before the window comes:
# it comes all the same. The second time the hosts have names, and it is the name server that is silent; the
# launcher ends while its questions are open.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/silent.bash"
story_begin "$0" "$@"
silence_hosts && silence_name_servers || fail "wants a network of its own"
settings_write "$ROOT" LoginTimeout=300 CharTimeout=300 MapTimeout=300 LoginAutoKillEnabled=1 \
  CharAutoKillEnabled=1 MapAutoKillEnabled=1 LoginAutoStart=1 CharAutoStart=1 MapAutoStart=1
for name in login char map; do
  (cd "$ROOT" && exec "$WINE_PROGRAM" "$(wine_path "$ROOT/$name-server.exe")" </dev/null) &
done
for name in login char map; do expect_count "$name" 1; done

# start_with LOGIN CHAR MAP REASON: hosts, and what the tool tips then say of them.
start_with() {
  local begin took
  conf_host char_athena.conf login_ip "$1"
  conf_host char_athena.conf char_ip "$2"
  conf_host map_athena.conf map_ip "$3"
  begin=$(date +%s%N)
  start_launcher
  took=$((($(date +%s%N) - begin) / 1000000))
  expect_log 5 "Login Server under control!"
  expect_log 5 "Map server is freeze!... waiting..."
  # Two probes of each make 6 seconds; the rest is the start of Windows programs here, on a machine that may be
  # busy. A connect that waited for the system's own end would take 20 and more.
  ((took >= 6000 && took <= 15000)) || fail "the window came after $took ms"
  expect_tip "Char: healthy|$2:${PORTS[1]}: $4" 1
  operate click Command1
  expect_box "press Start and the components will be under control again." yes
  operate wait-gone 10 || fail "the launcher did not end"
  launcher_wait || fail "the launcher ended with code $?"
}
start_with 10.99.0.4 "${SILENT_HOSTS[@]}" "no answer in 1 s"
start_with login.game.invalid char.game.invalid map.game.invalid "no answer in 1 s from the name server"
for name in login char map; do expect_count "$name" 1; done
