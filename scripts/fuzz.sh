#!/usr/bin/env bash
# Builds the libFuzzer targets (fuzz preset) and runs each one for a while
# from its committed seed corpus; stops at the first target that crashes.
# Usage: scripts/fuzz.sh [SECONDS] [TARGET...]   (default: 3 seconds, every target)
#   A crash leaves its input in build/fuzz/crashes/<target>/; inputs the run
#   found interesting go to build/fuzz/found/<target>/ (never into the
#   committed corpus), so a later run goes on from them.
#   Each target prints libFuzzer's last status line: runs, coverage (cov),
#   features (ft) and corpus size.
set -euo pipefail

seconds="${1:-3}"
shift || true
repo_root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$repo_root"

bash scripts/install-deps.sh fuzz
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz -j2 --target fuzz_all

build=build/fuzz
if (($# > 0)); then
    targets=("$@")
else
    mapfile -t targets < "$build/fuzz/targets.txt"
fi

# The chassis roots the targets write (and rewrite) go to a folder of this
# run, in memory where there is room; a crashed target leaves its roots there.
shm=/dev/shm
[[ -d $shm && -w $shm ]] || shm="$repo_root/$build"
export TMPDIR="$shm/gvfuzz-run.$$"
mkdir -p "$TMPDIR"
trap 'rm -rf "$TMPDIR"' EXIT
export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=1}"
export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1}"

for target in "${targets[@]}"; do
    found="$build/found/$target"
    crashes="$build/crashes/$target"
    mkdir -p "$found" "$crashes"
    log="$build/found/$target.log"
    if ! "$build/fuzz/bin/$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=4096 \
        -artifact_prefix="$crashes/" -print_final_stats=1 \
        "$found" "fuzz/corpus/$target" >"$log" 2>&1; then
        tail -n 60 "$log"
        echo "fuzz: $target failed; the input is in $crashes/ (log: $log)" >&2
        exit 1
    fi
    status="$(grep -E '^#[0-9]+' "$log" | tail -n 1 | grep -oE 'cov: [0-9]+ ft: [0-9]+ corp: [^ ]+')"
    runs="$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")"
    printf 'fuzz: %-18s %10s runs  %s\n' "$target" "$runs" "$status"
done
