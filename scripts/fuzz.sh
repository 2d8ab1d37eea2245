#!/usr/bin/env bash
# fuzz.sh [SECONDS [TARGET...]]: runs each fuzz target for SECONDS (at first 600), one after the other, from its seeds and
# from what earlier runs found. Prints for each what was executed, also per second of processor time, how many edges of
# code were reached, and the size of the corpus. Fails when a target reports a fault; the input that made it is then in
# build/fuzzing/TARGET.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$top"

seconds=${1:-600}
[[ $seconds =~ ^[0-9]+$ ]] || die "usage: fuzz.sh [SECONDS [TARGET...]]"
[ $# -eq 0 ] || shift

scripts/setup.sh fuzz
mkdir -p build
{ cmake --preset fuzz && cmake --build --preset fuzz --parallel "$(nproc)"; } >build/fuzz.log 2>&1 ||
    { cat build/fuzz.log >&2; exit 1; }

if [ $# -eq 0 ]; then
    for source in fuzz/*.cpp; do
        set -- "$@" "$(basename "$source" .cpp)"
    done
fi

# number LOG NAME: the last value that a log gives under a name.
number()
{
    awk -v name="$2" '{ for (i = 1; i < NF; ++i) if ($i == name) value = $(i + 1) } END { print value == "" ? "-" : value }' "$1"
}

# Stacks of three calls and a short memory of freed blocks are enough to notice a fault; a run of the one input under the
# defaults shows the rest.
export ASAN_OPTIONS=malloc_context_size=3:quarantine_size_mb=16:${ASAN_OPTIONS:-}

# A corpus on a disk costs more time than most runs.
scratch=$(mktemp -d -p "$([ -d /dev/shm ] && echo /dev/shm || echo "${TMPDIR:-/tmp}")")
trap 'rm -rf "$scratch"' EXIT

status=0
printf '%-12s %12s %10s %8s %16s  %s\n' target executions a-second edges corpus verdict
for target in "$@"; do
    program=$top/build/fuzz/bin/fuzz_$target
    [ -x "$program" ] || die "there is no target '$target'"
    place=$top/build/fuzzing/$target
    mkdir -p "$place/corpus"
    verdict=passed
    cp -r "$place/corpus" "$scratch/corpus"
    # Small inputs: no single block of memory may be large, and a run must end. Entropic schedules count features of
    # every run, which takes longer than the run itself.
    TIMEFORMAT='processor %U %S'
    { time (cd "$scratch" && "$program" -max_total_time="$seconds" -max_len=1024 -timeout=20 -rss_limit_mb=3072 \
        -malloc_limit_mb=256 -entropic=0 -print_funcs=0 -artifact_prefix="$place/" -print_final_stats=1 \
        corpus "$top/fuzz/seeds/$target"); } >"$place/log" 2>&1 || verdict=FAILED status=1
    # Inputs that the shorter ones replaced are gone from the corpus.
    rm -rf "$place/corpus" && mv "$scratch/corpus" "$place/corpus"
    executed=$(number "$place/log" stat::number_of_executed_units:)
    rate=$(awk -v runs="$executed" '$1 == "processor" { used = $2 + $3 } END { printf "%d", (used > 0 ? runs / used : 0) }' \
        "$place/log")
    printf '%-12s %12s %10s %8s %16s  %s\n' "$target" "$executed" "$rate" "$(number "$place/log" cov:)" \
        "$(number "$place/log" corp:)" "$verdict"
    [ "$verdict" = passed ] || tail -n 40 "$place/log" >&2
done
exit $status
