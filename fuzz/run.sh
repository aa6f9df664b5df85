#!/usr/bin/env bash
# Builds the decoder fuzz target and runs it for a while, starting from the
# committed seed corpus fuzz/corpus (see fuzz/seed-corpus.sh). Inputs it finds
# go to build-fuzz/corpus, crashes to build-fuzz/artifacts; the seeds
# themselves are only read.
#   fuzz/run.sh [SECONDS]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-600}
if ! command -v clang++ >/dev/null || ! dpkg-query -W libclang-rt-14-dev >/dev/null 2>&1; then
  sudo_cmd=(); [ "$(id -u)" -ne 0 ] && sudo_cmd=(sudo)
  "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends clang libclang-rt-14-dev
fi
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz --target fuzz-plist-decode
mkdir -p build-fuzz/corpus build-fuzz/artifacts
build-fuzz/fuzz/fuzz-plist-decode build-fuzz/corpus fuzz/corpus -max_total_time="$seconds" -max_len=65536 \
  -rss_limit_mb=2048 -artifact_prefix=build-fuzz/artifacts/ -print_final_stats=1
