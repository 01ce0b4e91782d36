#!/bin/sh
# Draws form/windows/launcher.ico: three lights over one another on a dark board, the lowest one with
# the arrow of a start. Needs ImageMagick.
set -eu
cd "$(dirname "$0")/.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Every size is drawn at four times its own scale and reduced, so that the edges are smooth.
draw() {
  size=$1
  canvas=$((size * 4))
  at() { echo $((canvas * $1 / 256)); }
  lamp() { # colour, x, y, radius
    echo "fill $1 circle $(at "$2"),$(at "$3") $(at $(($2 + $4))),$(at "$3")"
  }
  convert -size "${canvas}x${canvas}" xc:none \
    -draw "fill #22303c roundrectangle $(at 12),$(at 12) $(at 243),$(at 243) $(at 48),$(at 48)" \
    -draw "fill #30475a roundrectangle $(at 22),$(at 22) $(at 233),$(at 233) $(at 40),$(at 40)" \
    -draw "$(lamp '#3ddc5b' 72 72 30)" \
    -draw "$(lamp '#3ddc5b' 72 184 30)" \
    -draw "$(lamp '#ffb028' 72 128 22)" \
    -draw "fill #f4f8fb polygon $(at 122),$(at 62) $(at 122),$(at 194) $(at 222),$(at 128)" \
    -resize "${size}x${size}" "$work/$size.png"
}

for size in 16 24 32 48 256; do draw "$size"; done
convert "$work/16.png" "$work/24.png" "$work/32.png" "$work/48.png" "$work/256.png" \
  form/windows/launcher.ico
