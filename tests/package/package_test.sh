#!/usr/bin/env bash
# The Debian package as a user gets it, without installing it: built from the build folder
# into a scratch folder, listed, checked by lintian, unpacked, and the unpacked program run
# on the example session it ships.
#   package_test.sh BUILD_FOLDER SCRATCH_FOLDER VERSION
set -euo pipefail
build=$1 scratch=$2 version=$3

fail() { echo "package test: $*" >&2; exit 1; }

rm -rf "$scratch"
mkdir -p "$scratch"
cpack -G DEB --config "$build/CPackConfig.cmake" -B "$scratch" > "$scratch/cpack.log" 2>&1 ||
  { cat "$scratch/cpack.log"; fail "cpack failed"; }
deb=$scratch/eowizard_${version}_amd64.deb
[ -f "$deb" ] || fail "no $deb"

# What a user expects in it, where Debian keeps it.
dpkg-deb -c "$deb" > "$scratch/contents"
for file in \
    ./usr/bin/eowizard \
    ./usr/libexec/eowizard/eowizard-merge.so \
    ./usr/share/applications/eowizard.desktop \
    ./usr/share/icons/hicolor/scalable/apps/eowizard.svg \
    ./usr/share/eowizard/Help/Bravant.chm \
    ./usr/share/man/man1/eowizard.1.gz \
    ./usr/share/doc/eowizard/copyright \
    ./usr/share/doc/eowizard/changelog.gz \
    ./usr/share/doc/eowizard/examples/coil/Coil.bvg; do
  grep -q " $file\$" "$scratch/contents" || fail "$file is not in the package"
done
# The libraries it needs, as dpkg-shlibdeps found them.
dpkg-deb -f "$deb" Depends | grep -q 'libqt6widgets6' || fail "no dependency on Qt Widgets"
dpkg-deb -f "$deb" Depends | grep -q 'libgit2' || fail "no dependency on libgit2"
dpkg-deb -f "$deb" Depends | grep -q 'libseccomp2' || fail "no dependency on libseccomp"

lintian --fail-on error "$deb" > "$scratch/lintian.log" 2>&1 ||
  { cat "$scratch/lintian.log"; fail "lintian reports errors"; }

root=$scratch/root
dpkg-deb -x "$deb" "$root"
desktop-file-validate "$root/usr/share/applications/eowizard.desktop" ||
  fail "the desktop entry is not valid"
[ "$("$root/usr/bin/eowizard" --version)" = "eowizard $version" ] || fail "--version"
examples=$root/usr/share/doc/eowizard/examples
"$root/usr/bin/eowizard" session show --drive "C=$examples/coil/drive_c" \
  "$examples/coil/Coil.bvg" > "$scratch/session.txt" 2> "$scratch/session.err" ||
  { cat "$scratch/session.err"; fail "session show failed"; }
grep -q 'Coil radius' "$scratch/session.txt" || fail "session show lists no input"
[ ! -s "$scratch/session.err" ] || { cat "$scratch/session.err"; fail "the example's files are not found"; }
# The unpacked program reads a basic model in its sandboxed reader, which loads Gmsh from
# the unpacked modules.
"$root/usr/bin/eowizard" model show "$examples/converter/Converter.geo" > "$scratch/model.txt" \
  2> "$scratch/model.err" || { cat "$scratch/model.err"; fail "model show failed"; }
grep -q '^Edges (10)' "$scratch/model.txt" || fail "model show lists no edges"
echo "package test: $deb is complete"
