#!/usr/bin/env bash
# A root with every fault at once: each check of the check-up tells its own.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
names_holder() { operate items lstCheck | grep -qF "holds the port $((PORTS[2] + 500))."; }
# Of another root, with executables of the same names: its map server holds the port that the char server is to have.
OTHER=$WINE_DIR/other
"$E2E_REPOSITORY/scripts/make-demo-root.sh" "$OTHER" "$((PORTS[0] + 500))" "$((PORTS[1] + 500))" "$((PORTS[2] + 500))"
cd "$OTHER"
wine_spawn "$(wine_path "$OTHER/map-server.exe")"
cd "$ROOT"
await 20 has_count map 1 || fail "the other root's map server does not run"
start_launcher
operate drop nPath 0 "$(wine_path "$OTHER/login-server.exe")"
operate drop nPath 1 "$(wine_path "$ROOT/char-server.exe")"
operate drop nPath 2 "$(wine_path "$OTHER/gone.exe")"
touch -d '2001-01-01' "$OTHER/login-server.exe"

sed -i -e "s/^char_port:.*/char_port: $((PORTS[2] + 500))\r/" -e 's/^login_ip:/Login_IP:/' \
  -e 's/^char_ip:.*/char_ip: no-such-host.invalid\r/' "$ROOT/conf/char_athena.conf"
sed -i -e 's/^map_port:.*/map_port: 70000\r/' "$ROOT/conf/map_athena.conf"
printf '// bare\n' >>"$ROOT/conf/battle_athena.conf"
chmod a-w "$ROOT/conf/battle_athena.conf"
printf 'no program' >"$ROOT/char-server.exe"
printf '<Randomize><base_exp_rate Min="1"' >"$ROOT/randomize.xml"
wine_run reg add "HKLM\\$(settings_key "$ROOT")" /v MapPri /d fast /f >/dev/null
wine_run reg add "HKCU\\$(settings_key "$ROOT")" /v LDATE /d x /f >/dev/null

operate click cmdCheckUp
operate wait-text lblCheck "error" 30 || fail "the window says '$(operate text lblCheck)'"
items=$(operate items lstCheck | tr -d '\r')
expect_finding() { grep -qF -- "$1" <<<"$items" || fail "no '$1' in"$'\n'"$items"; }
expect_finding 'warning: conf-line-ends: conf\battle_athena.conf'
expect_finding 'warning: conf-key-missed: conf\char_athena.conf, line 20'
expect_finding 'error: port: Map'
expect_finding 'The port 70000 is out of range.'
expect_finding 'host: Char'
expect_finding 'error: executable: Char: char-server.exe'
expect_finding 'warning: same-name: Map: map-server.exe'
expect_finding 'note: watch: Freeze autokill'
expect_finding "warning: folder: $(wine_path "$ROOT/conf/battle_athena.conf")"
expect_finding 'has no right to write it'
expect_finding 'error: settings: MapPri'
expect_finding 'note: settings: LDATE'
expect_finding 'error: sets: randomize.xml'
expect_finding 'older than the one that it would replace'
expect_finding 'the very file that it would replace'
expect_finding 'The new executable is missing.'

# The char server's host resolves again, so its port is looked for, and its holder is named.
sed -i -e 's/^char_ip:.*/char_ip: 127.0.0.1\r/' "$ROOT/conf/char_athena.conf"
operate click cmdAgain
await 20 names_holder || fail "no holder in $(operate items lstCheck)"
close_launcher
