#!/usr/bin/env bash
# In a console a command's answer comes up there, with the letters of the root's name, although the launcher is no
# console program.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/command.bash"
TARVO_STORY_ROOT="Servidor Ñandú"
story_begin "$0" "$@"
start_launcher
# in_console ARGUMENT...: what a terminal shows, its lines joined, when cmd runs the launcher in its root.
in_console() {
  (cd "$ROOT" && timeout 60 script -qec "$WINE_PROGRAM cmd /c tarvo-launcher.exe $*" /dev/null </dev/null) | tr -d '\r\n'
}
[[ $(in_console --version) == *"Tarvo Launcher v."* ]] || fail "no version in the console"
shown=$(in_console --state)
[[ $shown == *"Servidor Ñandú"*"Login: stopped since "*"Last upgrade: n/a"* ]] || fail "the console shows: $shown"
shown=$(in_console --state json)
[[ $shown == *'"root":"'*'Servidor Ñandú"'* ]] || fail "the console shows: $shown"
code=0
shown=$(in_console --close now) || code=$?
expect_equal "$code" 2 "exit code that cmd hands on"
[[ $shown == *"--close takes nothing after it."* ]] || fail "the console shows: $shown"
expect_answer 0 "" "" --close
launcher_wait || fail "the launcher ended with $?"
