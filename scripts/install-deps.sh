#!/usr/bin/env bash
# Installs every Debian package the build, the tests and the benchmarks need,
# and the validators of the install tests.
# Safe to run again: it does nothing when everything is already there.
set -euo pipefail

packages=(
  build-essential cmake ninja-build ccache lld pkg-config git
  qt6-base-dev qt6-base-dev-tools qt6-svg-dev qt6-multimedia-dev qt6-image-formats-plugins
  libqt6svg6 libgl-dev
  gstreamer1.0-plugins-base gstreamer1.0-plugins-good
  libbox2d-dev libplist-dev libpugixml-dev libsqlite3-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  python3 xvfb xauth clang-format
  appstream desktop-file-utils shared-mime-info
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

echo "Installing: ${missing[*]}"
sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then sudo_cmd=(sudo); fi
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
