#!/usr/bin/env bash
# Builds the phone package: installs what is missing, builds the host tools
# (settings-pane generator, signer), cross-builds TesselLite.dylib, signs it
# and writes out/package/<package>.deb and the APT source out/package/repo/.
#
#   bash scripts/package.sh                 # everything, from the sources
#   bash scripts/package.sh --dylib FILE    # package FILE instead of building the dylib
set -euo pipefail

say() { echo "package: $*"; }
fail() {
  echo "package: error: $*" >&2
  exit 1
}

dylib_source=""
case $# in
  0) ;;
  2)
    [ "$1" = "--dylib" ] || fail "unknown option '$1' (usage: scripts/package.sh [--dylib FILE])"
    [ -f "$2" ] || fail "no dylib at $2"
    dylib_source=$(realpath -- "$2")
    ;;
  *) fail "usage: scripts/package.sh [--dylib FILE]" ;;
esac
cd "$(dirname "$0")/.."
if [ -z "$dylib_source" ]; then
  [ -f scripts/build-phone.sh ] || fail "scripts/build-phone.sh is missing: cannot build TesselLite.dylib (or pass --dylib FILE)"
fi
[ -f phone/signing/CMakeLists.txt ] || fail "phone/signing/ is missing: there is no tessel-codesign to sign the dylib with"

bash scripts/setup.sh clang-14 lld-14 llvm-14 libc++-14-dev libc++abi-14-dev dpkg-dev cmake g++ make pkg-config \
  libplist-dev || fail "could not install what the package build needs"

jobs=$(nproc)
tools=build-host
say "building the host tools into $tools/"
cmake -S phone/package -B "$tools/package" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTESSEL_PACKAGE_TESTS=OFF >/dev/null
cmake --build "$tools/package" --target tessel-settings-pane -j"$jobs" >/dev/null ||
  fail "building tessel-settings-pane failed (run: cmake --build $tools/package)"
cmake -S phone/signing -B "$tools/signing" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTESSEL_SIGNING_TESTS=OFF >/dev/null
cmake --build "$tools/signing" --target tessel-codesign -j"$jobs" >/dev/null ||
  fail "building tessel-codesign failed (run: cmake --build $tools/signing)"
settings_pane=$PWD/$tools/package/tessel-settings-pane
codesign=$PWD/$tools/signing/tessel-codesign
[ -x "$settings_pane" ] || fail "no $settings_pane after the build"
[ -x "$codesign" ] || fail "no $codesign after the build"

if [ -z "$dylib_source" ]; then
  say "cross-building TesselLite.dylib (scripts/build-phone.sh)"
  bash scripts/build-phone.sh || fail "scripts/build-phone.sh failed"
  dylib_source=build-phone/TesselLite.dylib
  [ -f "$dylib_source" ] || fail "scripts/build-phone.sh left no $dylib_source"
fi

# Signed in a copy, so the cross build's own output stays as the linker left it.
signed=$tools/signed/TesselLite.dylib
mkdir -p "$(dirname "$signed")"
cp "$dylib_source" "$signed"
say "signing $signed (tessel-codesign sign)"
"$codesign" sign "$signed" || fail "tessel-codesign could not sign $dylib_source"
"$codesign" verify "$signed" >/dev/null || fail "the signed dylib does not verify (tessel-codesign verify $signed)"

out=out/package
say "building the package into $out/"
TESSEL_SETTINGS_PANE=$settings_pane bash phone/package/build-package.sh "$signed" "$out"

say "wrote:"
(
  cd "$out"
  find . -type f | LC_ALL=C sort | while read -r file; do
    printf '  %s/%s  %s bytes\n' "$out" "${file#./}" "$(stat -c %s "$file")"
  done
)
for deb in "$out"/*.deb; do
  say "$(basename "$deb") sha256 $(sha256sum "$deb" | cut -d' ' -f1)"
done
say "to install on a phone: serve $out/repo over HTTP and add its address as a source in the phone's package manager"
