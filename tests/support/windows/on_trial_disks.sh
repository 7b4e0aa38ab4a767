#!/usr/bin/env bash
# Runs a program of the Windows edition under Wine where disks are small, only to be read, or forbidden:
#
#   tests/support/windows/on_trial_disks.sh PREFIX PROGRAM [ARGUMENT...]
#
# They are in the folder that PAGIVO_TRIAL_DISKS names, and in a copy of Wine's prefix, for it is Wine's
# server that opens files. Nobody else sees them: they are mounted in a namespace of mounts, which takes
# root or a kernel that lets users have such namespaces.
set -euo pipefail
script=$(readlink -f "$0")
under_wine=${script%/tests/*}/tools/under_wine.sh

if [ "$1" != inside ]; then
  "$under_wine" "$1" cmd /c exit  # which makes the prefix
  users=()
  [ "$(id -u)" -eq 0 ] || users=(--map-root-user)
  exec unshare --mount "${users[@]}" "$script" inside "$@"
fi
shift
prefix=$1-disks
rm -rf "$prefix"
mkdir -p "$prefix/disks"
cp -al "$1/drive_c" "$prefix/"
cp -a "$1/dosdevices" "$1"/*.reg "$1/complete" "$1/.update-timestamp" "$prefix/"
shift
export PAGIVO_TRIAL_DISKS=$prefix/disks
cd "$PAGIVO_TRIAL_DISKS"

mkdir small readonly forbidden secret links links/folder
mount -t tmpfs -o size=64k tmpfs small
echo -n oud >small/oud.pdf
mount -t tmpfs -o size=64k tmpfs readonly
echo -n oud >readonly/oud.pdf
mount -o remount,ro readonly
echo -n oud >forbidden/oud.pdf
chmod 555 forbidden
echo -n oud >secret/oud.pdf
chmod 000 secret
echo -n oud >links/folder/oud.pdf
ln -s folder/oud.pdf links/file.pdf
ln -s folder links/to_folder
ln -s endless.pdf links/endless.pdf
mkdir -p "$prefix/dosdevices/unc/server/map"
echo -n oud >"$prefix/dosdevices/unc/server/map/oud.pdf"

# Root may not do what permissions forbid, either.
status=0
setpriv --bounding-set=-dac_override,-dac_read_search "$under_wine" "$prefix" "$@" || status=$?
WINEPREFIX=$prefix /usr/lib/wine/wineserver -k || true
exit "$status"
