#!/usr/bin/env bash
# A port that is no number is a fault of the start: the box names the line, the exit code is not 0.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
refused() {
  launcher_start "$ROOT"
  local shown code=0
  shown=$(operate answer ok --wait 20) || fail "no box"
  [[ $shown == *"$1"* && $shown == *"$2"* && $shown == *"$3"* ]] || fail "the box says '$shown'"
  launcher_wait || code=$?
  [[ $code -ne 0 ]] || fail "exit code 0"
}
sed -i 's|^map_port: .*\r$|map_port: 5121 // main\r|' "$ROOT/conf/map_athena.conf"
refused "13" "Type mismatch" "map_port: 5121 // main"
sed -i 's|^map_port: .*\r$|map_port: 99999999999\r|' "$ROOT/conf/map_athena.conf"
refused "6" "Overflow" "map_port:"
