#!/usr/bin/env bash
# Every C++ file is formatted as .clang-format says.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
find include src tests examples bench fuzz -name '*.h' -o -name '*.cpp' | sort |
  xargs clang-format --dry-run --Werror
