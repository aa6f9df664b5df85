#!/usr/bin/env bash
# Installs a built tree into a prefix, as `make install` does, and refreshes
# the desktop's caches there (the MIME database and the file types of the
# desktop entries), so that project files are known and open in the editor at
# once. A staged install (DESTDIR set, as a packager does) only places the
# files: the package manager refreshes the caches where the files land.
# Goes through sudo when the prefix is not writable.
#   install-build.sh BUILD_DIR PREFIX
set -euo pipefail
build=$1 prefix=$2
staging=${DESTDIR:-}

existing=$staging$prefix
while [ ! -e "$existing" ]; do existing=$(dirname "$existing"); done
as_root=()
if [ ! -w "$existing" ] && [ "$(id -u)" -ne 0 ]; then as_root=(sudo --preserve-env=DESTDIR); fi

"${as_root[@]}" cmake --install "$build" --prefix "$prefix" >/dev/null
echo "Installed into $staging$prefix"
[ -z "$staging" ] || exit 0

share=$prefix/share
if command -v update-mime-database >/dev/null; then
  "${as_root[@]}" update-mime-database "$share/mime"
fi
if command -v update-desktop-database >/dev/null; then
  "${as_root[@]}" update-desktop-database -q "$share/applications"
fi
