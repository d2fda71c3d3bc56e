#!/usr/bin/env bash
# Installs what is missing, builds tessel-sim and plays the built-in demo.
# Extra arguments go to `tessel-sim demo` (for example --out DIR).
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build --target tessel-sim -j"$(nproc)"
./build/tessel-sim demo "$@"
