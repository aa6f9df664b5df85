#!/usr/bin/env bash
# Reads and writes a synthetic project of about 10 MB with our codec and with
# Python's plistlib, and prints the figures side by side: inside one process
# (the first, cold read and the best warm one), then what a user waits for,
# whole processes from start to exit: `stagewright-cli check` against a
# Python process that loads the file with plistlib.
#   bench/model/run.sh [BUILD_DIR] [RUNS]
set -euo pipefail
build=${1:-build}
runs=${2:-7}
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
file=$work/project.plist
"$build/bench/common/tessaro-generate-project" "$file" --levels 24
ours=$("$build/bench/model/bench-model-codec" "$file")
large=$("$build/bench/model/bench-model-codec" "$file" --repeat 1 --large-heap-pages)
python=$(python3 "$here/plistlib_bench.py" "$file")
value() { printf '%s\n' "$1" | awk -v k="$2" '$1 == k { print $2 }'; }
ratio() { awk -v a="$1" -v b="$2" 'BEGIN { if (b > 0) printf "%.1fx", a / b }'; }
printf '%-20s %12s %12s %8s\n' figure tessaro plistlib ratio
for key in cold_read_mb_per_s read_mb_per_s write_mb_per_s peak_mb peak_ratio; do
  a=$(value "$ours" $key); b=$(value "$python" $key)
  printf '%-20s %12s %12s %8s\n' "$key" "$a" "$b" "$(ratio "$a" "$b")"
done
printf '%-20s %12s %12s %8s\n' cold_read_ms "$(value "$ours" cold_read_ms)" "$(value "$python" cold_read_ms)" \
  "$(ratio "$(value "$python" cold_read_ms)" "$(value "$ours" cold_read_ms)")"
echo "cold read: $(value "$ours" cold_read_faults) page faults; with the heap in large pages, as stagewright-cli" \
  "has it: $(value "$large" cold_read_ms) ms, $(value "$large" cold_read_faults) page faults"

# Whole processes: the best and the median of RUNS runs, in milliseconds.
milliseconds() {
  local start=$EPOCHREALTIME
  "$@" >/dev/null
  local end=$EPOCHREALTIME
  awk -v a="$start" -v b="$end" 'BEGIN { printf "%.1f\n", (b - a) * 1000 }'
}
summary() { sort -n | awk '{ t[NR] = $1 } END { printf "%s %s\n", t[1], t[int((NR + 1) / 2)] }'; }
cli=$build/apps/stagewright-cli/stagewright-cli
check=$(for _ in $(seq "$runs"); do milliseconds "$cli" check "$file"; done | summary)
plistlib=$(for _ in $(seq "$runs"); do
  milliseconds python3 -c 'import plistlib, sys; plistlib.load(open(sys.argv[1], "rb"))' "$file"
done | summary)
read -r checkBest checkMedian <<<"$check"
read -r plistBest plistMedian <<<"$plistlib"
printf '%-20s %12s %12s %8s\n' process_best_ms "$checkBest" "$plistBest" "$(ratio "$plistBest" "$checkBest")"
printf '%-20s %12s %12s %8s\n' process_median_ms "$checkMedian" "$plistMedian" "$(ratio "$plistMedian" "$checkMedian")"
echo "file: $(stat -c %s "$file") bytes, $(value "$ours" levels) levels; whole processes: stagewright-cli check" \
  "against python3 plistlib.load, $runs runs each"
