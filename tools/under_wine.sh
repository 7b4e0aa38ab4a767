#!/usr/bin/env bash
# Runs a program of the Windows edition under Wine, in a prefix of its own, which is made at first:
#
#   tools/under_wine.sh PREFIX PROGRAM [ARGUMENT...]
#
# The prefix has no display, Wine's own fonts and the machine's, and a folder of its own for temporary
# files. A program may run as many seconds as PAGIVO_WINE_TIMEOUT says (300): one whose libraries Wine
# cannot load would hang.
set -euo pipefail
export WINEPREFIX=$1
shift
export WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all} LC_ALL=C.UTF-8
# No debugger that waits for a user, and nothing that Wine would fetch from the network.
export WINEDLLOVERRIDES='winedbg.exe=d;mscoree=d;mshtml=d;winemenubuilder.exe=d'
unset DISPLAY WAYLAND_DISPLAY
wine=/usr/lib/wine/wine64

# Wine's server would end with its last program, and a program that starts just then finds neither that one
# nor room for another. So it stays for the next program for half a minute. It says no when one runs already.
start_server() {
  /usr/lib/wine/wineserver -p30 9>&- </dev/null >/dev/null 2>&1 || true
}

# copy_fonts FOLDER...: a font is found by its file in the folder of fonts and its name in the registry.
copy_fonts() {
  local fonts=$WINEPREFIX/drive_c/windows/Fonts file
  local key='HKEY_LOCAL_MACHINE\Software\Microsoft\Windows NT\CurrentVersion\Fonts'
  mkdir -p "$fonts"
  {
    printf 'REGEDIT4\n\n[%s]\n' "$key"
    for file in "$@"; do
      cp "$file" "$fonts/"
      printf '"%s (TrueType)"="%s"\n' "$(fc-scan --format '%{fullname[0]}' "$file")" "${file##*/}"
    done
  } >"$WINEPREFIX/fonts.reg"
  timeout 120 "$wine" regedit "$WINEPREFIX/fonts.reg"
}

make_prefix() {
  rm -rf "$WINEPREFIX"
  mkdir -p "$WINEPREFIX"
  start_server
  timeout 300 "$wine" wineboot -i
  timeout 120 "$wine" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f
  # Where programs of Linux find the files of tests, too.
  local folder
  mkdir -p "$WINEPREFIX/temporary"
  folder=$(realpath "$WINEPREFIX/temporary")
  timeout 120 "$wine" reg add 'HKCU\Environment' /v TMP /d "Z:${folder//\//\\}" /f
  timeout 120 "$wine" reg add 'HKCU\Environment' /v TEMP /d "Z:${folder//\//\\}" /f
  # Those of the machine Wine finds itself. Copies of them it would take out of the registry.
  copy_fonts /usr/share/wine/fonts/*.ttf
  # A server that still runs knows the settings of before.
  /usr/lib/wine/wineserver -k || true
  recipe >"$WINEPREFIX/complete"
}

# What a prefix is made by: one that was made otherwise, by an older project in the same folder, lacks
# what programs rely on, and is made anew.
recipe() {
  declare -f copy_fonts make_prefix
}

# Several programs may start at once.
mkdir -p "$(dirname "$WINEPREFIX")"
exec 9>"$WINEPREFIX.lock"
flock 9
if ! recipe | cmp -s - "$WINEPREFIX/complete"; then
  trap 'tail -n 20 "$WINEPREFIX.log" >&2' EXIT
  make_prefix >"$WINEPREFIX.log" 2>&1
fi
start_server
exec 9>&-
exec timeout "${PAGIVO_WINE_TIMEOUT:-300}" "$wine" "$@"
