#!/usr/bin/env bash
# Fails when a tracked C++ file differs from what .clang-format makes of it.
#   scripts/check-format.sh         check
#   scripts/check-format.sh --fix   format in place
set -euo pipefail
cd "$(dirname "$0")/.."
mapfile -t files < <(git ls-files '*.cpp' '*.h')
if [ "${1:-}" = "--fix" ]; then
  clang-format -i "${files[@]}"
  exit 0
fi
if ! clang-format --dry-run -Werror "${files[@]}" 2>/tmp/format-check.$$; then
  grep -oE '^[^ :]+\.(cpp|h):[0-9]+:' /tmp/format-check.$$ | cut -d: -f1 | sort -u | sed 's/^/not formatted: /'
  rm -f /tmp/format-check.$$
  echo "Run scripts/check-format.sh --fix"
  exit 1
fi
rm -f /tmp/format-check.$$
echo "format: ${#files[@]} files clean"
