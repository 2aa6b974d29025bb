#!/usr/bin/env bash
# Runs the shell blocks that README.md, docs/*.md and examples/README.md mark as runnable,
# as a newcomer types them at the repository root. A ```sh block right after the line
#   <!-- doc-test -->          must exit with 0,
#   <!-- doc-test: exit N -->  must exit with N.
# The blocks of one document run in order, in a scratch folder of its own that holds a copy
# of examples/, with the built program on the PATH and HOME inside the scratch folder, so
# that nothing outside SCRATCH_FOLDER is written.
#   run_doc_commands.sh SOURCE_FOLDER PROGRAM_FOLDER SCRATCH_FOLDER
set -uo pipefail
source=$(realpath "$1") program=$(realpath "$2") scratch=$3

rm -rf "$scratch" && mkdir -p "$scratch" && scratch=$(realpath "$scratch") || exit 1
unset WINEPREFIX EOWIZARD_REGISTRY EOWIZARD_MODULE_DIR XDG_DATA_HOME XDG_CONFIG_HOME
passed=0 failed=0

for doc in "$source"/README.md "$source"/docs/*.md "$source"/examples/README.md; do
  name=${doc#"$source"/}
  work=$scratch/${name//\//-}
  mkdir -p "$work/home" "$work/blocks" && cp -r "$source/examples" "$work/" || exit 1
  # Each marked block becomes blocks/<n>.sh, its expected exit code blocks/<n>.exit.
  awk -v dir="$work/blocks" -v doc="$name" '
    match($0, /^<!-- doc-test(: exit [0-9]+)? -->$/) {
      code = $0; gsub(/[^0-9]/, "", code); marked = code == "" ? "0" : code; next }
    marked != "" {
      if ($0 != "```sh") { printf "%s:%d: a doc-test marker before no ```sh block\n", doc, NR > "/dev/stderr"; exit 1 }
      n++; file = dir "/" n ".sh"; print marked > (dir "/" n ".exit"); marked = ""; inside = 1; next }
    inside && $0 == "```" { inside = 0; close(file); next }
    inside { print > file }
  ' "$doc" || { failed=$((failed + 1)); continue; }

  for block in $(ls "$work/blocks" | grep '\.sh$' | sort -n); do
    expected=$(cat "$work/blocks/${block%.sh}.exit")
    (cd "$work" && HOME=$work/home PATH=$program:$PATH bash -e -o pipefail "blocks/$block") \
      > "$work/blocks/${block%.sh}.log" 2>&1
    code=$?
    if [ "$code" = "$expected" ]; then
      passed=$((passed + 1))
    else
      failed=$((failed + 1))
      echo "$name, block $block: exit code $code, the document says $expected"
      sed 's/^/  $ /' "$work/blocks/$block"
      sed 's/^/  | /' "$work/blocks/${block%.sh}.log"
    fi
  done
done

[ $((passed + failed)) -gt 0 ] || { echo "no doc-test block found"; exit 1; }
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
