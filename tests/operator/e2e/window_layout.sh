#!/usr/bin/env bash
# On every page and at every scale nothing overlaps, nothing is cut, every control has a name and no two
# share an access key.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
for dpi in 96 120 144 192; do
  wine_run reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$dpi" /f >/dev/null
  wine_end_programs # The new scale counts from the next start of Windows.
  start_launcher
  faults=$(operate layout) || fail "at $dpi dots per inch: $faults"
  close_launcher
done
