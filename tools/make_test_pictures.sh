#!/bin/sh
# Makes the small pictures in tests/data/pictures/: a 16 x 8 picture whose quarters are red (upper
# left), green (upper right), blue (lower left) and white (lower right), in every format and variant
# that is read. Needs ImageMagick.
set -eu
cd "$(dirname "$0")/../tests/data/pictures"

# The quarters one after another, so that every format is written from the same pixels.
quarters() {
  convert -size 8x4 \( xc:red xc:lime +append \) \( xc:blue xc:white +append \) -append -strip "$@"
}

quarters colors.png
quarters -define png:color-type=2 -define png:bit-depth=8 true_color.png
quarters -interlace PNG -define png:color-type=2 interlaced.png
quarters -depth 16 -define png:bit-depth=16 -define png:color-type=2 sixteen_bit.png
# The lower half half transparent, the right half of the upper one wholly.
quarters -alpha set -channel A -fx 'j >= h/2 ? 0.5 : (i >= w/2 ? 0 : 1)' +channel \
  -define png:color-type=6 alpha.png
quarters -alpha set -define png:color-type=6 opaque_alpha.png

quarters -type TrueColor BMP3:colors.bmp
quarters -type Palette -compress RLE BMP3:run_length.bmp

quarters colors.gif
convert colors.png \( colors.png -rotate 180 \) -set delay 10 -loop 0 animation.gif

quarters -type TrueColor colors.ico
convert \( colors.png -sample 4x2! \) colors.png \( colors.png -sample 8x4! \) several_sizes.ico
convert colors.png -sample 256x256! -define icon:auto-resize=256 stored_as_png.ico

quarters -sampling-factor 1x1 -quality 100 colors.jpg
quarters -sampling-factor 1x1 -quality 100 -interlace JPEG progressive.jpg
quarters -colorspace Gray -quality 100 gray.jpg
quarters -colorspace CMYK -sampling-factor 1x1 -quality 100 cmyk.jpg

quarters -compress None colors.tif
quarters -compress LZW -endian MSB big_endian_lzw.tif
convert alpha.png -compress Zip -strip alpha.tif
convert colors.png \( colors.png -rotate 180 \) -compress None two_pages.tif
