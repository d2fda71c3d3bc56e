#!/usr/bin/env bash
# Builds the Objective-C runtime layer with its stand-in host classes on the
# GNU runtime and runs its tests: phone/gnu/run-tests.sh [--sanitize]
set -euo pipefail

root="$(cd "$(dirname "$0")/../.." && pwd)"
build="$root/build-phone-gnu"
options=()
case "${1:-}" in
  "") ;;
  --sanitize)
    build="$root/build-phone-gnu-sanitize"
    options=(-DTESSEL_SANITIZE=ON -DCMAKE_BUILD_TYPE=Debug)
    ;;
  *)
    echo "usage: $0 [--sanitize]" >&2
    exit 2
    ;;
esac

echo "== configure $build"
cmake -S "$root/phone/gnu" -B "$build" -DCMAKE_CXX_COMPILER=clang++-14 "${options[@]}" >/dev/null
echo "== build"
cmake --build "$build" -j2
echo "== test"
export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=1:abort_on_error=1}"
export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}"
ctest --test-dir "$build" --output-on-failure -j2
