# The outside libraries, each behind one seam (see docs/architecture.md).
find_package(PkgConfig REQUIRED)
pkg_check_modules(Fontconfig REQUIRED IMPORTED_TARGET fontconfig)
pkg_check_modules(FreeType REQUIRED IMPORTED_TARGET freetype2)
pkg_check_modules(HarfBuzz REQUIRED IMPORTED_TARGET harfbuzz)
pkg_check_modules(HarfBuzzSubset REQUIRED IMPORTED_TARGET harfbuzz-subset)
pkg_check_modules(FriBidi REQUIRED IMPORTED_TARGET fribidi)
pkg_check_modules(Cairo REQUIRED IMPORTED_TARGET cairo)
pkg_check_modules(GdkPixbuf REQUIRED IMPORTED_TARGET gdk-pixbuf-2.0)
pkg_check_modules(Rsvg REQUIRED IMPORTED_TARGET librsvg-2.0)
pkg_check_modules(LibXml REQUIRED IMPORTED_TARGET libxml-2.0)
pkg_check_modules(Png REQUIRED IMPORTED_TARGET libpng)
pkg_check_modules(Deflate REQUIRED IMPORTED_TARGET libdeflate)
find_package(Cups REQUIRED)  # Debian has no pkg-config file for it
