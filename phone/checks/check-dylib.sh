#!/usr/bin/env bash
# Checks that a built TesselLite.dylib is what the phone loads: an arm64
# dylib for iOS 7.0 with its install name, a signature, and imports from the
# four system libraries only, each bound to its library.
#   check-dylib.sh DYLIB
set -uo pipefail

readonly INSTALL_NAME=/Library/MobileSubstrate/DynamicLibraries/TesselLite.dylib
readonly MIN_IOS=7.0
readonly ALLOWED_DYLIBS="/System/Library/Frameworks/CoreFoundation.framework/CoreFoundation
/usr/lib/libSystem.B.dylib
/usr/lib/libc++.1.dylib
/usr/lib/libobjc.A.dylib"

if [ $# -ne 1 ]; then
  echo "usage: check-dylib.sh DYLIB" >&2
  exit 2
fi
dylib=$1
for tool in llvm-objdump-14 llvm-nm-14; do
  if ! command -v "$tool" >/dev/null; then
    echo "check-dylib: $tool not found (Debian package llvm-14)" >&2
    exit 2
  fi
done
if [ ! -f "$dylib" ]; then
  echo "check-dylib: $dylib: no such file" >&2
  exit 2
fi

passed=0
failed=0
pass() {
  echo "ok   $1"
  passed=$((passed + 1))
}
fail() {
  echo "FAIL $1: $2"
  failed=$((failed + 1))
}

headers=$(llvm-objdump-14 --macho --private-headers "$dylib" 2>&1)
if ! grep -q '^Mach header' <<<"$headers"; then
  echo "check-dylib: $dylib is not a Mach-O file" >&2
  exit 1
fi
# The Mach header's fields: magic cputype cpusubtype caps filetype ncmds sizeofcmds flags...
read -r _magic cputype cpusubtype _caps filetype _ncmds _sizeofcmds flags <<<"$(grep -A2 '^Mach header' <<<"$headers" | sed -n 3p)"

# Each load command as one line: its kind and, where it has them, its name and version.
commands=$(awk '
  function flush() { if (cmd != "") print cmd "\t" name "\t" version; cmd = ""; name = ""; version = "" }
  $1 == "cmd" { flush(); cmd = $2 }
  $1 == "name" { name = $2 }
  $1 == "version" { version = $2 }
  END { flush() }' <<<"$headers")
commands_named() { awk -F'\t' -v kind="$1" '$1 == kind' <<<"$commands"; }

# 1. A dynamic library, not a bundle or an executable.
if [ "$filetype" = DYLIB ]; then pass "MH_DYLIB"; else fail "MH_DYLIB" "file type is $filetype"; fi

# 2. One arm64 slice: no fat wrapper, no arm64e or other architecture.
if llvm-objdump-14 --macho --universal-headers "$dylib" | grep -q '^Fat headers'; then
  fail "arm64 only" "a fat file ($(llvm-objdump-14 --macho --universal-headers "$dylib" | awk '$1 == "architecture" {print $2}' | paste -sd, -))"
elif [ "$cputype" != ARM64 ] || [ "$cpusubtype" != ALL ]; then
  fail "arm64 only" "cputype $cputype, cpusubtype $cpusubtype"
else
  pass "arm64 only"
fi

# 3. The install name the loader finds it under.
id=$(commands_named LC_ID_DYLIB | cut -f2)
if [ "$id" = "$INSTALL_NAME" ]; then pass "install name"; else fail "install name" "LC_ID_DYLIB is '${id:-missing}', expected $INSTALL_NAME"; fi

# 4. Loadable from iOS 7.0 on: LC_VERSION_MIN_IPHONEOS, which iOS 7 reads (not LC_BUILD_VERSION, which it does not).
min=$(commands_named LC_VERSION_MIN_IPHONEOS | cut -f3)
if [ "$min" = "$MIN_IOS" ] && [ -z "$(commands_named LC_BUILD_VERSION)" ]; then
  pass "LC_VERSION_MIN_IPHONEOS $MIN_IOS"
else
  fail "LC_VERSION_MIN_IPHONEOS $MIN_IOS" "minimum is '${min:-missing}'$([ -n "$(commands_named LC_BUILD_VERSION)" ] && echo ', and an LC_BUILD_VERSION is present')"
fi

# 5. Exactly the four system libraries, each loaded plainly (not weak, re-exported, upward or lazy).
loaded=$(awk -F'\t' '$1 ~ /^LC_(LOAD|LOAD_WEAK|REEXPORT|LOAD_UPWARD|LAZY_LOAD)_DYLIB$/ {print $1 " " $2}' <<<"$commands" | sort)
# shellcheck disable=SC2001 # a prefix on every line of a list
expected=$(sed 's/^/LC_LOAD_DYLIB /' <<<"$ALLOWED_DYLIBS" | sort)
if [ "$loaded" = "$expected" ]; then
  pass "LC_LOAD_DYLIB set"
else
  fail "LC_LOAD_DYLIB set" "$(diff <(echo "$expected") <(echo "$loaded") | grep '^[<>]' | sed 's/^</missing:/; s/^>/unexpected:/' | paste -sd';' -)"
fi

# 6. Signed: the phone's kernel refuses unsigned code.
if [ -n "$(commands_named LC_CODE_SIGNATURE)" ]; then pass "LC_CODE_SIGNATURE"; else fail "LC_CODE_SIGNATURE" "no code signature"; fi

# 7. Every symbol resolved at link time.
if grep -qw NOUNDEFS <<<"$flags"; then pass "NOUNDEFS"; else fail "NOUNDEFS" "flags are: $flags"; fi

# 8. Every import bound two-level to one of its libraries, none looked up flat
#    (which is what linking with -undefined dynamic_lookup gives).
flat=$(llvm-nm-14 -m -u "$dylib" | grep "(undefined)" | grep -v 'from \(libSystem\|libc++\|libobjc\|CoreFoundation\))$' | sed 's/^ *(undefined) *[a-z]* *//')
if ! grep -qw TWOLEVEL <<<"$flags"; then
  fail "imports bound to their libraries" "not a two-level namespace image (flags: $flags)"
elif [ -n "$flat" ]; then
  fail "imports bound to their libraries" "$(wc -l <<<"$flat") not bound to a system library, e.g. $(head -n1 <<<"$flat")"
else
  pass "imports bound to their libraries"
fi

echo "check-dylib: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
