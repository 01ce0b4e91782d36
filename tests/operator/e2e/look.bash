# How a story looks at the window: it compares what is on the screen with kept pictures.
#
#   look_fonts                  behind story_begin: no font counts but those that the look is made of
#   look_has_kept_fonts         they are those that the pictures were kept with
#   look_at_scale 150           from the next launcher on
#   look_with dark.reg          system colours and the like, from the next launcher on
#   look NAME                   the window as it stands is that of look/NAME.png
#   LOOK_KEEP=1                 keeps the window as that picture instead
#   look_painted                what is on the screen is what the window draws when it draws everything anew
#
# What changes from day to day is blotted out: the log's stamps, the strips, the memory, the last failure.

LOOK_KEPT=$E2E_REPOSITORY/tests/operator/look
LOOK_SEEN=$E2E_REPOSITORY/build/look
LOOK_KEEP=${LOOK_KEEP:-0}

# The tolerance. A picture is compared square by square, a square being so many pixels wide at 100 %, by
# the mean colour of each: no channel of it may differ by more per cent. The edge of a letter drawn a
# little darker is below it, a letter that is not there is above.
LOOK_SQUARE=8
LOOK_PER_CENT=4

# A window may take so long to be drawn.
LOOK_PATIENCE=5

# Wine has fonts of its own (fonts-wine); what they lack is taken from Liberation (fonts-liberation).
look_fonts() {
  local fonts=/usr/share/fonts/truetype/liberation
  [[ -f $fonts/LiberationSans-Regular.ttf && -d /usr/share/wine/fonts ]] ||
    wine_fail "no fonts (packages fonts-liberation, fonts-wine)"
  mkdir "$WINE_DIR/fonts"
  cat >"$WINE_DIR/fonts/fonts.conf" <<XML
<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>$fonts</dir>
  <cachedir>$WINE_DIR/fonts/cache</cachedir>
  <match target="font">
    <edit name="antialias"><bool>true</bool></edit>
    <edit name="hintstyle"><const>hintslight</const></edit>
    <edit name="rgba"><const>none</const></edit>
  </match>
</fontconfig>
XML
  export FONTCONFIG_FILE=$WINE_DIR/fonts/fonts.conf
}

look_sums() { (cd /usr/share && sha256sum wine/fonts/tahoma*.ttf fonts/truetype/liberation/LiberationSans-*.ttf); }
look_has_kept_fonts() {
  [[ $LOOK_KEEP == 0 ]] || look_sums >"$LOOK_KEPT/fonts.sha256"
  look_sums | cmp -s "$LOOK_KEPT/fonts.sha256" -
}

# Both count from the next start of Windows, so they end all programs.
look_at_scale() {
  LOOK_SCALE=$1
  wine_run reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d $((96 * $1 / 100)) /f >/dev/null
  wine_end_programs
}

look_with() {
  wine_run regedit /S "$(wine_path "$LOOK_KEPT/$1")"
  wine_end_programs
}

# look_place STATE CONTROL [INDEX]: left, top, width and height.
look_place() {
  sed -nE "s/^$2${3:+ $3} .* place=(-?[0-9]+),(-?[0-9]+),([0-9]+),([0-9]+)\$/\1 \2 \3 \4/p" <<<"$1"
}

look_blot() { printf 'rectangle %d,%d %d,%d ' "$1" "$2" $(($1 + $3 - 1)) $(($2 + $4 - 1)); }

# What ImageMagick draws over the picture.
look_blots() {
  local state i left top width height
  state=$(operate state | tr -d '\r')
  look_blot $(look_place "$state" lblMemory)
  look_blot $(look_place "$state" lblErr)
  for i in 0 1 2; do look_blot $(look_place "$state" Strip $i); done
  if grep -q '^cmdCheckUp .*visible=1' <<<"$state"; then
    # How many findings there are by now; its frame is looked at.
    read -r left top width height < <(look_place "$state" cmdCheckUp)
    look_blot $((left + 4)) $((top + 4)) $((width - 8)) $((height - 8))
  fi
  grep -q '^RTLog .*visible=1' <<<"$state" || return 0
  read -r left top width height < <(look_place "$state" RTLog)
  look_blot "$left" "$top" $((118 * LOOK_SCALE / 100)) "$height"
}

look_window() { xdotool search --onlyvisible --name ' - Tarvo Launcher$' | head -1; }

# look_take FILE BLOTS
look_take() {
  import -silent -window "$(look_window)" PPM:- | convert PPM:- -fill magenta -draw "$2" "PPM:$1"
}

# look_difference A B: the largest one of a square, in per cent; no number when the sizes differ.
look_difference() {
  local sizes
  sizes=$(identify -format '%wx%h\n' "$1" "$2" | uniq)
  [[ $sizes != *$'\n'* ]] || { echo "sizes ${sizes/$'\n'/ and }" && return; }
  local part
  part=$(awk "BEGIN { print 10000 / ($LOOK_SQUARE * $LOOK_SCALE) }")
  convert "$1" "$2" -scale "$part%" -compose Difference -composite -format '%[fx:100*maxima]' info:
}

look_alike() {
  LOOK_DIFFERENCE=$(look_difference "$1" "$2")
  [[ $LOOK_DIFFERENCE =~ ^[0-9.e-]+$ ]] && awk "BEGIN { exit !($LOOK_DIFFERENCE <= $LOOK_PER_CENT) }"
}

look_keep() {
  sleep 2
  look_take "$WINE_DIR/look.ppm" "$2"
  convert "$WINE_DIR/look.ppm" +dither -colors 255 -strip -define png:compression-level=9 "PNG8:$1"
}

# Everything that differs is told at the end of the story, so that one run shows all of it.
look() {
  local kept=$LOOK_KEPT/$1.png seen=$WINE_DIR/look.ppm end=$((SECONDS + LOOK_PATIENCE)) blots
  xdotool mousemove 4000 4000
  blots=$(look_blots)
  if [[ $LOOK_KEEP == 1 ]]; then look_keep "$kept" "$blots" && return; fi
  [[ -f $kept ]] || fail "no picture $kept"
  while look_take "$seen" "$blots"; do
    look_alike "$kept" "$seen" && return
    ((SECONDS < end)) || break
    sleep 0.5
  done
  mkdir -p "$LOOK_SEEN"
  convert "$seen" "$LOOK_SEEN/$1.png"
  LOOK_FAULTS+="$1: a square differs by $LOOK_DIFFERENCE %, see ${LOOK_SEEN#"$E2E_REPOSITORY/"}/$1.png"$'\n'
}

# What moves while the window is laid out is not to leave anything behind.
look_painted() {
  local before=$WINE_DIR/before.ppm after=$WINE_DIR/after.ppm end=$((SECONDS + LOOK_PATIENCE)) blots
  xdotool mousemove 4000 4000
  blots=$(look_blots)
  look_take "$before" "$blots"
  operate repaint
  until look_take "$after" "$blots" && look_alike "$before" "$after"; do
    ((SECONDS < end)) || fail "the window draws itself otherwise than it stands there: $LOOK_DIFFERENCE %"
    sleep 0.5
  done
}

look_end() {
  [[ -z ${LOOK_FAULTS:-} ]] || fail "the window looks different:"$'\n'"$LOOK_FAULTS"
}
