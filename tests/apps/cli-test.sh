#!/usr/bin/env bash
# Drives stagewright-cli the way a build pipeline would: check, convert both
# ways, round-trip through the canvas and render, and refuse broken files.
# Then runs the example game, tessaro-play, without a window.
#   cli-test.sh CLI GENERATOR SEED_WORKSPACE PLAY
set -euo pipefail
cli=$1 generate=$2 seed=$3 play=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }

"$generate" "$work/project.plist" --levels 2 --obstacles 30 --characters 4 --coins 10 --ground 6
summary=$("$cli" check "$work/project.plist")
grep -q "project: 2 levels" <<<"$summary" || fail "check summary: $summary"
grep -q "30 obstacles, 4 characters, 10 coins" <<<"$summary" || fail "check counts: $summary"

"$cli" convert "$work/project.plist" "$work/project.bplist" --binary
[ "$(head -c 8 "$work/project.bplist")" = "bplist00" ] || fail "binary output"
"$cli" convert "$work/project.bplist" "$work/back.plist" --xml
cmp -s "$work/project.plist" "$work/back.plist" || fail "XML to binary to XML changed the file"

cp "$seed/Assets/ObjectList.plist" "$work/ObjectList.plist"
"$cli" check "$work/ObjectList.plist" | grep -q "object catalogue:" || fail "catalogue kind from its name"

# A broken file: exit 1, the configuration error line, the file untouched.
printf '<plist><array><dict>' > "$work/broken.plist"
before=$(md5sum < "$work/broken.plist")
if out=$("$cli" check "$work/broken.plist"); then fail "a broken file passed the check"; fi
grep -q "^Configuration error ($work/broken.plist): " <<<"$out" || fail "diagnostic line: $out"
if "$cli" convert "$work/broken.plist" "$work/out.plist" >/dev/null; then fail "a broken file converted"; fi
[ ! -e "$work/out.plist" ] || fail "convert wrote output for a broken file"
[ "$(md5sum < "$work/broken.plist")" = "$before" ] || fail "the broken file was changed"

# Through the canvas: the seed workspace with a project of its own elements.
cp -r "$seed" "$work/workspace"
mkdir -p "$work/workspace/Levels"
"$generate" "$work/workspace/Levels/Seeded.plist" --levels 1 --obstacles 12 --characters 2 --coins 5 --ground 4
"$cli" roundtrip "$work/workspace" "$work/workspace/Levels/Seeded.plist" "$work/roundtrip.plist" >/dev/null
"$cli" check "$work/roundtrip.plist" | grep -q "12 obstacles, 2 characters, 5 coins" || fail "round trip lost elements"
"$cli" render "$work/workspace" "$work/workspace/Levels/Seeded.plist" --level 1 --out "$work/level.png" --width 800 >/dev/null
[ "$(head -c 4 "$work/level.png" | tail -c 3)" = "PNG" ] || fail "render wrote no PNG"
if "$cli" render "$work/workspace" "$work/workspace/Levels/Seeded.plist" --level 9 --out "$work/none.png" >/dev/null 2>&1; then
  fail "rendering a level that does not exist succeeded"
fi
echo "stagewright-cli: all checks passed"

# tessaro-play: the sample project and a generated one run without a window
# and report what they made and counted.
sample="$seed/../sample/Levels/Sample.plist"
report=$("$play" "$seed" "$sample" --headless --frames 600 --report --autopilot --screenshot "$work/play.png")
for start in "sprites created: obstacles 11, characters 4, coins 13, shields 1, artifacts 1, checkpoints 1" \
             "bodies: " "contacts begun: " "coins collected: " "player final position: " "sounds started: " "hits: " \
             "frame time: min "; do
  grep -q "^$start" <<<"$report" || fail "tessaro-play report lacks '$start': $report"
done
[ "$(grep -c . <<<"$report")" -eq 8 ] || fail "tessaro-play report is not eight lines: $report"
grep -q "^sounds started: .*coin.wav [1-9]" <<<"$report" || fail "collected coins made no sound: $report"
grep -q "^frame time: .* median .* 99th percentile .* max " <<<"$report" || fail "frame time line: $report"
collected=$(sed -n 's/^coins collected: \([0-9]*\) of 13$/\1/p' <<<"$report")
[ "${collected:-0}" -gt 0 ] || fail "the autopilot collected no coin: $report"
x=$(sed -n 's/^player final position: \(-\{0,1\}[0-9]*\)\..*/\1/p' <<<"$report")
[ "${x:-0}" -gt 1000 ] || fail "the player did not run along the level: $report"
[ "$(head -c 4 "$work/play.png" | tail -c 3)" = "PNG" ] || fail "tessaro-play wrote no screenshot"

report=$("$play" "$work/workspace" "$work/workspace/Levels/Seeded.plist" --headless --frames 120 --report)
grep -q "^sprites created: obstacles [0-9]*, characters 0, coins 5, " <<<"$report" || fail "generated level: $report"
grep -q "^player final position: none$" <<<"$report" || fail "a level without a friendly character has no player"

# Unreadable input: exit 1 and the configuration error line.
if out=$("$play" "$seed" "$work/missing.plist" --headless); then fail "tessaro-play ran a missing project"; fi
grep -q "^Configuration error ($work/missing.plist): " <<<"$out" || fail "missing project line: $out"
if out=$("$play" "$work/nowhere" "$sample" --headless); then fail "tessaro-play ran without a workspace"; fi
grep -q "^Configuration error (ObjectList): " <<<"$out" || fail "missing workspace line: $out"
if "$play" "$seed" "$sample" --level 5 --headless >/dev/null; then fail "tessaro-play ran a level that does not exist"; fi
echo "tessaro-play: all checks passed"
