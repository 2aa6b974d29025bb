#!/usr/bin/env bash
# Whole-process figures: eowizard beside the plain tool that handles the same bytes, as a
# user's script meets them. Each pair runs in alternating rounds (hyperfine, no shell in
# between); a figure is the median over all runs of a command, the ratio the median of
# the rounds' ratios. Peak memory is the largest resident size of one run (/usr/bin/time).
#
#   bench/whole_process.sh [EOWIZARD] [ROUNDS]
#
# EOWIZARD defaults to the release build's program; ROUNDS (default 20) alternating rounds
# of 3 runs each for the quick commands, a third as many single runs for the conversion of
# the 30,000-curve model. Prints one line per comparison: figure, baseline, ratio beside
# its target, peak memory beside its target. Needs hyperfine and /usr/bin/time (Debian
# packages hyperfine and time; installed when missing) and gmsh (with libgmsh-dev).
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
exe=$(realpath "${1:-$root/build/default/src/app/eowizard}")
rounds=${2:-20}

missing=()
command -v hyperfine >/dev/null || missing+=(hyperfine)
[ -x /usr/bin/time ] || missing+=(time)
command -v gmsh >/dev/null || missing+=(gmsh)
if [ ${#missing[@]} -gt 0 ]; then
  SUDO=""
  [ "$(id -u)" -eq 0 ] || SUDO="sudo"
  echo "whole_process: installing ${missing[*]}"
  $SUDO apt-get install -y -qq "${missing[@]}" >/dev/null
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$root"

# The times in milliseconds of the command numbered $2 (1 or 2) in hyperfine's JSON
# exports $1..., one a line.
times_ms() {
  local want=$1
  shift
  # Each export lists "times": [ ... ] per command, in the order given.
  awk -v want="$want" '
    FNR == 1 { n = 0 }
    /"times": \[/ { n++; inside = (n == want); next }
    inside && /\]/ { inside = 0 }
    inside { gsub(/[ ,]/, ""); if ($0 != "") print $0 * 1000 }
  ' "$@"
}

# The median of the numbers on standard input, one a line.
median() {
  sort -g | awk '{ v[NR] = $1 } END {
    if (NR % 2) printf "%.2f", v[(NR + 1) / 2]; else printf "%.2f", (v[NR / 2] + v[NR / 2 + 1]) / 2 }'
}

peak_mib() {
  /usr/bin/time -f '%M' -o "$work/peak" "$@" >/dev/null 2>&1 || true
  awk '{ printf "%.1f", $1 / 1024 }' "$work/peak"
}

# compare NAME RATIO_TARGET MEMORY_TARGET_MIB RUNS BASELINE_COMMAND COMMAND
compare() {
  local name=$1 target=$2 memory=$3 runs=$4 baseline=$5 command=$6
  local dir="$work/$(echo "$name" | tr -c 'a-z0-9' _)"
  mkdir -p "$dir"
  for ((r = 1; r <= (runs == 1 ? (rounds + 2) / 3 : rounds); r++)); do
    hyperfine -N --style none --warmup 1 --runs "$runs" --export-json "$dir/round$r.json" \
      "$baseline" "$command" >/dev/null 2>&1 || { echo "failed: $baseline / $command" >&2; exit 1; }
  done
  local base figure ratio mem round
  base=$(times_ms 1 "$dir"/round*.json | median)
  figure=$(times_ms 2 "$dir"/round*.json | median)
  # The ratio of each round's medians, so that a change of the machine's load between
  # rounds falls out; the median of those.
  ratio=$(for round in "$dir"/round*.json; do
    awk -v a="$(times_ms 2 "$round" | median)" -v b="$(times_ms 1 "$round" | median)" \
      'BEGIN { print a / b }'
  done | median)
  mem=$(peak_mib $command)
  printf '%-44s %9s ms  %9s ms  %6sx (target %sx)  %6s MiB' "$name" "$figure" "$base" \
    "$ratio" "$target" "$mem"
  [ "$memory" = "-" ] && echo || echo " (target < $memory MiB)"
}

# The inputs: the shipped coil and actuator sessions, and a 30,000-curve model (a polygon
# with every tenth side an arc, around one surface, as the Gmsh benchmark writes it) in a
# session that converts it into code.
cp examples/coil/Coil.bvg "$work/Coil.bvg"
drive="--drive C=examples/coil/drive_c"
gen=(generate examples/actuator/Actuator.bvg --project "$work/act/Actuator.vbp"
  --registry examples/registry/demo-host.reg --answer yes)
"$exe" "${gen[@]}" >/dev/null 2>&1
cp -r "$work/act" "$work/act-copy"
awk -v n=30000 'BEGIN {
  pi = atan2(0, -1); step = 2 * pi / n
  for (i = 0; i < n; i++) printf "Point(%d) = {%g, %g, 0};\n", i + 1, 100 * cos(i * step), 100 * sin(i * step)
  printf "Point(%d) = {0, 0, 0};\n", n + 1
  for (i = 0; i < n; i++) {
    from = i + 1; to = (i + 1) % n + 1
    if (i % 10 == 9) printf "Circle(%d) = {%d, %d, %d};\n", i + 1, from, n + 1, to
    else printf "Line(%d) = {%d, %d};\n", i + 1, from, to
  }
  printf "Curve Loop(1) = {1:%d};\nPlane Surface(1) = {1};\n", n
  printf "Physical Surface(\"Core\") = {1};\nPhysical Curve(\"Boundary\") = {1:%d:50};\n", n
}' >"$work/ring.geo"
sed "s|^MODEL=.*\r\$|MODEL=$work/ring.geo\r|" examples/converter/Converter.bvg >"$work/Ring.bvg"
ring=(generate "$work/Ring.bvg" --project "$work/ring/Ring.vbp"
  --registry examples/registry/demo-host.reg --answer yes)

printf '%-44s %12s  %12s  %-20s  %s\n' "eowizard ... beside" "eowizard" "baseline" "ratio" \
  "peak memory"
compare "session show --json | cat" 3 15 3 "cat $work/Coil.bvg" \
  "$exe session show --json $drive $work/Coil.bvg"
compare "session check | cat" 3 15 3 "cat $work/Coil.bvg" \
  "$exe session check $drive $work/Coil.bvg"
compare "session rewrite | cp" 3 15 3 "cp $work/Coil.bvg $work/copy.bvg" \
  "$exe session rewrite $drive $work/Coil.bvg $work/rewritten.bvg"
compare "generate actuator (model loaded) | cp -r" 3 15 3 \
  "cp -rT $work/act $work/act-copy" "$exe ${gen[*]}"
compare "generate 30,000 curves converted | gmsh" 1.1 - 1 \
  "gmsh $work/ring.geo -parse_and_exit" "$exe ${ring[*]}"
compare "model show converter | gmsh" 2 - 3 \
  "gmsh examples/converter/Converter.geo -parse_and_exit" \
  "$exe model show examples/converter/Converter.geo"
