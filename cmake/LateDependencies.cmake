# The outside libraries that are loaded when something of theirs is first called, so that hosts need
# not link them: of these the build uses the headers alone (see src/system/posix/late_library.h).
pkg_check_modules(Cairo REQUIRED IMPORTED_TARGET cairo)
pkg_check_modules(GdkPixbuf REQUIRED IMPORTED_TARGET gdk-pixbuf-2.0)
pkg_check_modules(Rsvg REQUIRED IMPORTED_TARGET librsvg-2.0)
pkg_check_modules(LibXml REQUIRED IMPORTED_TARGET libxml-2.0)
pkg_check_modules(GnuTls REQUIRED IMPORTED_TARGET gnutls)
find_package(Cups REQUIRED)  # Debian has no pkg-config file for it
