#!/usr/bin/env bash
# Installs what is missing, builds everything and runs the whole test suite.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j"$(nproc)"
ctest --test-dir build --output-on-failure -j"$(nproc)"

# The phone binding on a real Objective-C runtime (Debian's GNU runtime).
bash phone/gnu/run-tests.sh

# The phone dylib, cross-built and checked (load commands, minimum OS, links).
bash scripts/build-phone.sh
