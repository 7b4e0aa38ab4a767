#!/usr/bin/env bash
# The README's first program as a host on Windows that links the library itself: built from an
# installation with CMake and with pkg-config, and run.
#
#   tests/install/windows_host.sh BUILD ARCHITECTURE EMULATOR...    EMULATOR runs programs of Windows
set -euo pipefail
project=$(dirname "$(readlink -f "$0")")/../..
build=$1 architecture=$2 emulator=("${@:3}")
work=$build/host_test
libraries=$("$project/tools/build_windows_libraries.sh" --folder "$architecture")

# block LANGUAGE: the program's block of code of that language in the README
block() {
  sed -n '/^## A first program/,/^## /p' "$project/README.md" | sed -n "/^\`\`\`$1\$/,/^\`\`\`\$/p" |
    sed '/^```/d'
}

# expect_document PROGRAM: writes the document into the current folder
expect_document() {
  rm -f eerste.pdf
  "${emulator[@]}" "$1"
  [ "$(pdftotext eerste.pdf - | tr -d '\n\f')" = Goedemorgen ]
}

rm -rf "$work"
mkdir -p "$work"
cmake --install "$build" --prefix "$work/before" >"$work/install.log"
mv "$work/before" "$work/pagivo"
cd "$work"
block cpp >main.cpp
block cmake >CMakeLists.txt

cmake -G Ninja -B with_cmake -DCMAKE_TOOLCHAIN_FILE="$project/cmake/windows/toolchain.cmake" \
  -DPAGIVO_WINDOWS_PROCESSOR="$architecture" -DPagivo_DIR="$work/pagivo/lib/cmake/Pagivo" >cmake.log
cmake --build with_cmake >>cmake.log
expect_document "$work/with_cmake/host.exe"

export PKG_CONFIG_LIBDIR=$work/pagivo/lib/pkgconfig:$libraries/lib/pkgconfig
"$architecture-w64-mingw32-g++-posix" main.cpp -o host.exe -static $(pkg-config --cflags --libs pagivo)
expect_document "$work/host.exe"
