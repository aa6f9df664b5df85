#!/usr/bin/env bash
# Rebuilds the committed seed corpus fuzz/corpus from the files under
# tests/data: the hand-checked workspace and its saved forms, the catalogues
# in both formats, and every broken input. Each seed starts with the byte that
# makes the fuzz target read it as the right record type (0 project,
# 1 obstacles, 2 characters, 3 objects).
#   fuzz/seed-corpus.sh [BUILD_DIR]   (a build with stagewright-cli, for the binary catalogues)
set -euo pipefail
cd "$(dirname "$0")/.."
cli=${1:-build}/apps/stagewright-cli/stagewright-cli
data=tests/data
corpus=fuzz/corpus
rm -rf "$corpus"
mkdir -p "$corpus"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

seed() { # seed KIND_BYTE FILE NAME
  { printf "\\x0$1"; cat "$2"; } >"$corpus/$3"
}

seed 0 "$data/workspace/Levels/Golden.plist" project-handwritten.xml
seed 0 "$data/golden/Golden.saved.plist" project-saved.xml
seed 0 "$data/golden/Golden.bplist" project.bplist
kind=1
for pair in obstacles:ObstacleList characters:CharacterList objects:ObjectList; do
  name=${pair%%:*} file=$data/workspace/Assets/${pair#*:}.plist
  seed "$kind" "$file" "$name.xml"
  "$cli" convert "$file" "$scratch/$name.bplist" --binary --kind "$name"
  seed "$kind" "$scratch/$name.bplist" "$name.bplist"
  kind=$((kind + 1))
done
for file in "$data"/bad/*; do
  base=$(basename "$file")
  case $base in
    *.obstacles.plist) kind=1 ;;
    *.objects.plist) kind=3 ;;
    *) kind=0 ;;
  esac
  seed "$kind" "$file" "bad-$base"
done
echo "$(ls "$corpus" | wc -l) seeds in $corpus"
