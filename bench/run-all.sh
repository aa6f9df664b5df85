#!/usr/bin/env bash
# Runs every benchmark that the build has: the codec comparison with Python's
# plistlib, then each Google Benchmark program under build/bench/.
#   bench/run-all.sh [BUILD_DIR]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
echo "== property-list codec against plistlib"
bench/model/run.sh "$build"
for program in "$build"/bench/*/bench-*; do
  [ -x "$program" ] || continue
  case "$(basename "$program")" in bench-model-codec) continue ;; esac
  echo "== $(basename "$program")"
  QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} "$program" --benchmark_repetitions=3 \
    --benchmark_report_aggregates_only=true
done
