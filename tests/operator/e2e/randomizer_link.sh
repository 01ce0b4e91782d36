#!/usr/bin/env bash
# A settings file of the servers that is a link stays one, and the file that it leads to is rewritten, with its rights.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/randomizer_verbs.bash"
story_begin "$0" "$@"
put_ranges '<job_exp_rate Min="77" Max="77"/>'
mkdir -p "$WINE_DIR/shared"
mv "$(server_file)" "$WINE_DIR/shared/real.conf"
ln -s "$WINE_DIR/shared/real.conf" "$(server_file)"
start_launcher
operate click Command2
is_rewritten() { cmp -s <(grep -a '^job_exp_rate' "$(server_file)") <(printf 'job_exp_rate: 77\r\n'); }
await 10 is_rewritten || fail "the file behind the link was not rewritten"
[[ -L $(server_file) ]] || fail "the link has become a file"
[[ -z $(ls "$WINE_DIR/shared" | grep -v '^real.conf$') ]] || fail "something was left beside"
close_launcher
