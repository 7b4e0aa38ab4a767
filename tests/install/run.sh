#!/usr/bin/env bash
# Installs the build folder $1 into a scratch folder, builds the host beside this script from there,
# once through find_package and once through pkg-config, runs both and reads the PDF back; with
# windows, when the build has them, also a host that shows its preview.
set -euo pipefail
build=$1
host=$(dirname "$(readlink -f "$0")")/host
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
flags=$(sed -n 's/^PAGIVO_SANITIZE:BOOL=ON$/-fsanitize=address,undefined/p' "$build/CMakeCache.txt")

cmake --install "$build" --prefix "$scratch/prefix" >"$scratch/log" || { cat "$scratch/log"; exit 1; }

run_and_read() {
  (cd "$1" && "$2" && pdftotext eerste.pdf - | grep -qx Goedemorgen)
  [ "$(pdfinfo "$1/eerste.pdf" | sed -n 's/^Pages: *//p')" = 1 ]
}

windows=$(sed -n 's/^PAGIVO_QT:BOOL=//p' "$build/CMakeCache.txt")

cmake -S "$host" -B "$scratch/cmake" -DCMAKE_PREFIX_PATH="$scratch/prefix" -DCMAKE_CXX_FLAGS="$flags" \
  -DWINDOWS="$windows" >"$scratch/log"
cmake --build "$scratch/cmake" >"$scratch/log" || { cat "$scratch/log"; exit 1; }
run_and_read "$scratch/cmake" ./host
case $windows in ON | TRUE | 1) QT_QPA_PLATFORM=offscreen "$scratch/cmake/window_host" ;; esac

mkdir "$scratch/pkgconfig"
pc=$(dirname "$(find "$scratch/prefix" -name pagivo.pc)")
sed -i "s|^prefix=.*|prefix=$scratch/prefix|" "$pc/pagivo.pc"
# shellcheck disable=SC2046
g++ -std=c++20 $flags "$host/main.cpp" -o "$scratch/pkgconfig/host" \
  $(PKG_CONFIG_PATH=$pc pkg-config --cflags --libs pagivo)
run_and_read "$scratch/pkgconfig" ./host
echo "installed, built twice, read back"
