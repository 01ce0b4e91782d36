#!/usr/bin/env bash
# Ranges are added, changed and removed on the page; the file beside the launcher follows byte for byte.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/randomizer_verbs.bash"
story_begin "$0" "$@"
start_launcher
expect_equal "$(items cmdParam | head -3 | tr '\n' ' ')" \
  "base_exp_rate job_exp_rate quest_base_gain " "the settings"
expect_equal "$(text rIni)" 100 "the present value"

# A range is typed and added.
operate type rIni "5-0."
expect_equal "$(text rIni)" 50100 "keys that are no digits are swallowed"
operate set rIni 100
operate set rEnd 300
operate click rAdd 0
expect_bytes randomize.xml "$(xml Randomize '<base_exp_rate Min="100" Max="300"/>')"
expect_equal "$(items lstRnd)" "base_exp_rate:100 to 300" "the list"
operate select cmdParam job_exp_rate
operate set rIni 250
operate set rEnd -5
operate click rAdd 0
expect_bytes randomize.xml "$(xml Randomize '<base_exp_rate Min="100" Max="300"/>' \
  '<job_exp_rate Min="250" Max="-5"/>')"

# It is changed by way of the list.
operate select lstRnd "base_exp_rate:100 to 300"
expect_equal "$(text cmdParam) $(text rIni) $(text rEnd)" "base_exp_rate 100 300" "the choice"
operate set rEnd 120
operate click rAdd 0
expect_bytes randomize.xml "$(xml Randomize '<base_exp_rate Min="100" Max="120"/>' \
  '<job_exp_rate Min="250" Max="-5"/>')"

# What is no range is refused and changes nothing.
before=$(md5sum <"$ROOT/randomize.xml")
operate set rEnd ""
operate click rAdd 0
expect_box "Please, use numeric values!" ok
operate set rEnd 100
operate click rAdd 0
expect_box "Please, enter different values!" ok
expect_equal "$(md5sum <"$ROOT/randomize.xml")" "$before" "the file after a refusal"

# Removed, one after the other; the file survives the launcher.
operate select lstRnd "job_exp_rate:250 to -5"
operate click rAdd 1
expect_bytes randomize.xml "$(xml Randomize '<base_exp_rate Min="100" Max="120"/>')"
close_launcher
start_launcher
expect_equal "$(items lstRnd)" "base_exp_rate:100 to 120" "the list of the next start"
operate select lstRnd "#0"
operate click rAdd 1
expect_bytes randomize.xml $'<Randomize/>\r\n'
expect_equal "$(items lstRnd)" "" "the emptied list"
close_launcher
