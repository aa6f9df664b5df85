#!/usr/bin/env bash
# The installed programs run on their own: the editor starts on a fresh home,
# shows its main window, makes the default workspace with the sample project
# and quits; the installed game plays that sample without a window; and no
# program looks for libraries in the build tree.
#   installed-programs-test.sh PREFIX
set -euo pipefail
prefix=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }

for program in stagewright stagewright-cli tessaro-play; do
  [ -x "$prefix/bin/$program" ] || fail "$program is not installed"
  if readelf -d "$prefix/bin/$program" | grep -qE 'RPATH|RUNPATH'; then
    fail "$program keeps a library search path: $(readelf -d "$prefix/bin/$program" | grep -E 'RPATH|RUNPATH')"
  fi
done

home=$work/home
mkdir -p "$home" "$work/runtime"
chmod 700 "$work/runtime"
run() {
  env -i PATH=/usr/bin:/bin HOME="$home" XDG_CONFIG_HOME="$home/.config" XDG_DATA_HOME="$home/.local/share" \
    XDG_CACHE_HOME="$home/.cache" XDG_RUNTIME_DIR="$work/runtime" QT_QPA_PLATFORM=offscreen \
    ASAN_OPTIONS="${ASAN_OPTIONS:-}" UBSAN_OPTIONS="${UBSAN_OPTIONS:-}" timeout 120 "$@"
}

"$prefix/bin/stagewright" --version | grep -q "StageWright" || fail "stagewright --version"
run "$prefix/bin/stagewright" --quit-after-start || fail "the installed editor did not start and quit (status $?)"
workspace=$home/StageWrightSpace
for file in Levels/Sample.plist Assets/ObjectList.plist Assets/CharacterList.plist Assets/ObstacleList.plist; do
  [ -f "$workspace/$file" ] || fail "the first start made no $file"
done

report=$(run "$prefix/bin/tessaro-play" "$workspace" "$workspace/Levels/Sample.plist" --headless --frames 60 --report)
grep -q "^sprites created: obstacles [1-9]" <<<"$report" || fail "tessaro-play made no obstacles: $report"
"$prefix/bin/stagewright-cli" check "$workspace/Levels/Sample.plist" | grep -q "project: 3 levels" ||
  fail "stagewright-cli does not read the sample"
echo "installed programs: editor, game and tool run from $prefix"
