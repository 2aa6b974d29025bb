#!/usr/bin/env bash
# make bench: runs every benchmark program of a build (REPETITIONS times, 5 by default),
# then prints each guarded figure beside its guard, and the whole-process comparison
# (bench/whole_process.sh).
#
#   bench/run.sh [BUILD_FOLDER]    (default build/default)
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
build=$(realpath "${1:-$root/build/default}")
repetitions=${REPETITIONS:-5}
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT

for program in "$build"/bench/eow_*_bench; do
  "$program" --benchmark_repetitions="$repetitions" --benchmark_report_aggregates_only=true \
    --benchmark_out="$out/$(basename "$program").csv" --benchmark_out_format=csv
done

# median PROGRAM BENCHMARK [COLUMN]: the median of BENCHMARK's COLUMN (real_time by
# default; a counter's name for a counter) over the repetitions.
median() {
  awk -F, -v name="$2" -v column="${3:-real_time}" '
    $1 == "name" { for (i = 1; i <= NF; i++) if ($i == column || $i == "\"" column "\"") c = i; next }
    index($1, "\"" name "/") == 1 && $1 ~ /_median"$/ { print $c; exit }
  ' "$out/$1.csv"
}

# guard LABEL FIGURE BASELINE GUARD: the ratio of two medians beside the most it may be.
guard() {
  awk -v label="$1" -v a="$2" -v b="$3" -v limit="$4" 'BEGIN {
    ratio = a / b
    printf "%-58s %6.2fx  guard %sx  %s\n", label, ratio, limit, ratio <= limit ? "ok" : "EXCEEDED" }'
}

# bound LABEL FIGURE_MS LIMIT_MS: a time beside its target.
bound() {
  awk -v label="$1" -v a="$2" -v limit="$3" 'BEGIN {
    printf "%-58s %6.1f ms  target %s ms  %s\n", label, a, limit, a <= limit ? "ok" : "MISSED" }'
}

echo
echo "In process (medians of $repetitions repetitions):"
guard "generation / plain write of the same bytes" \
  "$(median eow_generation_bench BM_Generate)" \
  "$(median eow_generation_bench BM_PlainWriteOfGeneratedBytes)" 6
guard "merge-regeneration (100 edits) / plain generation" \
  "$(median eow_generation_bench BM_MergeRegeneration)" \
  "$(median eow_generation_bench BM_Generate)" 4
guard "preview opened (first file shown) / dry run, 5,000 inputs" \
  "$(median eow_pages_bench BM_PreviewOfLargeSession)" \
  "$(median eow_pages_bench BM_DryRunOfLargeSession)" 2
guard "30,000-curve model: sandboxed read / read in this process" \
  "$(median eow_gmsh_bench BM_SandboxedLoad)" \
  "$(median eow_gmsh_bench BM_GmshLoad)" 1.1
guard "session load / line-splitting floor on the same bytes" \
  "$(median eow_session_bench BM_SessionLoad)" \
  "$(median eow_session_bench BM_SplitSessionIntoFields)" 4
bound "window: launch notice painted, from the process's spawn" \
  "$(median eow_startup_bench BM_WindowProcess notice_ms)" 100
bound "window: wizard page painted, analysis application started" \
  "$(median eow_startup_bench BM_WindowProcess page_ms)" 400

echo
echo "Whole process:"
"$root/bench/whole_process.sh" "$build/src/app/eowizard"
