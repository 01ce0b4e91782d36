#!/usr/bin/env bash
# Takes the pictures of the four pages and of the check-up for docs/, from the sample servers in C:\servers\aurora. Wants the
# preset windows-64 built.
#
#   scripts/make-pictures.sh
set -euo pipefail
[[ $# == 0 ]] || { sed -n '2,5s/^# \{0,1\}//p' "$0" >&2; exit 2; }
"$(dirname "$0")/install-packages.sh" wine pictures
source "$(dirname "$0")/../tests/operator/e2e/story.sh"
DOCS=$E2E_REPOSITORY/docs
story_begin "$0" "$@"
mkdir -p "$WINEPREFIX/drive_c/servers/build"
mv "$ROOT" "$WINEPREFIX/drive_c/servers/aurora"
ROOT=$WINEPREFIX/drive_c/servers/aurora
for name in login char map; do
  cp "$ROOT/$name-server.exe" "$WINEPREFIX/drive_c/servers/build/"
done
op() { wine_run "$WINDOWS_BUILD/operator.exe" "$@"; }

# picture FILE: the window, as large as its frame.
picture() {
  sleep 2
  xdotool mousemove 1200 900
  import -window root -trim +repage +dither -colors 255 "PNG8:$DOCS/$1-page.png"
}

cd "$ROOT"
wine_spawn 'C:\servers\aurora\tarvo-launcher.exe'
op wait-window 30
for i in 0 1 2; do
  op check chkAutoStart "$i"
  op check chkAK "$i"
  op drop nPath "$i" "C:\\servers\\build\\$(cut -d' ' -f$((i + 1)) <<<"login char map")-server.exe"
done
op click bStart 3
op wait-text RTLog "Listening Map Server" 30
server crash map
op wait-text RTLog "crashed, restarting" 20
sleep 14
op page 1
picture status
op page 2
picture servers
sed -i 's/^map_ip:/Map_IP:/; s/\r$//' "$ROOT/conf/map_athena.conf"
op drop nPath 2 'C:\servers\build\new\map-server.exe'
op click cmdCheckUp
op wait-text lblCheck "error" 20
sleep 2
xdotool mousemove 1200 900
import -window "$(xdotool search --onlyvisible --name '^Check-up$' | head -1)" +repage +dither -colors 255 "PNG8:$DOCS/check-up.png"
xdotool key Escape
op drop nPath 2 'C:\servers\build\map-server.exe'
op page 3
op select cmdParam base_exp_rate
op set rIni 100
op set rEnd 300
op click rAdd 0
op select cmdParam job_exp_rate
op set rIni 100
op set rEnd 250
op click rAdd 0
op select lstDay 0 Mon
op scroll ScrollTime 0 8
op scroll ScrollTime 1 30
op click cmdCalendar 0
picture randomizer
op page 4
picture upgrade
op click bStart 4
op close
