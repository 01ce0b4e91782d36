#!/usr/bin/env bash
# Every page looks as it did when its picture was kept: at each scale, and in a scheme of black and white.
#
#   tests/operator/e2e/window_look.sh        compares
#   LOOK_KEEP=1 tests/operator/e2e/window_look.sh   keeps new pictures
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/look.bash"
export WINE_SCREEN=2560x1600
story_begin "$0" "$@"
look_fonts
look_has_kept_fonts || skip "the pictures were kept with other fonts than this Wine's"
ROOT=$WINEPREFIX/drive_c/servers/aurora

# As if nobody had ever started a launcher there. Login is watched closely and forgiven much.
first_start() {
  rm -rf "$ROOT"
  mkdir -p "${ROOT%/*}"
  "$E2E_REPOSITORY/scripts/make-demo-root.sh" "$ROOT" 6900 6121 5121
  wine_run reg delete "HKLM\\$(settings_key "$ROOT")" /f >/dev/null 2>&1 || true
  settings_write "$ROOT" LoginChkInterval=1000 LoginTimeout=300 LoginAutoKillEnabled=1 \
    CharAutoKillEnabled=1
  start_launcher
}

look_at_pages() {
  local name number=0
  for name in status servers randomizer upgrade; do
    operate page $((++number))
    look "$1-$name"
  done
}

# One server is well, one in trouble, one stopped; lists and fields are filled.
put_to_use() {
  operate click bStart 0
  operate click bStart 1
  operate wait-text RTLog "Listening Login Server" 20
  operate wait-text RTLog "Listening Char Server" 20
  server close-port login
  operate wait-text RTLog "freeze!... waiting..." 20
  operate set TTO 1 90
  operate select cmdParam base_exp_rate
  operate set rIni 100
  operate set rEnd 300
  operate click rAdd 0
  operate select lstDay 0 Mon
  operate click cmdCalendar 0
  operate set nPath 0 'C:\servers\build\login-server.exe'
}

for scale in 125 150 200 300; do
  look_at_scale $scale
  first_start
  look_at_pages "light-$scale"
done

for scheme in light black; do
  look_at_scale 100
  [[ $scheme == light ]] || look_with $scheme.reg
  first_start
  put_to_use
  look_at_pages "$scheme-100"
done
look_end
