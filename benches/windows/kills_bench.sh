#!/usr/bin/env bash
# The real launcher with real servers, ended by TerminateProcess at random moments of a busy life: crashes, hangs,
# upgrades, randomizer runs, settings saved. After each kill every executable, backup, conf and set must be whole and no
# saved setting lost; the next launcher must have each server under control, once. Its life is the next one that ends.
# Ends with "N kills, N lost"; the exit code is 1 when something was lost.
#
#   benches/windows/kills_bench.sh [IGNORED [KILLS]]     20 kills unless given; TARVO_SEED: the moments and acts
set -euo pipefail
source "$(dirname "$0")/../../tests/operator/e2e/story.sh"
source "$(dirname "$0")/../../tests/operator/e2e/randomizer_verbs.bash"
kills=${2:-20}
RANDOM=${TARVO_SEED:-17}
LIVES=60  # Seconds that the next launcher has.
story_begin "$0" "$@"

# build_new: three new executables in $NEWS, a day later each time.
NEWS=$WINE_DIR/new
BUILD=0
build_new() {
  local name
  ((++BUILD))
  mkdir -p "$NEWS"
  for name in login char map; do
    cp --remove-destination "$WINDOWS_BUILD/servers/$name-server.exe" "$NEWS/"
    printf 'build %s of %s' "$BUILD" "$name" >>"$NEWS/$name-server.exe"
    touch -d "2026-01-01 12:34:56 UTC + $BUILD days" "$NEWS/$name-server.exe"
  done
}
new_path() { wine_path "$NEWS/$1-server.exe"; }

# What an executable or a backup may be: the digests of all that was ever built.
known() { sha1sum "$@" "$NEWS"/*-server.exe | cut -d' ' -f1 >>"$WINE_DIR/known"; }

build_new
known "$ROOT"/*-server.exe
put_ranges '<base_exp_rate Min="100" Max="900"/>'
choose_demo_settings "$ROOT"
settings_write "$ROOT" LoginTimeout=5 CharTimeout=5 MapTimeout=5 LoginFrom="$(new_path login)" \
  CharFrom="$(new_path char)" MapFrom="$(new_path map)" UpdateMode=1 AutoRandomize=0 WriteLog=1
conf_lines=$(wc -l <"$(server_file)")
conf_names=$(cut -d: -f1 "$(server_file)" | sha1sum)

# One act; each may fail, since the launcher may be dead by then.
act() {
  local name
  name=$(shuf -n 1 -e login char map)
  case $1 in
    0 | 1) server crash "$name" ;;
    2) server hang "$name" ;;
    3) server crash map ;;  # With the trigger "Map crash" an upgrade.
    4) operate click UpdateNow && operate answer yes --wait 2 && operate answer ok --wait 8 ;;
    5) operate click Command2 ;;
    6) operate set rEnd "$((RANDOM % 900 + 100))" && operate click rAdd 0 ;;
    7) operate click bStart 4 && operate click bStart 3 ;;
    8) operate select Prior "$((RANDOM % 3))" High && operate click Command1 && operate answer yes --wait 2 ;;
  esac
}

saved() {
  wine_run reg query "HKLM\\$(settings_key "$ROOT")" | tr -d '\r' | grep -E '^ +[A-Za-z]+ +REG_SZ' |
    grep -vE '^ +(LastRandProcess|LastRandomize|DayRndCnt|HourRndCnt|LASTUPDATE|LDATE|CDATE|MDATE|UpdateMode|WindowPlace) ' |
    sed -E 's/ +/ /g' | sort
}

# What is torn; nothing when everything is whole.
torn() {
  local file
  for file in "$ROOT"/*-server.exe "$ROOT"/LBackup/*-server.exe; do
    [[ -e $file ]] || continue
    grep -q "$(sha1sum "$file" | cut -d' ' -f1)" "$WINE_DIR/known" || echo "$file is torn"
  done
  for file in login char map; do [[ -e $ROOT/$file-server.exe ]] || echo "$file-server.exe is gone"; done
  [[ $(wc -l <"$(server_file)") == "$conf_lines" && $(cut -d: -f1 "$(server_file)" | sha1sum) == "$conf_names" ]] ||
    echo "battle_athena.conf is torn"
  grep -q '</Randomize>' "$ROOT/randomize.xml" || echo "randomize.xml is torn"
}

under_control() {
  local i name
  for name in login char map; do has_count "$name" 1 || return 1; done
  for i in 0 1 2; do has_light "$i" 0x00C000 && [[ $(state bStart "$i") == *'text="Stop"'* ]] || return 1; done
}

start_launcher
await "$LIVES" under_control || fail "not under control at the beginning"
lost=0
killed=0
while ((killed < kills)); do
  build_new
  known
  before=$(saved)
  acts=
  for _ in 1 2 3 4; do acts+="$((RANDOM % 9)) "; done
  moment="$((RANDOM % 6)).$((RANDOM % 10))"
  (for one in $acts; do act "$one" || true; done) >/dev/null 2>&1 &
  busy=$!
  sleep "$moment"
  # One that was unloaded just before is no kill.
  if wine_run taskkill /F /IM tarvo-launcher.exe >/dev/null 2>&1; then ((++killed)); fi
  launcher_wait || true
  wait "$busy" || true
  # Whatever the acts have changed and not saved is gone with the launcher; what was saved is not.
  what=$(torn)
  after=$(saved)
  gone=$(comm -23 <(cut -d' ' -f2 <<<"$before") <(cut -d' ' -f2 <<<"$after"))
  [[ -z $gone ]] || what+=" settings gone: $gone"
  [[ $acts == *8* || $before == "$after" ]] || what+=" settings changed: $(diff <(echo "$before") <(echo "$after"))"
  start_launcher
  await "$LIVES" under_control || what+=" not under control: $(operate state | grep -E '^(bStart|Sem)' || true)"
  [[ -z $what ]] || { ((++lost)); echo "kill $killed after $moment s of acts $acts: $what"; }
done
echo "$killed kills, $lost lost"
operate click bStart 4
close_launcher
((lost == 0))
