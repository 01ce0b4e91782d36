#!/usr/bin/env bash
# Servers marked for it start with the launcher; after the launcher was killed, the next one adopts them
# and starts none twice.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
choose_demo_settings "$ROOT"
start_launcher
expect_log 20 "Listening Map Server"
for i in 0 1 2; do expect_light 5 "$i" 0x00C000; done
wine_run taskkill /F /IM tarvo-launcher.exe
operate wait-gone 10 || fail "not killed"
launcher_wait || true
for name in login char map; do expect_count "$name" 1; done
start_launcher
expect_log 10 "Map Server under control [High Priority]"
for name in login char map; do expect_count "$name" 1; done
server crash login
expect_log 10 "Login Server crashed, restarting..."
expect_count login 1
operate click bStart 4
close_launcher
