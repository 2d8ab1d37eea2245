#!/usr/bin/env bash
# fuzz.sh [SECONDS|RUNSx [TARGET...]]: runs each fuzz target for SECONDS (at first 600) or RUNS times, one after the
# other, from its seeds and from what earlier runs found. Prints for each what was executed, also per second of processor
# time, how many edges of code were reached, and the size of the corpus. Fails when a target reports a fault; the input
# that made it is then in build/fuzzing/TARGET.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$top"

end=${1:-600}
case $end in
    *[!0-9x]* | *x?* | x) die "usage: fuzz.sh [SECONDS|RUNSx [TARGET...]]" ;;
    *x) end=-runs=${end%x} ;;
    *) end=-max_total_time=$end ;;
esac
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

# To notice a fault takes neither the stacks of requests for memory nor a memory of freed blocks that outgrows the
# processor's cache: a run of the one input under the defaults shows the rest. No single block may be large.
noticing=malloc_context_size=0:quarantine_size_mb=1:thread_local_quarantine_size_kb=64:max_allocation_size_mb=256

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
    rm -f "$place"/*log
    verdict=passed
    cp -r "$place/corpus" "$scratch/corpus"
    # Small inputs, which must end soon. Entropic schedules count features of every run, which takes longer than the run
    # itself; the search for leaks counts every request for memory, so it is left to the runs of the corpus at the end.
    limits=(-max_len=512 -timeout=20 -rss_limit_mb=3072 -artifact_prefix="$place/")
    TIMEFORMAT='processor %U %S'
    { time (cd "$scratch" && ASAN_OPTIONS=$noticing:${ASAN_OPTIONS:-} "$program" "$end" "${limits[@]}" -detect_leaks=0 \
        -entropic=0 -print_funcs=0 -print_final_stats=1 corpus "$top/fuzz/seeds/$target"); } >"$place/log" 2>&1 &&
        (cd "$scratch" && "$program" -runs=0 "${limits[@]}" corpus) >"$place/leaks.log" 2>&1 ||
        verdict=FAILED status=1
    # Inputs that the shorter ones replaced are gone from the corpus.
    rm -rf "$place/corpus" && mv "$scratch/corpus" "$place/corpus"
    executed=$(number "$place/log" stat::number_of_executed_units:)
    rate=$(awk -v runs="$executed" '$1 == "processor" { used = $2 + $3 } END { printf "%d", (used > 0 ? runs / used : 0) }' \
        "$place/log")
    printf '%-12s %12s %10s %8s %16s  %s\n' "$target" "$executed" "$rate" "$(number "$place/log" cov:)" \
        "$(number "$place/log" corp:)" "$verdict"
    [ "$verdict" = passed ] || tail -n 40 "$place"/*log >&2
done
exit $status
