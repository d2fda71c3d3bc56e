#!/usr/bin/env bash
# Checks a built package as a phone would receive it: its control fields and
# file list, and the signed dylib inside it (signature, load commands, the
# two load-time initialisers in order, the exported shared state, the
# library's class names and the selectors it sends).
#   check-package.sh DEB CODESIGN
set -uo pipefail

if [ $# -ne 2 ]; then
  echo "usage: check-package.sh DEB CODESIGN" >&2
  exit 2
fi
deb=$1
codesign=$2
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
for tool in dpkg-deb llvm-objdump-14 llvm-nm-14; do
  command -v "$tool" >/dev/null || {
    echo "check-package: $tool not found" >&2
    exit 2
  }
done
[ -f "$deb" ] || {
  echo "check-package: $deb: no such file" >&2
  exit 2
}
[ -x "$codesign" ] || {
  echo "check-package: $codesign: not an executable" >&2
  exit 2
}

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
check() {  # check NAME EXPECTED ACTUAL
  if [ "$2" = "$3" ]; then pass "$1"; else fail "$1" "expected '$2', got '$3'"; fi
}

readonly DIR=Library/MobileSubstrate/DynamicLibraries
readonly PANE=Library/PreferenceLoader/Preferences/TesselLite.plist

# The control fields.
check "Package" "com.orvalt.tessellite" "$(dpkg-deb -f "$deb" Package)"
check "Architecture" "iphoneos-arm" "$(dpkg-deb -f "$deb" Architecture)"
check "Depends" "mobilesubstrate, preferenceloader" "$(dpkg-deb -f "$deb" Depends)"
check "Version" "$(tr -d '[:space:]' <"$root/VERSION")" "$(dpkg-deb -f "$deb" Version)"

# The files, their owners and modes.
listing=$(dpkg-deb -c "$deb" | awk '{print $1, $2, $6}')
expected="drwxr-xr-x root/root ./
drwxr-xr-x root/root ./Library/
drwxr-xr-x root/root ./Library/MobileSubstrate/
drwxr-xr-x root/root ./$DIR/
-rwxr-xr-x root/root ./$DIR/TesselLite.dylib
-rw-r--r-- root/root ./$DIR/TesselLite.plist
drwxr-xr-x root/root ./Library/PreferenceLoader/
drwxr-xr-x root/root ./Library/PreferenceLoader/Preferences/
-rw-r--r-- root/root ./$PANE"
check "file list, owners and modes" "$expected" "$listing"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
dpkg-deb -x "$deb" "$work"
dylib=$work/$DIR/TesselLite.dylib

# The signature and the load commands.
if verify=$("$codesign" verify "$dylib" 2>&1); then pass "signature"; else fail "signature" "$verify"; fi
if dylib_report=$(bash "$here/check-dylib.sh" "$dylib" 2>&1); then
  pass "dylib load commands"
else
  fail "dylib load commands" "$(grep FAIL <<<"$dylib_report" | tr '\n' ';')"
fi

# The two initialisers, in order: the first loads the library, the second
# sets the offsets from the screen.
# llvm-objdump names the function each initialiser pointer points at.
initialisers=$(llvm-objdump-14 --macho --section=__DATA,__mod_init_func "$dylib" 2>/dev/null |
  awk '/^0x/ {print $NF}' | tr '\n' ' ')
check "initialisers in order" "$(cat "$here/initialisers.txt" | tr '\n' ' ')" "$initialisers"

# The exported symbols: the shared state and nothing else.
exported=$(llvm-nm-14 -gU "$dylib" | awk '{print $3}' | sort | tr '\n' ' ')
check "exported symbols" "$(sort "$here/exported-state.txt" | tr '\n' ' ')" "$exported"

# The library's class names and every selector it sends or replaces.
missing=""
while read -r text; do
  [ -n "$text" ] || continue
  grep -qaP -- "\x00\Q$text\E\x00" "$dylib" || missing+="$text "
done < <(cat "$here/class-names.txt" "$here/selectors.txt")
check "class names and selectors in the file" "" "$missing"

echo "check-package: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
