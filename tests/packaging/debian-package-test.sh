#!/usr/bin/env bash
# Makes the Debian package from a built tree with cpack, in a temporary
# folder, and reads it back: the programs, the desktop entry, the icons, the
# metainfo and the file type are in it under /usr, the library's development
# files and generated caches are not, and it depends on the package of every
# library the programs link and on the plug-ins they load.
#   debian-package-test.sh BUILD_DIR VERSION
set -euo pipefail
build=$1 version=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }
id=org.stagewright.StageWright

cpack -G DEB --config "$build/CPackConfig.cmake" -B "$work" >"$work/cpack.log" 2>&1 || { cat "$work/cpack.log"; fail "cpack"; }
packages=("$work"/*.deb)
[ ${#packages[@]} -eq 1 ] && [ -f "${packages[0]}" ] || fail "cpack made ${#packages[@]} packages: ${packages[*]}"
deb=${packages[0]}

contents=$(dpkg-deb -c "$deb" | awk '{print $NF}')
expected=(./usr/bin/stagewright ./usr/bin/stagewright-cli ./usr/bin/tessaro-play
  "./usr/share/applications/$id.desktop" "./usr/share/metainfo/$id.metainfo.xml"
  "./usr/share/mime/packages/$id.xml" "./usr/share/icons/hicolor/scalable/apps/$id.svg"
  ./usr/share/doc/stagewright/copyright)
for side in 16 32 48 64 128 256; do expected+=("./usr/share/icons/hicolor/${side}x${side}/apps/$id.png"); done
for path in "${expected[@]}"; do
  grep -qxF "$path" <<<"$contents" || fail "the package lacks $path"
done
if grep -E '^\./usr/(include|lib)/|/mime/mime\.cache$|icon-theme\.cache$' <<<"$contents"; then
  fail "the package holds development files or generated caches"
fi

info=$(dpkg-deb -I "$deb")
field() { sed -n "s/^ $1: //p" <<<"$info"; }
[ "$(field Package)" = stagewright ] || fail "package name: $(field Package)"
[ "$(field Version)" = "$version-1" ] || fail "version: $(field Version)"
[ -n "$(field Maintainer)" ] || fail "no maintainer"
depends=$(field Depends)
declared=$(tr ',' '\n' <<<"$depends" | sed 's/^ *//; s/ .*//')
for package in libqt6widgets6 libqt6svg6 libqt6multimedia6 gstreamer1.0-plugins-good; do
  grep -qxF "$package" <<<"$declared" || fail "Depends lacks $package: $depends"
done
# Every library the packaged programs link comes from a package it depends on.
dpkg-deb --fsys-tarfile "$deb" | tar -x -C "$work" ./usr/bin
multiarch=$(gcc -print-multiarch)
for library in $(readelf -d "$work"/usr/bin/* | sed -n 's/.*Shared library: \[\(.*\)\]/\1/p' | sort -u); do
  owner=$(dpkg -S "*/$multiarch/$library" 2>/dev/null | head -1 | cut -d: -f1 || true)
  [ -n "$owner" ] || fail "no installed package holds $library"
  grep -qxF "$owner" <<<"$declared" || fail "the programs link $library of $owner, which Depends lacks: $depends"
done
# The copyright file names the licence of the whole source, in Debian's
# machine-readable form, with the licence's own text.
dpkg-deb --fsys-tarfile "$deb" | tar -x -C "$work" ./usr/share/doc/stagewright/copyright
copyright=$work/usr/share/doc/stagewright/copyright
head -1 "$copyright" | grep -q '^Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/' ||
  fail "the copyright file is not in the machine-readable format"
grep -qx 'License: MIT' "$copyright" || fail "the copyright file names no MIT licence"
grep -q '^ Permission is hereby granted, free of charge' "$copyright" || fail "the copyright file lacks the licence text"
grep -qx ' \.' "$copyright" || fail "the copyright file's paragraphs are not separated by ' .'"
echo "package: $(basename "$deb"), $(du -k "$deb" | cut -f1) KiB"
