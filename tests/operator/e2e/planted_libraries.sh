#!/usr/bin/env bash
# A server root that holds libraries named like the system's: the launcher loads none of them, at its
# start, in its pages, in the system's dialogs or while it supervises.
source "$(dirname "$0")/story.sh"
# Not version.dll: Wine's own user32 imports it, and looks for it beside the program; Windows' does not.
names=(riched20 uxtheme comdlg32 winhttp wininet dwmapi iphlpapi wsock32 mswsock dnsapi winmm
  msimg32 secur32 netapi32 userenv cryptbase profapi propsys oleacc wtsapi32 dbghelp usp10 msftedit
  msls31 winspool.drv hhctrl.ocx windowscodecs gdiplus bcrypt rsaenh ntmarta explorerframe)
story_begin "$0" "$@"
for name in "${names[@]}"; do
  [[ $name == *.* ]] || name=$name.dll
  cp "$WINDOWS_BUILD/servers/planted.dll" "$ROOT/$name"
  # Found in the root they go before Wine's own, as on Windows.
  WINEDLLOVERRIDES+=";${name%.dll}=n,b"
done

marks() { find "$ROOT" -name "*.loaded-by-$1" -printf '%f\n' | sort; }
expect_none_loaded() {
  local found
  found=$(marks tarvo-launcher.exe)
  [[ -z $found ]] || fail "$1:" $found
}

# The trap works: a program that is not on its guard loads what lies beside it.
cp "$WINEPREFIX/drive_c/windows/system32/rundll32.exe" "$ROOT/"
TARVO_WINE_LIMIT=20 wine_run "$(wine_path "$ROOT/rundll32.exe")" riched20.dll,None || true
[[ $(marks rundll32.exe) == *riched20* ]] || fail "nobody loads the planted libraries"

start_launcher
expect_none_loaded "at the start"
for page in 1 2 3 4; do operate page "$page"; done
expect_none_loaded "by the pages"
operate click cmd_nBrowse 0
operate cancel-file --wait 20 || fail "no file dialog"
expect_none_loaded "by the file dialog"
operate click bStart 3
expect_log 15 "Listening Map Server"
server crash map
expect_log 10 "Map Server crashed, restarting..."
operate click bStart 4
close_launcher
expect_none_loaded "at last"
