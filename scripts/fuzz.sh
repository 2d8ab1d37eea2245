#!/usr/bin/env bash
# fuzz.sh [SECONDS [TARGET...]]: runs each fuzz target for SECONDS (at first 600), one after the other, from its seeds and
# from what earlier runs found. Prints for each what was executed, how many edges of code were reached, and the size of
# the corpus. Fails when a target reports a fault; the input that made it lies in build/fuzzing/TARGET.
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

status=0
printf '%-12s %12s %8s %16s  %s\n' target executions edges corpus verdict
for target in "$@"; do
    program=$top/build/fuzz/bin/fuzz_$target
    [ -x "$program" ] || die "there is no target '$target'"
    place=$top/build/fuzzing/$target
    mkdir -p "$place/corpus"
    verdict=passed
    # Small inputs: no single block of memory may be large, and a run must end.
    (cd "$place" && "$program" -max_total_time="$seconds" -max_len=4096 -timeout=20 -rss_limit_mb=3072 \
        -malloc_limit_mb=256 -artifact_prefix="$place/" -print_final_stats=1 \
        corpus "$top/fuzz/seeds/$target") >"$place/log" 2>&1 || verdict=FAILED status=1
    printf '%-12s %12s %8s %16s  %s\n' "$target" "$(number "$place/log" stat::number_of_executed_units:)" \
        "$(number "$place/log" cov:)" "$(number "$place/log" corp:)" "$verdict"
    [ "$verdict" = passed ] || tail -n 40 "$place/log" >&2
done
exit $status
