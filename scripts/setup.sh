#!/usr/bin/env bash
# Installs Debian packages, only those missing: the ones named as arguments,
# or, with none, every package the project builds with.
#   bash scripts/setup.sh [PACKAGE ...]
set -euo pipefail

packages=(
  cmake g++ make pkg-config
  libgtest-dev libgmock-dev libbenchmark-dev libopencv-core-dev
  libplist-dev nlohmann-json3-dev libcli11-dev libfmt-dev libcpp-httplib-dev
  libcairo2-dev libpango1.0-dev libwebp-dev libpng-dev
  fonts-inter fonts-dejavu-core
  dpkg-dev
  clang-14 lld-14 llvm-14 libc++-14-dev libc++abi-14-dev
  libobjc-12-dev libblocksruntime-dev
)
if [ $# -gt 0 ]; then packages=("$@"); fi

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

echo "setup: installing ${missing[*]}"
sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null; then
    echo "setup: not root and no sudo: install ${missing[*]} by hand" >&2
    exit 1
  fi
  sudo_cmd=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
