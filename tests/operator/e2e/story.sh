# What every end-to-end story begins with: a Windows of its own, a demo root of its own, and verbs.
#
#   source "$(dirname "$0")/story.sh"
#   story_begin "$0" "$@"        # clean prefix, clean root in $ROOT; nothing is started yet
#   start_launcher               # and waits until its window is there
#   operate click bStart 3       # any of the operator program's commands
#   expect_log 10 "text"         # the status log gets a line with this text within 10 seconds
#   expect_no_log "text"
#   expect_box "text" ok         # this message box comes up and is answered
#   server crash map             # tells a sample server how to behave (see server-control)
#   expect_count map 1           # so many processes of this server are there
#   fail "what went wrong"
#   skip "what this machine lacks"
#
# A story ends with exit code 0 when its last line is reached.
#
# TARVO_STORY_ROOT=NAME names the root folder of a story (letters of the western code page).
set -euo pipefail

E2E_FOLDER=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
E2E_REPOSITORY=$(cd "$E2E_FOLDER/../../.." && pwd)
source "$E2E_REPOSITORY/scripts/wine-env.sh"
source "$E2E_REPOSITORY/scripts/launcher-in-root.sh"

fail() {
  echo "FAILED: $*" >&2
  echo "--- the status log" >&2
  operate text RTLog >&2 || true
  operate box >&2 || true
  exit 1
}

# No fault of the launcher's: what the story is about cannot be seen here.
skip() {
  echo "skipped, $*"
  exit 77
}

story_begin() {
  [[ -f $WINDOWS_BUILD/tarvo-launcher.exe ]] || wine_fail "build the preset windows-64 first"
  TARVO_NETNS=${TARVO_NETNS:-1} wine_own_network "$@"
  wine_start
  ROOT=$WINE_DIR/${TARVO_STORY_ROOT:-root}
  # Without a network of its own each story has ports of its own all the same.
  local first=$((20000 + $$ % 10000 * 4))
  PORTS=("$first" "$((first + 1))" "$((first + 2))")
  "$E2E_REPOSITORY/scripts/make-demo-root.sh" "$ROOT" "${PORTS[@]}"
  LAUNCHER_ROOT=$ROOT
}

start_launcher() {
  launcher_start "$ROOT"
  operate wait-window 30 || fail "no window"
}

close_launcher() {
  operate close
  operate wait-gone 30 || fail "the launcher did not close"
  launcher_wait || fail "the launcher ended with code $?"
}

expect_log() { operate wait-text RTLog "$2" "$1" || fail "no line: $2"; }

expect_no_log() {
  if operate text RTLog | grep -qF -- "$1"; then fail "unexpected line: $1"; fi
}

# How many lines of the log hold the text.
count_log() { operate text RTLog | grep -cF -- "$1" || true; }

expect_equal() { [[ $1 == "$2" ]] || fail "$3: expected '$2', got '$1'"; }

# expect_box TEXT ANSWER: the box that comes up holds the text; it is answered.
expect_box() {
  local shown
  shown=$(operate answer "$2" --wait 20) || fail "no message box: $1"
  [[ $shown == *"$1"* ]] || fail "the box says '$shown', not '$1'"
}

# state CONTROL [INDEX]: the control's line of the operator's state.
state() {
  operate state "$@" | tr -d '\r' | grep -E "^$1${2:+ $2} " | head -1
}

expect_state() {
  local control=$1 index=$2 wanted=$3 line
  line=$(state "$control" ${index:+"$index"}) || line=
  [[ $line == *"$wanted"* ]] || fail "$control $index is '$line', not '$wanted'"
}

# await SECONDS COMMAND...: until the command succeeds.
await() {
  local end=$((SECONDS + $1))
  shift
  until "$@"; do
    ((SECONDS < end)) || return 1
    sleep 0.3
  done
}

# A server opens its window a moment after its start, and obeys from then on.
server() { await 10 wine_run "$WINDOWS_BUILD/servers/server-control.exe" "$2-server.exe" "$1"; }

server_count() { server count "$1" | tr -d '\r' | grep -oE '[0-9]+' | tail -1; }
server_pid() { server pids "$1" | tr -d '\r' | grep -oE '[0-9]+' | tail -1; }
has_count() { [[ $(server_count "$1") == "$2" ]]; }
expect_count() { await 10 has_count "$1" "$2" || fail "$(server_count "$1") of $1, not $2"; }

light() { state Sem "$1" | grep -oE '0x[0-9A-Fa-f]{6}' || true; }
has_light() { [[ $(light "$1") == "$2" ]]; }
# expect_light SECONDS INDEX COLOUR
expect_light() { await "$1" has_light "$2" "$3" || fail "light $2 is $(light "$2"), not $3"; }
