#!/bin/sh
# Makes the three watermark pictures in src/preview/watermerk/: 288 x 396 pixels, a palette of
# sixteen greys from 192 (the word) to 255 (the ground), the word on the diagonal from the lower
# left to the upper right. Needs ImageMagick and the Liberation fonts.
set -eu
cd "$(dirname "$0")/../src/preview/watermerk"

width=288
height=396
margin=8
# Every word fills as much of the diagonal as its own proportions allow.
angle=-54

make_watermark() {
  word=$1
  face=$2
  file=$(printf '%s' "$word" | tr '[:upper:]' '[:lower:]').png
  # Drawn large and scaled down, then brought to exactly sixteen greys: smooth edges in few colours.
  convert -background white -fill black -font "$face" -pointsize 400 -kerning 12 "label:$word" \
    -trim +repage -background white -rotate "$angle" -trim +repage \
    -filter Lanczos -resize "$((width - 2 * margin))x$((height - 2 * margin))" \
    -gravity center -extent "${width}x${height}" -colorspace Gray \
    -fx '(192 + 4.2 * round(15 * u)) / 255' +dither -colors 16 -strip \
    -define png:color-type=3 -define png:bit-depth=4 -define png:exclude-chunks=all \
    -define png:include-chunk=PLTE "png:$file"
}

make_watermark CONCEPT Liberation-Sans-Bold
make_watermark KOPIE Liberation-Sans-Bold
make_watermark VERTROUWELIJK Liberation-Sans-Narrow-Bold
