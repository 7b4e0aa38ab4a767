#!/bin/sh
# Renders the pictures that are kept beside their drawings: the toolbar's images in src/preview/images/,
# one for each size, and the example's title picture, for hosts where no drawings are read. Needs
# librsvg's rsvg-convert and ImageMagick.
set -eu
cd "$(dirname "$0")/.."

# render DRAWING COLOURS: in the kind of colours that PNG calls 2 (opaque) or 6. No dates and texts: the
# same drawing gives the same file.
render() {
  rsvg-convert "$1" | convert png:- -strip -define png:color-type="$2" -define png:bit-depth=8 \
    -define png:compression-level=9 -define png:exclude-chunks=all "png:${1%.svg}.png"
}

for drawing in src/preview/images/*.svg; do
  render "$drawing" 6
done
render examples/plumeo/pluim.svg 2
