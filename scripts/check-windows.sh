#!/usr/bin/env bash
# Checks that the runtime, the portable part of the platform layer, the
# framework and the actions compile for Windows (MinGW-w64). Where POSIX
# headers may appear is checked by check-layers.sh. Prints each failure;
# exits 1 if there was any.
set -uo pipefail
cd "$(dirname "$0")/.."

compiler=x86_64-w64-mingw32-g++-posix
if ! command -v "$compiler" >/dev/null; then
  echo "check-windows: $compiler not found (package g++-mingw-w64-x86-64-posix, see scripts/bootstrap.sh)" >&2
  exit 1
fi

mapfile -t sources < <({
  find src/rtl src/platform src/framework -maxdepth 1 -name '*.cpp'
  find src/actions -name '*.cpp'
} | sort)

failures=0
for file in "${sources[@]}"; do
  if ! output=$("$compiler" -std=c++20 -fsyntax-only -Wall -Wextra -Isrc "$file" 2>&1); then
    echo "FAIL $file:"
    echo "$output"
    failures=$((failures + 1))
  elif [ -n "$output" ]; then
    echo "$output"
  fi
done

echo "check-windows: ${#sources[@]} sources, $failures failure(s)"
[ "$failures" -eq 0 ]
