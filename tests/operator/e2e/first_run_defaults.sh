#!/usr/bin/env bash
# The first start in a server root: defaults everywhere, nothing started, the page of settings shown.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
start_launcher
expect_log 10 "Launcher Ready!"
expect_log 1 "Tarvo Launcher v."
expect_log 1 "Login Server:  127.0.0.1:${PORTS[0]}"
expect_log 1 "Char Server:  127.0.0.1:${PORTS[1]}"
expect_log 1 "Map Server:  127.0.0.1:${PORTS[2]}"
expect_no_log "Check Interval"
expect_equal "$(operate text SName | tr -d '\r')" "Aurora" "server name"
expect_state window "" "[Aurora] - Tarvo Launcher"
expect_equal "$(operate text Exes 0 | tr -d '\r')" "login-server.exe" "login chooser"
expect_equal "$(operate text Exes 1 | tr -d '\r')" "char-server.exe" "char chooser"
expect_equal "$(operate text Exes 2 | tr -d '\r')" "map-server.exe" "map chooser"
expect_equal "$(operate text Prior 0 | tr -d '\r')" "Low" "login priority"
expect_equal "$(operate text Prior 1 | tr -d '\r')" "Norm" "char priority"
expect_equal "$(operate text Prior 2 | tr -d '\r')" "High" "map priority"
expect_equal "$(operate text TTO 0 | tr -d '\r')" "20" "login seconds"
expect_equal "$(operate text TTO 1 | tr -d '\r')" "300" "char seconds"
expect_equal "$(operate text TTO 2 | tr -d '\r')" "60" "map seconds"
for i in 0 1 2; do
  expect_equal "$(operate text bStart "$i" | tr -d '\r')" "Start" "button $i"
  expect_light 5 "$i" 0xC0C0C0
  expect_count "$(cut -d' ' -f$((i + 1)) <<<"login char map")" 0
done
close_launcher
