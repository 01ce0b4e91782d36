#!/usr/bin/env bash
# Every page says what operators know it by, to the letter and blank, and so do the tool tips.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"

# expect_captions PAGE: each line of the input is a whole text of that page.
expect_captions() {
  local shown wanted
  operate page "$1"
  shown=$(operate captions | tr -d '\r')
  while IFS= read -r wanted; do
    grep -qxF -- "$wanted" <<<"$shown" || fail "page $1 has no '$wanted' but: $shown"
  done
}
expect_tip() {
  local shown
  shown=$(operate tooltip "${@:2}" | tr -d '\r')
  expect_equal "$shown" "$1" "tool tip of ${*:2}"
}

start_launcher
expect_captions 1 <<'END'
Server Battle Randomizer 
Free Memory:
Last failure:
Start
Start All
Stop All
END
expect_captions 2 <<'END'
Freeze Autokill after
sec.
Restart All components with Map Autokill
Save status in log file?
Start Minimized
Show Login
Show Char
Show Map
END
expect_captions 3 <<'END'
Caution!, this functions are only for Advanced Administrators!
Server Configuration
Min. Value:
Max. Value:
Update
Remove
Randomize Now!
Map Start
Manual
Program
Rnd x hour:
Rnd x day:
Randomize Calendar  (program  mode)
Day:
Time:
Restart?
 Randomize at:
END
expect_captions 4 <<'END'
FROM Components
TO Components
Upgrade Trigger:
Manual
Map crash
Any crash
Make Backup
Only full upgrades
Set to "Manual" after Upgrade
Last Upgrade:
n/a
Upgrade Now!
END

expect_tip "Start all servers" bStart 3
expect_tip "Stop all servers" bStart 4
expect_tip "What status messages will be saved in the log file?" LogH
expect_tip "Save status in log file?" WLog
expect_tip "Hide the main window at start?" SMinimized
expect_tip "Start on-event.cmd of the server folder, with this launcher's rights, when a server starts, crashes, freezes or stops?" \
  chkEvents
names=(login char map)
for i in 0 1 2; do
  tip="When freeze detected, how many time will wait before kill and restart ${names[$i]} server"
  expect_tip "$tip" chkAK "$i"
  operate check chkAK "$i"
  expect_tip "$tip" TTO "$i"
done

# What is disabled tells why.
operate uncheck chkAK 1
operate click bStart 0
expect_log 10 "Login Server Started!"
operate page 2
expect_tip 'Check "Freeze Autokill after" to change the time.' TTO 1
expect_tip "Stop the Login server to choose another executable." Exes 0
operate click bStart 0
close_launcher
