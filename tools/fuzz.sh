#!/usr/bin/env bash
# Runs a fuzzer's program over its seeds: tools/fuzz.sh TARGET SECONDS [OPTION OF LIBFUZZER...];
# without arguments it builds the programs and names them. See fuzz/README.md.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. tools/common.sh

programs=$PWD/build/fuzz/fuzz
if [ $# -lt 2 ]; then
  install_packages "${build_packages[@]}" "${fuzz_packages[@]}"
  build_preset fuzz
  find "$programs" -maxdepth 1 -name 'pagivo_fuzz_*' -type f -executable -printf '%f\n' | sed 's/^pagivo_fuzz_//' | sort
  exit
fi

target=$1 seconds=$2
shift 2
program=$programs/pagivo_fuzz_$target
[ -x "$program" ] || stop "there is no such fuzzer; tools/fuzz.sh builds and names them."
corpus=$PWD/build/fuzz/corpus/$target
mkdir -p "$corpus"
# Under names that tell them from what the fuzzer finds.
while read -r seed; do
  [ -z "$seed" ] || cp "$seed" "$corpus/seed_$(basename "$seed")"
done <"$program.seeds"
exec "$program" -max_total_time="$seconds" -timeout=25 -rss_limit_mb=2048 -print_final_stats=0 \
  -dict="$PWD/fuzz/dictionaries/$target.dict" "$@" "$corpus"
