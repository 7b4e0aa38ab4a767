#!/usr/bin/env bash
# Builds the libraries that the Windows edition stands on, as static libraries out of Debian's source
# packages, in a folder that outlives every build folder:
# ${PAGIVO_WINDOWS_LIBRARIES:-~/.cache/pagivo/windows}.
#
#   tools/build_windows_libraries.sh [x86_64] [i686]    builds what is not there yet (for x86_64)
#   tools/build_windows_libraries.sh --folder x86_64    says where that is
#   tools/build_windows_libraries.sh --processor i686   says what all is compiled with for that processor
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. tools/common.sh

# Source packages: name, version, SHA-256 of the description (.dsc), which has those of all its files.
# Of pixman's, only what its authors released: what Debian adds is for its packages alone.
packages='
zlib           1:1.2.13.dfsg-1          3fa1e6b2fc525062aa88207dda52fed8e045373c809d362fe8a2bfbf7cf515a8
libdeflate     1.14-1                   1f82791c5ac5623ed110e09cc991471deebfe4c419414392d1242e122c6f4c19
freetype       2.12.1+dfsg-5+deb12u4    eead829b4bc79107e8e79c4da006110dffe264f9d48b3ba02f76cf7e84b64389
harfbuzz       6.0.0+dfsg-3             a03b89402656feb6e9b1439f69b55f3cfbd7b1c70a71e18819f0396d1a6fd607
fribidi        1.0.8-2.1                7efd56752103ca3ea6190bbc3ee49b613bc131cd7551fb64c6e9d233d4496553
libpng1.6      1.6.39-2+deb12u5         7b86211030a34deb6b0a2cd7e1d9db0fe92443fd30cab537fb89b1e7f7c9f188
libjpeg-turbo  1:2.1.5-2                d718ead0dfbcbc8523665c02a7f7152e31039ded641d022868722623bb3b486d
pixman         0.42.2-1                 393302f5ba22d1206c456902baa02cdd577cb74fe35ec6659f587cce67b91b3d
cairo          1.16.0-7                 96b21b7b9c9ab4ae689b1191830b53d0b3c38e5664105c36a3c39dee6bcf29a4
'
# The licences of what is in the component, which go with it to its hosts.
licences='
zlib           LICENSE
libdeflate     COPYING
freetype       LICENSE.TXT docs/FTL.TXT docs/GPLv2.TXT
harfbuzz       COPYING
fribidi        COPYING
libpng1.6      LICENSE
libjpeg-turbo  LICENSE.md README.ijg
pixman         COPYING
cairo          COPYING COPYING-LGPL-2.1 COPYING-MPL-1.1
'
googletest=/usr/src/googletest
cache=$windows_cache

# processor_flags ARCHITECTURE: those for i686 are told of in cmake/windows/toolchain.cmake.
processor_flags() {
  [ "$1" != i686 ] || printf -- '-msse2 -mfpmath=sse -mstackrealign'
}

# flags_of ARCHITECTURE: checks that fail tell the name of their source, which is the same wherever the
# SOURCES stand.
flags_of() {
  printf '%s %s' '-O2 -fstack-protector-strong -ffile-prefix-map=SOURCES=.' "$(processor_flags "$1")" | sed 's/ $//'
}

# --- Where the libraries stand ---------------------------------------------------------------

# folder_of ARCHITECTURE: named for all that the libraries are made of, so that a change of it makes
# new ones and two versions of the project can stand side by side.
folder_of() {
  local key
  key=$({ printf '%s\n' "$packages" "$licences" "$(flags_of "$1")"
    "$1-w64-mingw32-g++-posix" --version
    cat "$googletest/CMakeLists.txt" 2>/dev/null || true
    declare -f $(recipes) cross_cmake cross_configure write_pkg_config install_licences; } | sha256sum)
  printf '%s\n' "$cache/$1-${key:0:16}"
}

recipes() {
  compgen -A function recipe_
}

# --- Sources ---------------------------------------------------------------------------------

# A list of its own with the source packages of the Debian archives that this machine has, the release
# before its updates: apt's own lists and sources stay as they are.
source_apt() {
  local command=$1
  shift
  "$command" -q -o Dir::Etc::SourceList="$cache/apt/sources.list" -o Dir::Etc::SourceParts=/dev/null \
    -o Dir::State::Lists="$cache/apt/lists" -o Dir::Cache="$cache/apt/cache" "$@"
}

list_sources() {
  mkdir -p "$cache/apt/lists/partial" "$cache/apt/cache"
  debian_archives | sed "s|^|deb-src [signed-by=$debian_keyring] |" >"$cache/apt/sources.list"
  [ -s "$cache/apt/sources.list" ] || stop "apt knows of no Debian archive; run apt-get update first."
  source_apt apt-get update
}

# fetch_source NAME VERSION: the package's files, which apt compares with the hashes of the signed
# lists.
fetch_source() {
  local offered
  offered=$(source_apt apt-cache showsrc --only-source "$1" | sed -n 's/^Version: //p' | tr '\n' ' ')
  [[ " $offered" == *" $2 "* ]] ||
    stop "Debian has $1 ${offered:-no more }now and not $2: change the table in $0."
  cd "$cache/sources"
  if [ "$1" = pixman ]; then
    source_apt apt-get source --dsc-only "$1=$2"
    source_apt apt-get source --tar-only "$1=$2"
  else
    source_apt apt-get source --download-only "$1=$2"
  fi
}

# unpack_source DESCRIPTION FOLDER: dpkg-source compares the files with the description's hashes.
unpack_source() {
  if [[ $1 == */pixman_* ]]; then
    (cd "$cache/sources" && grep -E '^ [0-9a-f]{64} .*\.orig\.tar' "$1" |
      sed -E 's/^ ([0-9a-f]+) [0-9]+ /\1  /' | sha256sum --check)
    mkdir "$2"
    tar -xf "${1%-*}.orig.tar.gz" -C "$2" --strip-components 1
  else
    dpkg-source -x "$1" "$2"
  fi
}

# unpack_sources FOLDER: the sources of each package in a folder of its name.
unpack_sources() {
  mkdir -p "$cache/sources" "$1"
  local name version hash description listed=
  while read -r name version hash; do
    [ -n "$name" ] || continue
    description=$cache/sources/${name}_${version#*:}.dsc
    if [ ! -f "$description" ]; then
      [ -n "$listed" ] || list_sources
      listed=yes
      (fetch_source "$name" "$version")
    fi
    sha256sum --check <<<"$hash  $description"
    unpack_source "$description" "$1/$name"
    settle_generated_files "$1/$name"
  done <<<"$packages"
}

# Debian's changes leave some files older than what they were generated from; make would go and look
# for the tools that generate them.
settle_generated_files() {
  local name
  for name in aclocal.m4 configure '*.h.in' Makefile.in; do
    find "$1" -name "$name" -exec touch {} +
  done
}

# --- Recipes: each builds one library for $target into $prefix, in the current folder ---------

cross_cmake() {
  local source=$1
  shift
  cmake -G Ninja -S "$source" -B . -DCMAKE_SYSTEM_NAME=Windows -DCMAKE_SYSTEM_PROCESSOR="$architecture" \
    -DCMAKE_C_COMPILER="$target-gcc-posix" -DCMAKE_CXX_COMPILER="$target-g++-posix" \
    -DCMAKE_RC_COMPILER="$target-windres" -DCMAKE_FIND_ROOT_PATH="$prefix" \
    -DCMAKE_FIND_ROOT_PATH_MODE_LIBRARY=ONLY -DCMAKE_FIND_ROOT_PATH_MODE_INCLUDE=ONLY \
    -DCMAKE_FIND_ROOT_PATH_MODE_PACKAGE=ONLY -DCMAKE_FIND_ROOT_PATH_MODE_PROGRAM=NEVER \
    -DCMAKE_BUILD_TYPE=None -DCMAKE_C_FLAGS="$flags" -DCMAKE_CXX_FLAGS="$flags" \
    -DCMAKE_INSTALL_PREFIX="$prefix" -DCMAKE_INSTALL_LIBDIR=lib -DBUILD_SHARED_LIBS=OFF "$@"
}

cross_configure() {
  local source=$1
  shift
  env CC="$target-gcc-posix" CFLAGS="$flags" CPPFLAGS="-I$prefix/include" LDFLAGS="-L$prefix/lib" \
    PKG_CONFIG_LIBDIR="$prefix/lib/pkgconfig" \
    "$source/configure" --host="$target" --prefix="$prefix" --disable-shared --enable-static "$@"
}

# write_pkg_config NAME VERSION LIBS [REQUIRES [CFLAGS]]: what the library's own build leaves out, or
# says for shared libraries alone.
write_pkg_config() {
  mkdir -p "$prefix/lib/pkgconfig"
  cat >"$prefix/lib/pkgconfig/$1.pc" <<END
prefix=\${pcfiledir}/../..
Name: $1
Description: $1
Version: $2
Requires: ${4:-}
Libs: -L\${prefix}/lib $3
Cflags: -I\${prefix}/include ${5:-}
END
}

recipe_zlib() {
  cross_cmake "$sources/zlib"
  ninja zlibstatic
  install -D -m 644 libzlibstatic.a "$prefix/lib/libz.a"
  install -D -m 644 -t "$prefix/include" "$sources/zlib/zlib.h" zconf.h
  write_pkg_config zlib 1.2.13 -lz
}

recipe_libdeflate() {
  make -C "$sources/libdeflate" -j "$jobs" CC="$target-gcc-posix" AR="$target-ar" CFLAGS="$flags" \
    libdeflatestatic.lib
  install -D -m 644 "$sources/libdeflate/libdeflatestatic.lib" "$prefix/lib/libdeflate.a"
  install -D -m 644 -t "$prefix/include" "$sources/libdeflate/libdeflate.h"
  write_pkg_config libdeflate 1.14 -ldeflate
}

recipe_libpng1.6() {
  cross_cmake "$sources/libpng1.6" -DPNG_SHARED=OFF -DPNG_TESTS=OFF -DPNG_EXECUTABLES=OFF
  ninja install
  write_pkg_config libpng 1.6.39 -lpng16 zlib
}

recipe_libjpeg-turbo() {
  cross_cmake "$sources/libjpeg-turbo" -DENABLE_SHARED=OFF -DWITH_TURBOJPEG=OFF -DREQUIRE_SIMD=ON
  ninja jpeg-static
  install -D -m 644 libjpeg.a "$prefix/lib/libjpeg.a"
  install -D -m 644 -t "$prefix/include" jconfig.h "$sources"/libjpeg-turbo/{jerror,jmorecfg,jpeglib}.h
  write_pkg_config libjpeg 2.1.5 -ljpeg
}

# Like Debian's, but for what the fonts of documents never need: bzip2, Brotli and hints of HarfBuzz.
recipe_freetype() {
  cross_cmake "$sources/freetype" -DFT_REQUIRE_ZLIB=ON -DFT_REQUIRE_PNG=ON \
    -DFT_DISABLE_BZIP2=ON -DFT_DISABLE_BROTLI=ON -DFT_DISABLE_HARFBUZZ=ON
  ninja install
  write_pkg_config freetype2 24.3.18 -lfreetype 'zlib libpng' '-I${prefix}/include/freetype2'
}

# Shaper and subsetter as one object: as two static libraries they define some names twice.
recipe_harfbuzz() {
  local source=$sources/harfbuzz/src
  "$target-g++-posix" $flags -std=c++11 -DNDEBUG -fno-exceptions -fno-rtti -fno-threadsafe-statics \
    -I"$source" -c "$source/harfbuzz-subset.cc" -o harfbuzz.o
  mkdir -p "$prefix/lib"
  rm -f "$prefix/lib/libharfbuzz.a"
  "$target-ar" rcs "$prefix/lib/libharfbuzz.a" harfbuzz.o
  install -D -m 644 -t "$prefix/include/harfbuzz" "$source"/hb*.h
  local name
  for name in harfbuzz harfbuzz-subset; do
    write_pkg_config $name 6.0.0 -lharfbuzz '' '-I${prefix}/include/harfbuzz'
  done
}

recipe_fribidi() {
  flags="$flags -DFRIBIDI_LIB_STATIC" cross_configure "$sources/fribidi" --disable-deprecated
  make -j "$jobs" -C gen.tab
  make -j "$jobs" -C lib install
  write_pkg_config fribidi 1.0.8 -lfribidi '' '-I${prefix}/include/fribidi -DFRIBIDI_LIB_STATIC'
}

recipe_pixman() {
  cross_configure "$sources/pixman" --disable-gtk --disable-libpng --disable-openmp
  make -j "$jobs" -C pixman install
  write_pkg_config pixman-1 0.42.2 -lpixman-1 '' '-I${prefix}/include/pixman-1'
}

# Bitmaps are drawn with it, glyphs and all other outputs are the component's own.
recipe_cairo() {
  local without
  without=$(printf -- '--disable-%s ' xlib xcb quartz win32 win32-font ft fc ps pdf svg script gobject \
    trace interpreter symbol-lookup valgrind gtk-doc)
  # It opens files by names in UTF-16, of which it thinks that only the parts left out want them.
  flags="$flags -DCAIRO_WIN32_STATIC_BUILD -DCAIRO_HAS_UTF8_TO_UTF16=1 -Wno-error" \
    cross_configure "$sources/cairo" --without-x --enable-png $without
  # Its lengths are checked by functions that this compiler's library lacks.
  sed -i 's/-Wp,-D_FORTIFY_SOURCE=2//' Makefile src/Makefile
  make -j "$jobs" -C src install
  write_pkg_config cairo 1.16.0 -lcairo 'pixman-1 libpng' \
    '-I${prefix}/include/cairo -DCAIRO_WIN32_STATIC_BUILD'
}

recipe_googletest() {
  cross_cmake "$googletest"
  ninja install
}

install_licences() {
  local name files
  while read -r name files; do
    [ -z "$name" ] ||
      (cd "$sources/$name" && install -D -m 644 -t "$prefix/share/licences/$name" $files)
  done <<<"$licences"
}

# --- Building --------------------------------------------------------------------------------

# run_logged LOG COMMAND...: stops when any step of the command fails, and shows what it said last.
run_logged() {
  local log=$1
  shift
  # In the background, for a command whose failure is asked for goes on after its own failing steps.
  (set -e; "$@") >"$log" 2>&1 &
  wait $! || { tail -n 40 "$log" >&2; stop "$* failed ($log)."; }
}

# build_in_turn WORK LIBRARY...
build_in_turn() {
  local work=$1 library
  shift
  for library in "$@"; do
    mkdir -p "$work/$library"
    cd "$work/$library"
    run_logged "$work/$library.log" "recipe_$library"
  done
}

build_libraries() (
  architecture=$1
  target=$1-w64-mingw32
  flags=$(flags_of "$1")
  folder=$(folder_of "$1")
  [ ! -f "$folder/complete" ] || return 0
  say "Building the libraries for $1 in $folder"
  work=$folder.work
  rm -rf "$work" "$folder"
  mkdir -p "$work"
  run_logged "$work/sources.log" unpack_sources "$work/sources"
  sources=$work/sources
  flags=${flags/SOURCES/$sources}
  prefix=$folder
  jobs=$(nproc)
  # What takes longest, and only one processor, beside all the rest.
  build_in_turn "$work" harfbuzz googletest &
  local beside=$!
  build_in_turn "$work" zlib libpng1.6 freetype libdeflate libjpeg-turbo fribidi pixman cairo
  wait "$beside"
  install_licences
  touch "$folder/complete"
  rm -rf "$work"
)

if [ "${1:-}" = --folder ]; then
  folder_of "$2"
  exit
elif [ "${1:-}" = --processor ]; then
  processor_flags "$2"
  exit
fi
for architecture in "${@:-x86_64}"; do
  build_libraries "$architecture"
done
