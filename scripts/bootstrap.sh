#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the benchmarks need.
# Safe to run again: apt-get skips what is already there.
set -euo pipefail

packages=(
  build-essential cmake pkg-config
  libpugixml-dev libcli11-dev libfmt-dev libsodium-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  g++-mingw-w64-x86-64-posix
  hyperfine strace
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo_cmd=()
[ "$(id -u)" -eq 0 ] || sudo_cmd=(sudo)
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
