#!/usr/bin/env bash
# What a user does with the package for Windows, in a Windows that knows nothing of the component:
# unpacks it, registers the server for everybody or for one user, writes documents from a script and
# from a program in C++, and takes the server away again.
#
#   tests/install/windows_package.sh ZIP ARCHITECTURE BUILD    BUILD holds the example of the library
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/../.."
. tools/common.sh

zip=$1 architecture=$2 build=$3
work=$PWD/build/package_test/$architecture
prefix=$work/wine
installed="$prefix/drive_c/Program Files/Pagivo"
case $architecture in
  x86_64) wine=(tools/under_wine.sh) system=system32 servers=x64 ;;
  i686) wine=(tools/in_windows32_chroot.sh tools/under_wine.sh) system=syswow64 servers=x86 ;;
esac
server="C:\\Program Files\\Pagivo\\$servers\\pagivo.dll"

# run PROGRAM [ARGUMENT...]
run() {
  "${wine[@]}" "$prefix" "$@"
}

# run_system PROGRAM [ARGUMENT...]: the system's program of this width
run_system() {
  run "C:\\windows\\$system\\$1" "${@:2}"
}

# on_windows FILE: its name there
on_windows() {
  printf 'Z:%s' "${1//\//\\}"
}

# What programs of either width are told of classes and everything else, but for what Wine tells itself.
export_registry() {
  local key
  for key in HKEY_LOCAL_MACHINE HKEY_CURRENT_USER; do
    run 'C:\windows\regedit.exe' /E "$(on_windows "$1.part")" "$key\\Software"
    iconv -f UTF-16 "$1.part"
  done | sed -E '/^\[HKEY_CURRENT_USER\\Software\\Wine\\/,/^\r?$/d' >"$1"
}

# Every library inside the server comes with its licence.
expect_licences() {
  local library
  for library in $(sed -n "/^packages='/,/^'/p" tools/build_windows_libraries.sh | awk 'NF == 3 { print $1 }'); do
    expect "the licence of $library is missing" [ -s "$(find "$installed/licences/$library" -type f -print -quit)" ]
  done
}

compile_program() {
  (cd "$installed/examples/windows" &&
    "$architecture-w64-mingw32-g++-posix" -std=c++20 -Wall -Wextra -Werror -municode -static \
      -I ../../include rapport.cpp -o rapport.exe -lole32 -loleaut32)
}

# run_script SCRIPT PDF
run_script() {
  rm -f "$work/$2"
  run_system cscript.exe //nologo "C:\\Program Files\\Pagivo\\examples\\windows\\$1" "$(on_windows "$work/$2")"
}

write_documents() {
  run_script eerste_document.vbs first.pdf
  run_script rapport.vbs script.pdf
  run_program
}

run_program() {
  rm -f "$work/program.pdf"
  run "$installed/examples/windows/rapport.exe" "$(on_windows "$work/program.pdf")"
}

# words_of PDF: the words of its first three pages, with their places
words_of() {
  pdftotext -bbox -l 3 "$1" - | grep '<word'
}

# pictures_of PDF NAME: its second and third page as pictures. On the first, the library's example has a
# drawing where hosts on Windows have a picture of it.
pictures_of() {
  mutool draw -q -r 96 -o "$work/$2-%d.ppm" "$1" 2-3 2>"$work/mutool.log"
}

expect() {
  "${@:2}" || stop "$1 ($work)"
}

expect_documents() {
  local file page
  for file in first script program; do
    qpdf --check "$work/$file.pdf" >"$work/qpdf.log" || stop "$file.pdf is no proper PDF ($work/qpdf.log)"
  done
  expect "the first document says something else" \
    [ "$(pdftotext "$work/first.pdf" - | tr -d '\n\f')" = Goedemorgen ]
  expect "script and program write different files" cmp "$work/script.pdf" "$work/program.pdf"
  expect "the report has other words than the library's" \
    cmp <(words_of "$work/script.pdf") <(words_of "$work/library/report.pdf")
  pictures_of "$work/script.pdf" script
  for page in 2 3; do
    expect "page $page looks different" cmp "$work/script-$page.ppm" "$work/library/page-$page.ppm"
  done
}

# Neither script nor program finds the component.
finds_nothing() {
  run_script eerste_document.vbs first.pdf || true
  [ ! -e "$work/first.pdf" ] && ! run_program 2>"$work/program.log" &&
    grep -q 'Pagivo is niet geregistreerd' "$work/program.log"
}

try_everybody() {
  say "Trying $servers/pagivo.dll, registered for everybody"
  # A script that finds nothing also has its host put what is its own into the registry.
  expect "the component is registered already" finds_nothing
  export_registry "$work/before"
  run_system regsvr32.exe /s "$server"
  write_documents
  expect_documents
  run_system regsvr32.exe /s /u "$server"
  export_registry "$work/after"
  expect "the registry is not as before" cmp "$work/before" "$work/after"
  expect "the component is still registered" finds_nothing
}

# Keys that users have on every Windows, and under Wine when something has made them.
make_keys_of_user() {
  local key
  for key in CLSID Interface TypeLib; do
    run_system reg.exe add "HKCU\\Software\\Classes\\$key" /f >"$work/reg.log"
  done
}

# Wine 8 finds classes by what is registered for everybody, so that here the registry tells the rest.
try_one_user() {
  say "Registering $servers/pagivo.dll for one user"
  run_system regsvr32.exe /s /n /i:user "$server"
  export_registry "$work/with_user"
  diff "$work/before" "$work/with_user" >"$work/user.diff" || true
  expect "other keys than the user's have changed" \
    [ -z "$(grep -E '^<|^> \[' "$work/user.diff" | grep -v '^> \[HKEY_CURRENT_USER\\Software\\Classes')" ]
  expect "the class of one user is not the server's" \
    grep -qF "@=\"${server//\\/\\\\}\"" "$work/user.diff"
  run_system regsvr32.exe /s /u /n /i:user "$server"
  export_registry "$work/after"
  expect "the registry is not as before" cmp "$work/before" "$work/after"
}

rm -rf "$work"
mkdir -p "$work/library"
run "$PWD/$build/examples/plumeo/plumeo.exe" --pdf "$(on_windows "$work/library/report.pdf")"
pictures_of "$work/library/report.pdf" library/page
mkdir -p "$installed"
unzip -q "$zip" -d "$installed"
expect_licences
make_keys_of_user
compile_program
try_everybody
try_one_user
