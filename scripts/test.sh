#!/usr/bin/env bash
# Sets everything up and runs the whole test suite: installs the packages,
# builds, runs every test through CTest, then checks that the plug-in and the
# runtime still compile for Windows with the MinGW-w64 cross compiler.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/bootstrap.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j"$(nproc)"
ctest --test-dir build --output-on-failure -j"$(nproc)"
bash scripts/check-windows.sh
