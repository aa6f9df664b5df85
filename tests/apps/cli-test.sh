#!/usr/bin/env bash
# Drives stagewright-cli the way a build pipeline would: check, convert both
# ways, round-trip through the canvas and render, and refuse broken files.
#   cli-test.sh CLI GENERATOR SEED_WORKSPACE
set -euo pipefail
cli=$1 generate=$2 seed=$3
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
