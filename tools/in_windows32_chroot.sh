#!/usr/bin/env bash
# Runs a command in a Debian where Wine runs 32-bit programs, too, as on a 64-bit Windows. The project
# stands there where it stands outside:
#
#   tools/in_windows32_chroot.sh [COMMAND [ARGUMENT...]]
#
# It is made at first, beside the libraries of tools/build_windows_libraries.sh, and is a folder of its
# own because Wine for 32 bits needs libraries of a second architecture in the very versions of the
# first, which a machine with updates does not have. Mounting in it needs root; what is mounted goes
# with the last program that sees it.
set -euo pipefail
project=$(dirname "$(dirname "$(readlink -f "$0")")")
. "$project/tools/common.sh"

packages=("${under_wine_packages[@]}" wine wine64 wine32:i386 mount)

# Named for all that it is made of.
folder_of_chroot() {
  local key
  key=$({ printf '%s\n' "${packages[@]}"; declare -f make_chroot; } | sha256sum)
  printf '%s\n' "$windows_cache/chroot-${key:0:16}"
}

# From the archive alone, without its updates: so both architectures have the same versions.
make_chroot() {
  local release
  release=$(debian_archives | grep -E ' [a-z]+ main$' | head -n 1)
  [ -n "$release" ] || stop "apt knows of no Debian archive; run apt-get update first."
  mmdebstrap --mode=root --variant=essential --architectures=amd64,i386 \
    --include="${packages[*]}" --dpkgopt='path-exclude=/usr/share/doc/*' \
    '' "$1" "deb [signed-by=$debian_keyring] $release"
}

need_root
chroot=$(folder_of_chroot)
mkdir -p "$windows_cache"
# Several programs may start at once.
exec 9>"$chroot.lock"
flock 9
if [ ! -f "$chroot/complete" ]; then
  say "Making a Debian for 32-bit programs in $chroot" >&2
  rm -rf --one-file-system "$chroot"
  make_chroot "$chroot" >"$chroot.log" 2>&1 ||
    { tail -n 20 "$chroot.log" >&2; stop "mmdebstrap failed ($chroot.log)."; }
  touch "$chroot/complete"
fi
exec 9>&-

[ $# -gt 0 ] || exit 0
exec unshare --mount bash -e -c '
  chroot=$1 project=$2
  shift 2
  mount --bind "$chroot" "$chroot"  # a mount of its own, for who wants mounts of their own in there
  mkdir -p "$chroot$project"
  mount --bind /proc "$chroot/proc"
  mount --rbind /dev "$chroot/dev"
  mount --bind "$project" "$chroot$project"
  exec chroot "$chroot" env --chdir="$PWD" "$@"' in_chroot "$chroot" "$project" "$@"
