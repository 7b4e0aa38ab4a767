#!/bin/sh
# Renders the toolbar's images in src/preview/images/ from their drawings, one for each size. Needs
# librsvg's rsvg-convert and ImageMagick.
set -eu
cd "$(dirname "$0")/../src/preview/images"

for drawing in *.svg; do
  image=${drawing%.svg}.png
  # No dates and texts: the same drawing gives the same file.
  rsvg-convert "$drawing" | convert png:- -strip -define png:color-type=6 -define png:bit-depth=8 \
    -define png:compression-level=9 -define png:exclude-chunks=all "png:$image"
done
