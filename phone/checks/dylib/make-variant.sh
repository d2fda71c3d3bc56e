#!/usr/bin/env bash
# Derives a broken copy of a correct dylib, for checking the checker.
#   make-variant.sh fat|install-name|extra-dylib|no-noundefs IN OUT
set -euo pipefail
kind=$1 in=$2 out=$3
case "$kind" in
  fat) llvm-lipo-14 -create "$in" -output "$out" ;;
  install-name) cp "$in" "$out" && llvm-install-name-tool-14 -id /usr/lib/TesselLite.dylib "$out" ;;
  extra-dylib) cp "$in" "$out" && llvm-install-name-tool-14 -change /usr/lib/libobjc.A.dylib /usr/lib/libz.1.dylib "$out" ;;
  no-noundefs)
    # MH_NOUNDEFS is bit 0 of the header's flags, at byte 24.
    cp "$in" "$out"
    flags=$(od -An -tu1 -j24 -N1 "$out" | tr -d ' ')
    # shellcheck disable=SC2059 # the format is the byte, written as an octal escape
    printf "\\$(printf %o $((flags & ~1)))" | dd of="$out" bs=1 seek=24 conv=notrunc status=none
    ;;
  *) echo "make-variant: unknown kind $kind" >&2 && exit 2 ;;
esac
