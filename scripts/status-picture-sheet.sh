#!/usr/bin/env bash
# Draws docs/status-pictures.png anew: the picture of every status code as the notification area shows
# it at 100, 150 and 300 %, on a light and on a dark task bar.
#
#   scripts/status-picture-sheet.sh [BUILD-FOLDER]      (default: build/native; needs ImageMagick)
set -euo pipefail

repository=$(cd "$(dirname "$0")/.." && pwd)
program=${1:-$repository/build/native}/tests/desktop/status-pictures
[[ -x $program ]] || { echo "Build the target status-pictures first." >&2; exit 1; }
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

"$program" "$folder" 16 24 48

# tile CODE COLOUR: the three sizes beside each other on a task bar of this colour.
tile() {
  convert -size 112x60 "xc:$2" \
    "$folder/$1-16.pam" -geometry +6+22 -composite \
    "$folder/$1-24.pam" -geometry +28+18 -composite \
    "$folder/$1-48.pam" -geometry +58+6 -composite "$folder/$1-$3.png"
}

# The states in the table's own order: Login, Char, Map; 0 healthy, 1 trouble, 2 not watched.
states=(000 100 010 001 110 011 101 111 222 221 212 122 220 202 022 002 200 211 012 102 201 210 120
  021 112 020)
tiles=()
for code in "${!states[@]}"; do
  tile "$code" '#F3F3F3' light
  tile "$code" '#1C1C1C' dark
  convert "$folder/$code-light.png" "$folder/$code-dark.png" +append "$folder/$code.png"
  tiles+=(-label "$code  (${states[code]:0:1} ${states[code]:1:1} ${states[code]:2:1})"
    "$folder/$code.png")
done
montage "${tiles[@]}" -tile 3x -geometry +6+4 -background white -pointsize 12 "$folder/sheet.png"
convert "$folder/sheet.png" -strip +dither -colors 192 -define png:compression-level=9 \
  "PNG8:$repository/docs/status-pictures.png"
