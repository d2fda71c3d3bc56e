#!/usr/bin/env bash
# Turns TesselLite.dylib (already signed) into the phone package and an APT
# source folder a phone's package manager can add.
#
#   build-package.sh DYLIB OUTDIR
#
# Writes OUTDIR/<package>_<version>_<arch>.deb and OUTDIR/repo/ holding that
# .deb, Packages, Packages.gz and Release. The version is read from the
# repository's VERSION file. The generator is $TESSEL_SETTINGS_PANE, else
# tessel-settings-pane on PATH.
#
# Two runs on the same inputs give the same bytes: every time stamp is
# SOURCE_DATE_EPOCH, taken from the environment when set, else the time of the
# last commit, else a fixed date.
set -euo pipefail

package_dir=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
repo_root=$(cd "$package_dir/../.." && pwd)
readonly package_dir repo_root
# 2024-01-01 00:00:00 UTC, for a tree with no commit history.
readonly fallback_epoch=1704067200

say() { echo "build-package: $*"; }
fail() {
  echo "build-package: error: $*" >&2
  exit 1
}

if [ $# -ne 2 ]; then
  echo "usage: build-package.sh DYLIB OUTDIR" >&2
  exit 2
fi
dylib=$1
outdir=$2

[ -f "$dylib" ] || fail "no dylib at '$dylib'"
[ -s "$dylib" ] || fail "'$dylib' is empty"

generator=${TESSEL_SETTINGS_PANE:-$(command -v tessel-settings-pane || true)}
if [ -z "$generator" ] || [ ! -x "$generator" ]; then
  fail "tessel-settings-pane not found; build it (cmake -S phone/package -B build-host/package && cmake --build build-host/package --target tessel-settings-pane) and set TESSEL_SETTINGS_PANE to it"
fi
for tool in dpkg-deb dpkg-scanpackages gzip md5sum sha1sum sha256sum; do
  command -v "$tool" >/dev/null || fail "'$tool' is missing (Debian packages dpkg-dev, gzip, coreutils)"
done

[ -r "$repo_root/VERSION" ] || fail "cannot read $repo_root/VERSION"
version=$(tr -d ' \t\r\n' <"$repo_root/VERSION")
[[ $version =~ ^[0-9][A-Za-z0-9.+~-]*$ ]] || fail "VERSION holds '$version', which is not a package version"

control_template=$package_dir/control.in
package=$(sed -n 's/^Package: //p' "$control_template")
arch=$(sed -n 's/^Architecture: //p' "$control_template")
if [ -z "$package" ] || [ -z "$arch" ]; then
  fail "$control_template names no Package or Architecture"
fi

if [ -n "${SOURCE_DATE_EPOCH:-}" ]; then
  [[ $SOURCE_DATE_EPOCH =~ ^[0-9]+$ ]] || fail "SOURCE_DATE_EPOCH='$SOURCE_DATE_EPOCH' is not a count of seconds"
  epoch_from="the environment"
elif SOURCE_DATE_EPOCH=$(git -C "$repo_root" log -1 --format=%ct 2>/dev/null) && [ -n "$SOURCE_DATE_EPOCH" ]; then
  epoch_from="the last commit"
else
  SOURCE_DATE_EPOCH=$fallback_epoch
  epoch_from="the fixed fallback (no commit history)"
fi
export SOURCE_DATE_EPOCH
say "$package $version ($arch), time stamps $SOURCE_DATE_EPOCH from $epoch_from"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
root=$work/root
substrate_dir=$root/Library/MobileSubstrate/DynamicLibraries
settings_dir=$root/Library/PreferenceLoader/Preferences
mkdir -p "$substrate_dir" "$settings_dir"

install -m 0755 "$dylib" "$substrate_dir/TesselLite.dylib"
"$generator" filter >"$substrate_dir/TesselLite.plist" || fail "tessel-settings-pane filter failed"
"$generator" pane >"$settings_dir/TesselLite.plist" || fail "tessel-settings-pane pane failed"
chmod 0644 "$substrate_dir/TesselLite.plist" "$settings_dir/TesselLite.plist"

# In KiB the way dpkg counts it: each file rounded up, each directory one.
installed_size=$(find "$root" -mindepth 1 -printf '%y %s\n' |
  awk '$1 == "d" { kib += 1 } $1 == "f" { kib += int(($2 + 1023) / 1024) } END { print kib }')

mkdir "$root/DEBIAN"
sed -e "s/@VERSION@/$version/" -e "s/@INSTALLED_SIZE@/$installed_size/" "$control_template" >"$root/DEBIAN/control"
! grep -q '@[A-Z_]*@' "$root/DEBIAN/control" || fail "$control_template has a placeholder this script does not fill"
chmod 0644 "$root/DEBIAN/control"

# Five digits also clear a set-group-ID bit inherited from the temporary folder.
find "$root" -type d -exec chmod 00755 {} +
# Everything here was just made, so each time stamp is set to the epoch rather
# than clamped: a clock behind the last commit would otherwise leak "now".
find "$root" -exec touch --no-dereference --date="@$SOURCE_DATE_EPOCH" {} +

deb_name=${package}_${version}_${arch}.deb
dpkg-deb --root-owner-group -Zgzip --build "$root" "$work/$deb_name" >/dev/null
mkdir -p "$outdir"
rm -f "$outdir/${package}"_*_"${arch}".deb
mv -f "$work/$deb_name" "$outdir/$deb_name"
say "wrote $outdir/$deb_name ($(stat -c %s "$outdir/$deb_name") bytes)"

repo=$outdir/repo
mkdir -p "$repo"
rm -f "$repo/Packages" "$repo/Packages.gz" "$repo/Release" "$repo/${package}"_*_"${arch}".deb
cp "$outdir/$deb_name" "$repo/$deb_name"
(
  cd "$repo"
  dpkg-scanpackages -m . /dev/null >Packages 2>"$work/scan.log" || {
    cat "$work/scan.log" >&2
    fail "dpkg-scanpackages failed"
  }
  gzip -9n -c Packages >Packages.gz

  hash_lines() {
    local tool=$1 file
    for file in Packages Packages.gz; do
      printf ' %s %s %s\n' "$("$tool" "$file" | cut -d' ' -f1)" "$(stat -c %s "$file")" "$file"
    done
  }
  {
    echo "Origin: Tessel"
    echo "Label: Tessel"
    echo "Suite: stable"
    echo "Codename: tessel"
    echo "Architectures: $arch"
    echo "Components: main"
    echo "Description: Tessel for phones: an app's notifications, one gesture away on its icon"
    echo "Date: $(LC_ALL=C date -u -d "@$SOURCE_DATE_EPOCH" '+%a, %d %b %Y %H:%M:%S UTC')"
    echo "MD5Sum:"
    hash_lines md5sum
    echo "SHA1:"
    hash_lines sha1sum
    echo "SHA256:"
    hash_lines sha256sum
  } >Release
)
say "wrote APT source $repo ($deb_name, Packages, Packages.gz, Release)"
