#!/usr/bin/env bash
# What the operator chose is there again after a restart of the launcher.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
start_launcher
operate select Prior 0 V-High
operate check chkAK 0
operate check chkAK 3
operate set TTO 0 45
operate check WLog
operate select LogH 0 "Errors & Warnings"
operate select Exes 2 char-server.exe
close_launcher

expect_equal "$(settings_read "$ROOT" LoginPri)" "4" "LoginPri"
expect_equal "$(settings_read "$ROOT" LoginTimeout)" "45" "LoginTimeout"
expect_equal "$(settings_read "$ROOT" LoginAutoKillEnabled)" "1" "LoginAutoKillEnabled"
expect_equal "$(settings_read "$ROOT" CharAutoKillEnabled)" "0" "CharAutoKillEnabled"
expect_equal "$(settings_read "$ROOT" MapFullAutokill)" "1" "MapFullAutokill"
expect_equal "$(settings_read "$ROOT" WriteLog)" "1" "WriteLog"
expect_equal "$(settings_read "$ROOT" WriteMode)" "2" "WriteMode"
expect_equal "$(settings_read "$ROOT" MapExe)" "char-server.exe" "MapExe"
expect_equal "$(settings_read "$ROOT" AutoRandomize)" "0" "AutoRandomize"
if settings_read "$ROOT" LoginChkInterval; then fail "the check interval was written"; fi

start_launcher
expect_equal "$(operate text Prior 0 | tr -d '\r')" "V-High" "login priority"
expect_equal "$(operate text TTO 0 | tr -d '\r')" "45" "login seconds"
expect_equal "$(operate text Exes 2 | tr -d '\r')" "char-server.exe" "map chooser"
expect_equal "$(operate text LogH | tr -d '\r')" "Errors & Warnings" "log level"
expect_state chkAK 0 "checked=1"
expect_state chkAK 1 "checked=0"
expect_state chkAK 3 "checked=1"
expect_state TTO 0 "enabled=1"
expect_state TTO 1 "enabled=0"
close_launcher
