#!/usr/bin/env bash
# Reads and writes a synthetic project with our codec and with Python's
# plistlib, and prints the figures side by side.
#   bench/model/run.sh [BUILD_DIR]
set -euo pipefail
build=${1:-build}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
file=$work/project.plist
"$build/bench/common/tessaro-generate-project" "$file"
ours=$("$build/bench/model/bench-model-codec" "$file")
python=$(python3 "$(dirname "$0")/plistlib_bench.py" "$file")
value() { printf '%s\n' "$1" | awk -v k="$2" '$1 == k { print $2 }'; }
printf '%-16s %12s %12s %8s\n' figure tessaro plistlib ratio
for key in read_mb_per_s write_mb_per_s peak_mb peak_ratio; do
  a=$(value "$ours" $key); b=$(value "$python" $key)
  printf '%-16s %12s %12s %8s\n' "$key" "$a" "$b" "$(awk -v a="$a" -v b="$b" 'BEGIN { if (b > 0) printf "%.1fx", a / b }')"
done
echo "file: $(value "$ours" file_mb) MB, $(value "$ours" levels) levels"
