# What the commands at the root share: telling, stopping, installing and building.
# Sourced by ./demo and ./check with the project's root as the current folder.

build_packages=(
  g++ cmake ninja-build pkg-config
  libfontconfig-dev libfreetype-dev libharfbuzz-dev libfribidi-dev libcairo2-dev
  libgdk-pixbuf-2.0-dev librsvg2-dev libxml2-dev libpng-dev libjpeg62-turbo-dev libdeflate-dev libcups2-dev
  libgnutls28-dev
  qt6-base-dev libxcb1-dev qt6-translations-l10n
  fonts-liberation fonts-dejavu-core
)
test_packages=(
  clang-format python3 libgtest-dev libgmock-dev zlib1g-dev
  cups-daemon cups-core-drivers cups-client cups-ipp-utils dbus-daemon
  poppler-utils mupdf-tools qpdf imagemagick locales file fonts-urw-base35
  xvfb openbox xdotool x11-utils
)

# What `./check all` needs besides, and the benchmarks.
all_packages=(clang-tidy libbenchmark-dev libhpdf-dev)
# What the Windows edition is built with,
windows_packages=(
  cmake ninja-build pkg-config dpkg-dev ca-certificates make nasm mingw-w64-tools
  googletest zip unzip
)
# what its tests ask, where Wine runs them,
under_wine_packages=(
  fonts-wine fonts-liberation fonts-dejavu-core fonts-dejavu-extra fonts-urw-base35 fontconfig
  poppler-utils mupdf-tools qpdf
)
# and what either width has of its own: a compiler, and Wine or what makes a Debian that has it.
windows64_packages=(g++-mingw-w64-x86-64-posix wine64)
windows32_packages=(g++-mingw-w64-i686-posix mmdebstrap)
# What the fuzzers need.
fuzz_packages=(clang libclang-rt-14-dev zlib1g-dev)

# Where the Windows edition keeps what outlives every build folder.
windows_cache=${PAGIVO_WINDOWS_LIBRARIES:-$HOME/.cache/pagivo/windows}
debian_keyring=/usr/share/keyrings/debian-archive-keyring.gpg

# The Debian archives that this machine's apt knows, as "LOCATION RELEASE COMPONENT", the release before its
# updates.
debian_archives() {
  apt-get indextargets --format '$(ORIGIN) $(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' |
    sed -n 's/^Debian //p' | sort -u -k 2
}

say() { printf '== %s\n' "$*"; }

stop() {
  printf 'Cannot go on: %s\n' "$*" >&2
  exit 1
}

need_root() {
  [ "$(id -u)" -eq 0 ] ||
    stop "$0 needs root: 32-bit programs of Windows run in a Debian of their own, in which it mounts folders."
}

# Installs those of the named Debian packages that are missing.
install_packages() {
  command -v dpkg-query >/dev/null || stop "this needs a Debian system (dpkg and apt-get)."
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  say "Installing ${missing[*]}"
  # The package lists may never have been fetched, or be old: fetch them when the first try fails.
  apt_get install -y --no-install-recommends "${missing[@]}" ||
    { apt_get update && apt_get install -y --no-install-recommends "${missing[@]}"; } ||
    { tail -n 20 build/apt.log >&2; stop "apt-get could not install ${missing[*]} (build/apt.log)."; }
}

# apt-get as root, its output in build/apt.log.
apt_get() {
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || stop "not root and no sudo; as root, run: apt-get $*"
    as_root=(sudo)
  fi
  mkdir -p build
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q "$@" >build/apt.log 2>&1
}

# build_preset PRESET [-DOPTION=VALUE...] [TARGET...]: configures and builds. Does next to nothing when
# nothing has changed.
build_preset() {
  local preset=$1 options=()
  shift
  while [[ ${1:-} == -D* ]]; do
    options+=("$1")
    shift
  done
  mkdir -p build
  say "Building build/$preset"
  options+=("-DCMAKE_CXX_COMPILER_LAUNCHER=$(command -v ccache || true)")
  # Once more afresh, for a folder of other libraries.
  cmake --preset "$preset" "${options[@]}" >"build/$preset.log" 2>&1 ||
    cmake --fresh --preset "$preset" "${options[@]}" >"build/$preset.log" 2>&1 ||
    { tail -n 30 "build/$preset.log" >&2; stop "configuring failed (build/$preset.log)."; }
  cmake --build --preset "$preset" ${1:+--target "$@"} >"build/$preset.log" 2>&1 ||
    { grep -vE '^\[[0-9]+/[0-9]+\] (Building|Linking)' "build/$preset.log" | tail -n 60 >&2
      stop "the build failed (build/$preset.log)."; }
}
