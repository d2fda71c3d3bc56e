#!/usr/bin/env bash
# Builds TesselLite.dylib for the phone (arm64, iOS 7.0) with Debian packages
# alone, then checks the result as the phone will load it, and the checker
# against dylibs broken on purpose.
#   scripts/build-phone.sh
# Environment: BUILD_DIR (default build-phone/), TESSEL_SOURCE_ROOT (where the
# library's sources are; default this repository), JOBS (default 2).
set -euo pipefail
cd "$(dirname "$0")/.."
repository=$(pwd)
build_dir=${BUILD_DIR:-$repository/build-phone}
source_root=${TESSEL_SOURCE_ROOT:-$repository}
jobs=${JOBS:-2}

step() { echo "build-phone: $*"; }
die() {
  echo "build-phone: error: $*" >&2
  exit 1
}

bash "$repository/scripts/setup.sh" cmake make clang-14 lld-14 llvm-14 libc++-14-dev libc++abi-14-dev ||
  die "could not install the cross tool chain"

step "configuring $build_dir (library sources from $source_root)"
mkdir -p "$build_dir"
if ! cmake -S phone -B "$build_dir" \
  -DCMAKE_TOOLCHAIN_FILE="$repository/phone/toolchain/ios-arm64.cmake" \
  -DTESSEL_SOURCE_ROOT="$source_root" >"$build_dir/configure.log" 2>&1; then
  cat "$build_dir/configure.log" >&2
  die "configuring failed"
fi

step "building with $jobs jobs"
cmake --build "$build_dir" -j"$jobs" || die "the build failed (see above)"

dylib=$build_dir/TesselLite.dylib
[ -f "$dylib" ] || die "$dylib was not made"
step "checking $dylib"
phone/checks/check-dylib.sh "$dylib" || die "$dylib does not pass its checks"
step "checking the checker against dylibs broken on purpose"
ctest --test-dir "$build_dir" --output-on-failure -j"$jobs" >"$build_dir/ctest.log" 2>&1 || {
  cat "$build_dir/ctest.log" >&2
  die "check-dylib.sh misjudged a dylib (see above)"
}
step "done: $dylib ($(stat -c %s "$dylib") bytes)"
