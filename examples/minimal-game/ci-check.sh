#!/usr/bin/env bash
# Installs Tessaro from a built tree into a scratch prefix, builds the minimal
# game against the installed package and runs it once without a window.
#   examples/minimal-game/ci-check.sh [BUILD_DIR]   (default: build, built already)
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
build=$(cd "${1:-$root/build}" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cmake --install "$build" --prefix "$work/prefix" --component Tessaro >/dev/null
[ -f "$work/prefix/include/tessaro/runtime/Runtime.h" ] || { echo "no runtime headers installed" >&2; exit 1; }
if find "$work/prefix" -path '*stagewright*' | grep -q .; then
  echo "editor files were installed with the library" >&2
  exit 1
fi
options=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_PREFIX_PATH="$work/prefix")
if command -v ninja >/dev/null; then options+=(-G Ninja); fi
if command -v ccache >/dev/null; then options+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
cmake -S "$root/examples/minimal-game" -B "$work/build" "${options[@]}" >/dev/null
cmake --build "$work/build" >/dev/null
QT_QPA_PLATFORM=offscreen "$work/build/minimal-game" --headless
