#!/usr/bin/env bash
# Sets everything up and runs the whole test suite: installs the packages,
# checks the include rules, builds with warnings as errors (benchmarks too)
# and runs every test through CTest, runs them again in a build with
# AddressSanitizer and UndefinedBehaviorSanitizer, then checks that the
# plug-in and the runtime still compile for Windows with MinGW-w64.
set -euo pipefail
cd "$(dirname "$0")/.."
jobs=$(nproc)

bash scripts/bootstrap.sh
bash scripts/check-layers.sh

cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DJX_WERROR=ON -DJX_BUILD_BENCH=ON >/dev/null
cmake --build build -j"$jobs"
ctest --test-dir build --output-on-failure -j"$jobs"

cmake -S . -B build-asan -DCMAKE_BUILD_TYPE=Debug -DJX_SANITIZE=ON >/dev/null
cmake --build build-asan -j"$jobs"
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
  ctest --test-dir build-asan --output-on-failure -j"$jobs"

bash scripts/check-windows.sh
