# The outside libraries, each behind one seam (see docs/architecture.md).
find_package(PkgConfig REQUIRED)
if(WIN32)
  set(PAGIVO_LIBRARIES_OF_SYSTEM dwrite windowscodecs ole32 oleaut32 uuid
    ssp)  # the compiler's, for guarded stacks
  pkg_check_modules(Cairo REQUIRED IMPORTED_TARGET cairo)
  set(PAGIVO_PACKAGES_OF_SYSTEM PkgConfig::Cairo)
else()
  pkg_check_modules(Fontconfig REQUIRED IMPORTED_TARGET fontconfig)
  set(PAGIVO_PACKAGES_OF_SYSTEM PkgConfig::Fontconfig)
endif()
pkg_check_modules(FreeType REQUIRED IMPORTED_TARGET freetype2)
pkg_check_modules(HarfBuzz REQUIRED IMPORTED_TARGET harfbuzz)
pkg_check_modules(HarfBuzzSubset REQUIRED IMPORTED_TARGET harfbuzz-subset)
pkg_check_modules(FriBidi REQUIRED IMPORTED_TARGET fribidi)
pkg_check_modules(Png REQUIRED IMPORTED_TARGET libpng)
pkg_check_modules(Jpeg REQUIRED IMPORTED_TARGET libjpeg)
pkg_check_modules(Deflate REQUIRED IMPORTED_TARGET libdeflate)
