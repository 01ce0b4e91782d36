#!/usr/bin/env bash
# The sample servers in the demo root: what the end-to-end tests build on.
#
#   tests/windows/sample_servers_test.sh [BUILD-FOLDER]      (TARVO_WINDOWS_BUILD goes before it)
set -u
repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
source "$repository/scripts/wine-env.sh"
export TARVO_NETNS=${TARVO_NETNS:-1}
wine_own_network "$0" "$@"
export TARVO_WINDOWS_BUILD=${TARVO_WINDOWS_BUILD:-${1:-$repository/build/windows-64}}
export TARVO_WINE_LIMIT=30
failures=0

# expect NAME WANTED ACTUAL
expect() {
  if [[ $2 == "$3" ]]; then
    echo "ok      $1"
  else
    echo "FAILED  $1: wanted \"$2\", got \"$3\""
    failures=1
  fi
}

# expect_soon NAME WANTED COMMAND...: the command's output within 10 seconds
expect_soon() {
  local name=$1 wanted=$2 actual round
  shift 2
  for ((round = 0; round < 50; ++round)); do
    actual=$("$@")
    [[ $actual == "$wanted" ]] && break
    sleep 0.2
  done
  expect "$name" "$wanted" "$actual"
}

control() {
  wine_run "$TARVO_WINDOWS_BUILD/servers/server-control.exe" "$@" | tr -d '\r'
}

connects() {
  if timeout 8 bash -c "exec 3<>/dev/tcp/127.0.0.1/$1" 2>/dev/null; then echo yes; else echo no; fi
}

start_server() {
  wine_spawn "./$1-server.exe"
}

# expect_code NAME WANTED PROCESS: its exit code, once it has ended
expect_code() {
  wait "$3"
  expect "$1" "$2" $?
}

wine_start
root=$WINE_DIR/root
# In the common network, ports that are likely to be free.
login=6900 char=6121 map=5121
[[ -n ${TARVO_IN_NETNS:-} ]] || login=$((20000 + RANDOM % 9000)) char=$((login + 1)) map=$((login + 2))
"$repository/scripts/make-demo-root.sh" "$root" "$login" "$char" "$map" || exit 1
cd "$root" || exit 1

expect "nobody listens before the start" no "$(connects "$login")"
for role in login char map; do
  start_server "$role"
  declare "process_$role=$WINE_SPAWNED"
  expect_soon "$role starts and answers" "$role-server.exe: answering" \
    control "$role-server.exe" state
  expect "$role can be connected to" yes "$(connects "${!role}")"
  expect "one $role server runs" 1 "$(control "$role-server.exe" count)"
done

control login-server.exe close-port >/dev/null
expect "a closed port refuses" no "$(connects "$login")"
expect "the others are not touched" yes "$(connects "$char")"
control login-server.exe answer >/dev/null
expect "it answers again" yes "$(connects "$login")"

if [[ -n ${TARVO_IN_NETNS:-} ]]; then
  control map-server.exe hang >/dev/null
  expect "it hangs" "map-server.exe: hanging" "$(control map-server.exe state)"
  expect "nobody is let in" no "$(connects "$map")"
  control map-server.exe answer >/dev/null
  expect "it answers after hanging" yes "$(connects "$map")"
fi

start_server login
expect_code "a second one at the same port ends with 4" 4 "$WINE_SPAWNED"
expect "and says why" "login server: port $login is in use by another process" \
  "$(tr -d '\r' <login-server.err)"

control char-server.exe crash >/dev/null
expect_code "a crash ends with 3" 3 "$process_char"
expect "and closes the port" no "$(connects "$char")"
expect "nobody is left to be told" "char-server.exe: not running" "$(control char-server.exe hang)"
control map-server.exe die >/dev/null
expect_code "an end in good order has code 0" 0 "$process_map"

printf 'die-at-start\r\n' >char-server.behaviour
start_server char
expect_code "it dies at its start" 3 "$WINE_SPAWNED"

printf 'start-delay 5000\r\n' >char-server.behaviour
start_server char
expect_soon "a slow one has its window first" "char-server.exe: port closed" \
  control char-server.exe state
expect_soon "and listens later" "char-server.exe: answering" control char-server.exe state

printf 'refuse-to-die\r\n' >map-server.behaviour
start_server map
expect_soon "one that refuses to die works" "map-server.exe: answering" \
  control map-server.exe state
wine_run taskkill /f /im map-server.exe >/dev/null 2>&1
expect "and survives being ended" 1 "$(control map-server.exe count)"
control map-server.exe die >/dev/null
expect_soon "but ends itself when told" 0 control map-server.exe count

rm -f conf/map_athena.conf map-server.behaviour
start_server map
expect_code "no conf file, no server" 2 "$WINE_SPAWNED"
exit "$failures"
