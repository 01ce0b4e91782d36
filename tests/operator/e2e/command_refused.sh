#!/usr/bin/env bash
# What the operator's buttons would refuse with a message box is told on standard error, and no box comes up; while
# a box is open everything but the state is refused.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/command.bash"
story_begin "$0" "$@"
start_launcher
ask --start
expect_equal "$ANSWERED" 2 "exit code of a wrong use"
[[ $COMPLAINED == "--start takes login, char, map or all."*"--wait listening|stopped"* ]] || fail "$COMPLAINED"
ask --help
[[ $ANSWERED == 0 && $SAID == *"tarvo-launcher.exe --state [text|json|prometheus]"* ]] || fail "$SAID"
ask --version
[[ $ANSWERED == 0 && $SAID == "Tarvo Launcher v."* ]] || fail "$SAID"

expect_answer 0 "" "" --start login
expect_answer 1 "" "Please, stop servers before close this application" --close
expect_answer 1 "" "Please, select the right new components (login, char, map)" --upgrade
no_box || fail "a box came up: $(operate box)"
expect_count login 1

operate close
await 10 operate box >/dev/null || fail "no box"
refusal="A message box of the launcher waits for its operator: Please, stop servers before close this application"
expect_answer 1 "" "$refusal" --stop login
expect_answer 1 "" "$refusal" --unload
expect_answer 1 "" "$refusal" --randomize
expect_equal "$(json 'state["message_box"]')" "Please, stop servers before close this application" "the box"
expect_box "Please, stop servers" ok
expect_equal "$(json 'state["message_box"]')" None "the box"

operate select Exes 1 login-server.exe
expect_answer 1 "" "Please, select the right servers from the list!" --restart login
expect_count login 1
expect_answer 0 "" "" --unload
launcher_wait || fail "the launcher ended with $?"
expect_count login 1
server crash login
