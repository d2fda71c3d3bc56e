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

# The phone package: the dylib cross-built and checked (load commands,
# minimum OS, links), signed and packaged, then the package checked as a phone
# would receive it.
bash scripts/package.sh
bash phone/checks/check-package.sh out/package/com.orvalt.tessellite_"$(tr -d '[:space:]' <VERSION)"_iphoneos-arm.deb \
  build-host/signing/tessel-codesign

# The same sources give the same bytes: a second build, elsewhere.
BUILD_DIR=build-phone-again bash scripts/build-phone.sh >/dev/null
cmp build-phone/TesselLite.dylib build-phone-again/TesselLite.dylib
echo "phone: a second build gives the same TesselLite.dylib, byte for byte"
