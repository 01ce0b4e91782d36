#!/usr/bin/env bash
# "Randomize Now!" draws the settings that have a range anew and leaves every other byte of the file.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/randomizer_verbs.bash"
story_begin "$0" "$@"
put_ranges '<base_exp_rate Min="100" Max="300"/>' '<job_exp_rate Min="77" Max="77"/>' \
  '<nowhere Min="1" Max="2"/>'
printf '\r\nquest_base_gain: 1 // umlaut \344\r\nlast line' >>"$(server_file)"
cp "$(server_file)" "$WINE_DIR/before.conf"
start_launcher
operate click Command2
expect_log 5 "Starting Randomizer - Updating battle_athena.conf"
expect_log 5 "> job_exp_rate (77~77): 77 - Nothing to calc"
expect_log 5 "Randomize was succesfull, 3 change(s)"
drawn=$(text RTLog | sed -n 's/.*> base_exp_rate (100~300): \([0-9]*\)$/\1/p')
((drawn >= 100 && drawn <= 300)) || fail "drew $drawn"
LC_ALL=C sed -e "s/^base_exp_rate:.*/base_exp_rate: $drawn\r/" -e $'s/^job_exp_rate:.*/job_exp_rate: 77\r/' \
  "$WINE_DIR/before.conf" >"$WINE_DIR/wanted.conf"
cmp "$(server_file)" "$WINE_DIR/wanted.conf" || fail "another line has changed"

# A file that must not be written is left as it is.
chmod a-w "$(server_file)"
operate click Command2
expect_log 5 'conf\battle_athena.conf file.'
cmp "$(server_file)" "$WINE_DIR/wanted.conf" || fail "a read-only file was changed"
chmod u+w "$(server_file)"

# A file that is a link stays one, and the file that it leads to is rewritten, with its rights.
mkdir -p "$WINE_DIR/shared"
mv "$(server_file)" "$WINE_DIR/shared/real.conf"
ln -s "$WINE_DIR/shared/real.conf" "$(server_file)"
sed -i 's/^job_exp_rate:.*/job_exp_rate: 78\r/' "$WINE_DIR/shared/real.conf"
operate click Command2
is_rewritten() { cmp -s <(grep -a '^job_exp_rate' "$(server_file)") <(printf 'job_exp_rate: 77\r\n'); }
await 10 is_rewritten || fail "the file behind the link was not rewritten"
[[ -L $(server_file) ]] || fail "the link has become a file"
[[ -z $(ls "$WINE_DIR/shared" | grep -v '^real.conf$') ]] || fail "something was left beside"

# One that is gone is told.
rm "$(server_file)"
operate click Command2
expect_log 5 'conf\battle_athena.conf file can'"'"'t be loaded'
[[ ! -e $(server_file) ]] || fail "the file came back"
close_launcher
