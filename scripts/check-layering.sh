#!/usr/bin/env bash
# Fails when an include runs against the dependency order of the libraries:
#   model <- layout;  model <- kit <- runtime;  model, kit <- state <- scene <- inspector, editors <- shell <- apps
#   (kit, runtime, state and scene may use layout)
# A library may include only itself and the libraries listed for it below.
set -euo pipefail
cd "$(dirname "$0")/.."

declare -A allowed=(
  [tessaro/model]="tessaro/model"
  [tessaro/layout]="tessaro/model tessaro/layout"
  [tessaro/kit]="tessaro/model tessaro/layout tessaro/kit"
  [tessaro/runtime]="tessaro/model tessaro/layout tessaro/kit tessaro/runtime"
  [stagewright/state]="tessaro/model tessaro/layout tessaro/kit stagewright/state"
  [stagewright/scene]="tessaro/model tessaro/layout tessaro/kit stagewright/state stagewright/scene"
  [stagewright/inspector]="tessaro/model tessaro/kit stagewright/state stagewright/scene stagewright/inspector"
  [stagewright/editors]="tessaro/model tessaro/kit stagewright/state stagewright/scene stagewright/inspector stagewright/editors"
  [stagewright/shell]="tessaro/model tessaro/kit stagewright/state stagewright/scene stagewright/inspector stagewright/editors stagewright/shell"
)

status=0
for library in "${!allowed[@]}"; do
  [ -d "$library" ] || continue
  while IFS=: read -r file line include; do
    target=$(sed -E 's/.*#include *<((tessaro|stagewright)\/[a-z]+)\/.*/\1/' <<<"$include")
    if [[ " ${allowed[$library]} " != *" $target "* ]]; then
      echo "layering: $file:$line includes $target, which $library may not use"
      status=1
    fi
  done < <(grep -rnE '#include *<(tessaro|stagewright)/[a-z]+/' "$library" --include='*.h' --include='*.cpp' || true)
done
# The model and layout libraries stay free of Qt, so games and tools can read
# and lay out the files without it.
for plain in tessaro/model tessaro/layout; do
  if grep -rnE '#include *<Q' $plain --include='*.h' --include='*.cpp'; then
    echo "layering: $plain includes Qt"
    status=1
  fi
done
[ $status -eq 0 ] && echo "layering: includes follow the dependency order"
exit $status
