#!/usr/bin/env bash
# The page by the keyboard alone: access keys, the boxes that take digits only, lists and scroll bars.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/randomizer_verbs.bash"
press() { xdotool key --delay 40 "$@"; }
# Of letters that the keyboard lacks: they have a key for as long as the delay, in which Wine has to look at it.
press_lent() { xdotool key --delay 300 "$@"; }
is_text() { [[ $(text "${@:2}") == "$1" ]]; }
expect_text() { await 5 is_text "$@" || fail "${*:2} is '$(text "${@:2}")', not '$1'"; }
has_items() { [[ $(items "$2") == "$1" ]]; }
expect_items() { await 5 has_items "$1" "$2" || fail "$2 holds '$(items "$2")', not '$1'"; }
story_begin "$0" "$@"
start_launcher
operate page 3
xdotool search --onlyvisible --sync --name 'Tarvo Launcher$' windowactivate --sync >/dev/null

# Coming into a box selects its text; "-" goes first only; going out leaves a number.
press alt+i minus 7 minus period x Tab
expect_text -7 rIni
press BackSpace Tab
expect_text 0 rEnd
press alt+x 0 0 9 Tab
expect_text 9 rEnd

# Characters outside of 8 bits are no digits; a box that takes every key takes them.
press alt+i BackSpace minus 7
press_lent U2030 U2039
press 5
expect_text -75 rIni
press BackSpace alt+t 1
press_lent U2030
press 2
expect_text 12 txt_Time 0
press alt+h 4 2
press_lent U2030
expect_text $'42\x89' txtMxD 0

# What a box would not take by keys is not pasted by keys, but by its menu.
press BackSpace shift+Home ctrl+c Tab
expect_text 42 txtMxD 0
press alt+i shift+Insert ctrl+v Tab
expect_text -7 rIni
press alt+h End shift+Insert Tab
expect_text 4242 txtMxD 0
press alt+i shift+F10 p Tab
expect_text 42 rIni
press alt+i BackSpace minus 7 Tab
press alt+u
expect_items "base_exp_rate:-7 to 9" lstRnd

# Days, time and restart; the entry is added and taken away.
press alt+y Down Down
expect_text Wed lstDay
press alt+t 7 Tab
expect_text 07 txt_Time 0
press 9 9 Tab
expect_text 59 txt_Time 1
press Right
expect_text 08 txt_Time 0
press alt+s Down
expect_text No cmbRstrt
press alt+plus
expect_items "Wed 08:59 restart=N" lstDTRands
press alt+z Down
expect_text "Wed 08:59 restart=N" lstDTRands
press alt+minus
expect_items "" lstDTRands
expect_bytes rndcalendar.xml $'<Calendar/>\r\n'
press alt+p
program_chosen() { [[ $(state opt_Rnd 2) == *checked=1* ]]; }
await 5 program_chosen || fail "alt+p does not choose Program: $(state opt_Rnd 2)"
close_launcher
