#!/usr/bin/env bash
# Builds the decoder fuzz target and runs it for a while on a seed corpus of
# project and catalogue files in both formats.
#   fuzz/run.sh [SECONDS]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-600}
if ! command -v clang++ >/dev/null || ! dpkg-query -W libclang-rt-14-dev >/dev/null 2>&1; then
  sudo_cmd=(); [ "$(id -u)" -ne 0 ] && sudo_cmd=(sudo)
  "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends clang libclang-rt-14-dev
fi
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz --target fuzz-plist-decode stagewright-cli tessaro-generate-project
corpus=build-fuzz/corpus
mkdir -p "$corpus" build-fuzz/artifacts
if [ -z "$(ls -A "$corpus")" ]; then
  build-fuzz/bench/common/tessaro-generate-project build-fuzz/seed.plist --levels 1 --obstacles 6 --characters 2 --coins 3 --ground 3
  build-fuzz/apps/stagewright-cli/stagewright-cli convert build-fuzz/seed.plist build-fuzz/seed.bplist --binary
  { printf '\x00'; cat build-fuzz/seed.plist; } > "$corpus/level.xml"
  { printf '\x00'; cat build-fuzz/seed.bplist; } > "$corpus/level.bin"
  i=1
  for f in resources/seed/Assets/*List.plist; do
    [ -f "$f" ] || continue
    { printf "\\x0$i"; cat "$f"; } > "$corpus/$(basename "$f")"
    i=$(( i % 3 + 1 ))
  done
fi
build-fuzz/fuzz/fuzz-plist-decode "$corpus" -max_total_time="$seconds" -max_len=65536 \
  -rss_limit_mb=2048 -artifact_prefix=build-fuzz/artifacts/ -print_final_stats=1
