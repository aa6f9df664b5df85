#!/usr/bin/env bash
# The installed desktop entry, AppStream metainfo, icons and file type: each
# passes its validator, and they name one another and the installed program
# consistently.
#   desktop-files-test.sh PREFIX
set -euo pipefail
prefix=$1
share=$prefix/share
id=org.stagewright.StageWright
fail() { echo "FAILED: $*" >&2; exit 1; }

entry=$share/applications/$id.desktop
metainfo=$share/metainfo/$id.metainfo.xml
mime=$share/mime/packages/$id.xml
for file in "$entry" "$metainfo" "$mime"; do
  [ -f "$file" ] || fail "not installed: ${file#"$prefix"/}"
done

# Hints are advice; warnings and errors are faults.
report=$(desktop-file-validate "$entry" 2>&1) || fail "desktop-file-validate: $report"
if grep -qiE '(error|warning):' <<<"$report"; then fail "desktop-file-validate: $report"; fi
# A warning fails the validation as much as an error does.
report=$(appstreamcli validate --no-net "$metainfo" 2>&1) || fail "appstreamcli validate: $report"

grep -q '<project_license>MIT</project_license>' "$metainfo" || fail "the metainfo names no MIT licence"

key() { sed -n "s/^$1=//p" "$entry"; }
exec_line=$(key Exec)
program=${exec_line%% *}
[ -x "$prefix/bin/$program" ] || fail "Exec names $program, which is not in bin"
[[ "$exec_line" == *%[fF]* ]] || fail "Exec takes no files: $exec_line"
[ "$(key Icon)" = "$id" ] || fail "Icon is '$(key Icon)', not the application's id"
for side in 16 32 48 64 128 256; do
  [ -f "$share/icons/hicolor/${side}x${side}/apps/$id.png" ] || fail "no ${side}x${side} icon"
done
[ -f "$share/icons/hicolor/scalable/apps/$id.svg" ] || fail "no scalable icon"

# The file type the entry opens is the one the MIME package declares and the
# one the metainfo says the application provides.
type=$(key MimeType)
type=${type%;}
[ -n "$type" ] || fail "the desktop entry opens no file type"
grep -q "<mime-type type=\"$type\">" "$mime" || fail "$type is not declared in the MIME package"
grep -q "<mediatype>$type</mediatype>" "$metainfo" || fail "the metainfo does not provide $type"
grep -q "<launchable type=\"desktop-id\">$id.desktop</launchable>" "$metainfo" ||
  fail "the metainfo does not launch $id.desktop"
# The install refreshed the prefix's caches.
[ -f "$share/mime/application/${type#application/}.xml" ] || fail "the MIME database does not know $type"
grep -qxF "$type=$id.desktop;" "$share/applications/mimeinfo.cache" ||
  fail "the desktop entries' cache does not open $type with $id.desktop"
echo "desktop files: valid and consistent"
