#!/usr/bin/env bash
# An empty autokill box at the start is a fault: number and description in a box, an exit code that is
# not 0, and nothing saved. A box that holds letters is cleaned while they are typed.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
start_launcher
operate check chkAK 1
operate set TTO 1 12a
expect_equal "$(operate text TTO 1 | tr -d '\r')" "12" "cleaned box"
operate set TTO 1 abc
expect_equal "$(operate text TTO 1 | tr -d '\r')" "0" "cleaned box"
# A "-" before the number leaves it a number, but is no digit: the caret goes behind the text.
operate set TTO 1 5
operate type TTO 1 -7
expect_equal "$(operate text TTO 1 | tr -d '\r')" "-57" "box with a minus"
operate set TTO 1 67
operate type TTO 1 45
expect_equal "$(operate text TTO 1 | tr -d '\r')" "4567" "box of digits"
operate set TTO 1 ""
operate click bStart 0
shown=$(operate answer ok --wait 20) || fail "no box"
[[ $shown == *"13"* && $shown == *"Type mismatch"* && $shown == *CharTimeout* ]] || fail "the box says '$shown'"
code=0
launcher_wait || code=$?
[[ $code -ne 0 ]] || fail "exit code 0 after a fault"
if settings_read "$ROOT" CharTimeout; then fail "settings were saved"; fi
expect_count login 0
