#!/usr/bin/env bash
# Ten thousand questions for the state in a row, and as many messages that look like commands and are none: the
# launcher goes on as before, with as many handles and as much memory. TARVO_STORM: another number of them.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/command.bash"
story_begin "$0" "$@"
count=${TARVO_STORM:-10000}
storm() { wine_run "$WINDOWS_BUILD/command-storm.exe" "$(wine_path "$ROOT/tarvo-launcher.exe")" "$@" | tr -d '\r'; }
start_launcher
operate click bStart 0
expect_log 15 "Listening Login Server"
read -r _ handles _ objects _ kib _ slowest < <(storm asks "$count")
[[ -n ${slowest:-} ]] || fail "a question was not answered"
((handles <= 2 && objects <= 2)) || fail "$handles handles and $objects objects more after $count questions"
((kib <= 256)) || fail "$kib KiB more after $count questions"
((slowest <= 2000)) || fail "an answer took $slowest ms"
storm garbage "$count" || fail "no answer after messages of others"
expect_count login 1
expect_no_log "Login Server Stopped!"
expect_equal "$(count_log "Login Server Started!")" 1 "starts of login"
no_box || fail "a box came up: $(operate box)"
operate click bStart 0
expect_log 10 "Login Server Stopped!"
close_launcher
