#!/usr/bin/env bash
# Makes what a host on Windows gets, build/pagivo-VERSION-windows.zip, and tests it as its user would.
# The same sources make the same file, whoever makes it where and when.
#
#   tools/package_windows.sh           with the servers for 64 and 32 bits; as root only
#   tools/package_windows.sh x86_64    with one, and its processor in the file's name (i686 for 32 bits)
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. tools/common.sh

# The first time that zip files know; what Debian's linker and strip write into servers, too.
export SOURCE_DATE_EPOCH=315532800 TZ=UTC LC_ALL=C.UTF-8
folder=$PWD/build/package

case ${1:-both} in
  both) architectures=(x86_64 i686) part= ;;
  x86_64 | i686) architectures=("$1") part=-$1 ;;
  *) stop "$0 knows no processor $1." ;;
esac

preset_of() {
  case $1 in
    x86_64) printf windows64 ;;
    i686) printf windows32 ;;
  esac
}

install_what_is_needed() {
  install_packages "${windows_packages[@]}" "${under_wine_packages[@]}"
  case $1 in
    x86_64) install_packages "${windows64_packages[@]}" ;;
    i686) install_packages "${windows32_packages[@]}" ;;
  esac
  tools/build_windows_libraries.sh "$1"
}

# install_for PRESET: with the report that the example of the library makes, for the test.
install_for() {
  build_preset "$1" pagivo_server plumeo
  cmake --install "build/$1" --component package --prefix "$folder" --strip >"build/$1.package.log"
}

zip_folder() {
  rm -f "$1"
  find "$folder" -exec touch -d "@$SOURCE_DATE_EPOCH" {} +
  (cd "$folder" && find . -type f -printf '%P\n' | LC_ALL=C sort | zip -q -X -9 "$1" -@)
}

rm -rf "$folder"
for architecture in "${architectures[@]}"; do
  install_what_is_needed "$architecture"
  preset=$(preset_of "$architecture")
  install_for "$preset"
done
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "build/$preset/CMakeCache.txt")
zip=$PWD/build/pagivo-$version-windows$part.zip
say "Packing $zip"
zip_folder "$zip"
for architecture in "${architectures[@]}"; do
  tests/install/windows_package.sh "$zip" "$architecture" "build/$(preset_of "$architecture")"
done
