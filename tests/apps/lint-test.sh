#!/usr/bin/env bash
# Drives `stagewright-cli lint` as a build pipeline would: a clean project
# passes, a project with one fault of each kind fails with one line per fault
# and the same findings as JSON, unreadable input stops with exit 2, and the
# workspace is byte for byte what it was. The bundled sample project passes
# on the seed workspace.
#   lint-test.sh CLI SEED_WORKSPACE SAMPLE_PROJECT
set -euo pipefail
cli=$1 seed=$2 sample=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }

ws="$work/workspace"
cp -r "$seed" "$ws"
mkdir -p "$ws/Levels" "$ws/Assets/Sounds"
printf 'RIFF' > "$ws/Assets/Sounds/theme.wav"

python3 - "$ws/Levels" <<'EOF'
import copy, plistlib, sys
folder = sys.argv[1]
at = lambda x: [{"deviceName": "defaultDevice", "position": "{%.1f,0.0}" % x}]
clean = {
    "settings": {"scrollOrientation": "horizontal", "sceneOrientation": "landscape",
                 "scaleMode": "aspectFill", "size": "{874.0,402.0}"},
    "ground": [{"image": "ground_grass", "devices": [{"deviceName": "defaultDevice", "size": "{256.0,96.0}"}]}],
    "background": {"backgrounds": [{"image": "sky", "zPosition": 1.0}],
                   "soundEffects": [{"type": "background", "filename": "theme", "fileExtension": "wav"}]},
    "obstacles": [{"elementName": "Crate", "name": "Crate 1", "zPosition": 10.0,
                   "properties": {"devices": at(300)}}],
    "characters": [{"elementName": "Hero", "name": "Hero 1", "zPosition": 20.0}],
    "checkpoints": {"image": "Flag", "locations": [{"zPosition": 12.0, "devices": at(500)}]},
    "coins": {"repeatDistance": "{10, 10}", "coins": [{"devices": at(200)}]},
    "levelEnd": {"windowItems": [{"type": "window", "image": "window_panel", "zPosition": 1.0}]},
}
faulty = copy.deepcopy(clean)
del faulty["ground"], faulty["levelEnd"]
faulty["obstacles"] += [
    {"elementName": "Ghost", "name": "Ghost 1", "zPosition": 10.0},
    {"elementName": "Crate", "name": "Crate 2", "zPosition": 10.0,
     "properties": {"image": "crate_old", "devices": [{"deviceName": "defaultDevice", "position": "{1,x}"}]}},
]
faulty["characters"][0]["properties"] = {"image": "/etc/passwd"}
faulty["background"]["soundEffects"][0]["filename"] = "missing_theme"
with open(folder + "/Clean.plist", "wb") as f:
    plistlib.dump([clean], f)
with open(folder + "/Faulty.plist", "wb") as f:
    plistlib.dump([clean, faulty], f)
EOF

out=$("$cli" lint "$seed" "$sample") || fail "the bundled sample did not pass: $out"
[ "$out" = "lint: no findings in 3 levels" ] || fail "sample output: $out"

snapshot() { (cd "$ws" && find . | sort && find . -type f -exec md5sum {} + | sort); }
before=$(snapshot)

# Clean: exit 0 and only the summary.
out=$("$cli" lint "$ws" "$ws/Levels/Clean.plist") || fail "a clean project did not pass: $out"
[ "$out" = "lint: no findings in 1 level" ] || fail "clean output: $out"

# One fault of each kind: exit 1, one line each.
set +e
out=$("$cli" lint "$ws" "$ws/Levels/Faulty.plist"); status=$?
set -e
[ $status -eq 1 ] || fail "findings gave exit $status"
for line in \
  'level 2: no-ground: level: the level has no ground' \
  'level 2: no-level-end: level: the level has no level end window' \
  'level 2: missing-entry: obstacle "Ghost 1": "Ghost" is not in the obstacle catalogue' \
  'level 2: missing-image: obstacle "Crate 2": image "crate_old" is not in Assets/Images/Obstacles/' \
  'level 2: escaping-name: character "Hero 1": image "/etc/passwd" leads out of Assets/Images/Characters/' \
  'level 2: missing-sound: background: soundEffects[1]: sound "missing_theme.wav" is not in Assets/Sounds/' \
  'level 2: bad-value: obstacle "Crate 2": properties.devices[1].position "{1,x}": "x" is not a number' \
  'lint: 7 findings in 1 of 2 levels'; do
  grep -qxF "$line" <<<"$out" || fail "missing line '$line' in: $out"
done
[ "$(grep -c '^level ' <<<"$out")" -eq 7 ] || fail "not seven findings: $out"

# The same findings for tools.
set +e
json=$("$cli" lint "$ws" "$ws/Levels/Faulty.plist" --json); status=$?
set -e
[ $status -eq 1 ] || fail "--json with findings gave exit $status"
python3 -c '
import json, sys
report = json.loads(sys.stdin.read())
findings, summary = report["findings"], report["summary"]
assert len(findings) == 7 == summary["findings"], summary
assert all(set(f) == {"level", "kind", "item", "problem"} for f in findings), findings
assert summary["levels"] == 2 and summary["levelsWithFindings"] == 1, summary
assert summary["byKind"] == {"missing-entry": 1, "missing-image": 1, "missing-sound": 1, "escaping-name": 1,
                             "bad-value": 1, "no-ground": 1, "no-level-end": 1}, summary["byKind"]
assert {"level": 2, "kind": "missing-entry", "item": "obstacle \"Ghost 1\"",
        "problem": "\"Ghost\" is not in the obstacle catalogue"} in findings, findings
' <<<"$json" || fail "JSON report: $json"
"$cli" lint "$ws" "$ws/Levels/Clean.plist" --json | python3 -c '
import json, sys
report = json.load(sys.stdin)
assert report["findings"] == [] and report["summary"]["findings"] == 0, report' || fail "clean JSON report"

# Unreadable input: exit 2, one line on stderr, nothing on stdout.
expect_unreadable() {
  local what=$1; shift
  set +e
  out=$("$cli" lint "$@" 2>"$work/err"); status=$?
  set -e
  [ $status -eq 2 ] || fail "$what gave exit $status"
  [ -z "$out" ] || fail "$what printed findings: $out"
  [ "$(wc -l <"$work/err")" -eq 1 ] || fail "$what: not one line on stderr: $(cat "$work/err")"
  grep -q "^stagewright-cli lint: " "$work/err" || fail "$what: $(cat "$work/err")"
}
printf '<plist><array><dict>' > "$work/broken.plist"
expect_unreadable "a missing project" "$ws" "$work/missing.plist" --json
expect_unreadable "a broken project" "$ws" "$work/broken.plist"
expect_unreadable "a missing workspace" "$work/nowhere" "$ws/Levels/Clean.plist"
cp -r "$ws" "$work/no-catalogue"
rm "$work/no-catalogue/Assets/CharacterList.plist"
expect_unreadable "a missing catalogue" "$work/no-catalogue" "$ws/Levels/Clean.plist"
grep -q "CharacterList.plist" "$work/err" || fail "the missing catalogue is not named: $(cat "$work/err")"
set +e
"$cli" lint "$ws" 2>/dev/null; status=$?
set -e
[ $status -eq 2 ] || fail "a missing argument gave exit $status"
"$cli" --help 2>&1 | grep -q "stagewright-cli lint WORKSPACE PROJECT \[--json\]" || fail "usage lacks lint"

[ "$(snapshot)" = "$before" ] || fail "lint changed the workspace"
echo "stagewright-cli lint: all checks passed"
