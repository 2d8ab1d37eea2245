#!/usr/bin/env bash
# bench.sh [INPUT...]: builds the benchmarks, runs them, and ends with a table: this library beside each other toolkit,
# processor time in milliseconds, medians of five runs that alternate. A ratio above 1 means that this library, by its
# classic stream rules, is faster; "standard" is its time by the standard ones.
# With inputs (header_heavy, bulk_128MiB, ...) only these are read and written, and nothing else is measured. Each input
# has a process of its own, so that none finds the memory that another left. The full output is in
# build/bench/bench.log. Real MR files, mr_*.dcm, are looked for in VARNOTIX_SAMPLES, then in ../shared/samples.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$top"

scripts/setup.sh bench
mkdir -p build/bench
cmake --preset bench >build/bench/configure.log 2>&1 || { cat build/bench/configure.log >&2; exit 1; }
cmake --build --preset bench --parallel "$(nproc)" --target varnotix_bench bench_allocations bench_load

program=build/bench/bin/varnotix_bench
log=build/bench/bench.log
: >"$log"

# measure FILTER: adds the runs of the benchmarks that it names to the log.
measure()
{
    printf 'Measuring %s\n' "$1"
    "$program" --benchmark_filter="$1" --benchmark_repetitions=5 --benchmark_enable_random_interleaving=true >>"$log" 2>&1
}

inputs=("$@")
if [ $# -eq 0 ]; then
    mapfile -t inputs < <("$program" --benchmark_list_tests | awk -F/ '$1 == "read" && !seen[$2]++ { print $2 }')
fi
for input in "${inputs[@]}"; do
    measure "/$input/"
done
if [ $# -eq 0 ]; then
    measure '^memory/'
    measure '^threads/'
    for growing in $("$program" --benchmark_list_tests | grep '^RoundTrip/'); do
        measure "^$growing\$"
    done
    measure '^(Construct|Update|Read|Encode|Decode|Data|Export|Import)[A-Z]'
fi

awk '
# Milliseconds of processor time; the fourth and fifth field are a number and its unit.
function milliseconds() { return $4 * ($5 == "ns" ? 1e-6 : $5 == "us" ? 1e-3 : $5 == "s" ? 1e3 : 1) }
function ratio(peer) { return peer > 0 && own > 0 ? sprintf("%.2f", peer / own) : "-" }
function shown(value) { return value > 0 ? sprintf("%.3f", value) : "-" }

/ERROR OCCURRED/ { print "failed: " $0 > "/dev/stderr"; failed = 1 }
/^memory\// {
    split($1, name, "/")
    sub(/.*peak=/, "")
    peak[++peaks] = sprintf("%-20s %-10s %s", name[2], name[3], $0 ~ /m$/ ? sprintf("%.3f", $0 / 1000) : $0)
}
/^threads\/.*_median/ {
    split($1, name, "/")
    files = $0
    sub(/.*items_per_second=/, "", files)
    scale = files ~ /k\/s/ ? 1000 : files ~ /M\/s/ ? 1000000 : 1
    key = name[2] " " name[3]
    if (name[5] ~ /^threads:1/) { one[key] = files * scale; threaded[++pairs] = key }
    else two[key] = files * scale
    next
}
/_median/ {
    sub(/_median$/, "", $1)
    parts = split($1, name, "/")
    if (name[1] == "RoundTrip") {
        sub(/_median/, "", name[3])
        growing[++sizes] = name[2]
        size[sizes] = name[3]
        trip[name[2], name[3]] = milliseconds()
    } else if (parts == 3) {
        if (!(name[2] in seen)) { seen[name[2]] = 1; order[++inputs] = name[2] }
        time[name[1] " " name[2], name[3]] = milliseconds()
    } else {
        single[++singles] = sprintf("%-16s %.6f ms", name[1], milliseconds())
    }
}
function row(operation, input,   key)
{
    key = operation " " input
    own = time[key, "varnotix"]
    if (own > 0)
        printf "%-6s %-14s %10s %10s %10s %10s %8s %8s\n", operation, input, shown(own), \
            shown(time[key, "standard"]), shown(time[key, "dcmtk"]), \
            shown(time[key, "gdcm"]), ratio(time[key, "dcmtk"]), ratio(time[key, "gdcm"])
}
END {
    printf "\n%-6s %-14s %10s %10s %10s %10s %8s %8s\n", "", "input", "varnotix", "standard", "dcmtk", "gdcm", \
        "x dcmtk", "x gdcm"
    for (i = 1; i <= inputs; ++i) { row("read", order[i]); row("write", order[i]) }
    for (i = 1; i <= inputs; ++i)
        if (("copy " order[i], "memcpy") in time)
            printf "one memory copy of %s: %.3f\n", order[i], time["copy " order[i], "memcpy"]
    if (sizes) print "\nTwice the input, read and written:"
    for (i = 1; i <= sizes; ++i)
        if ((growing[i], size[i] * 2) in trip)
            printf "%-10s %6d %9.3f ms to %9.3f ms: %.2f\n", growing[i], size[i], trip[growing[i], size[i]], \
                trip[growing[i], size[i] * 2], trip[growing[i], size[i] * 2] / trip[growing[i], size[i]]
    if (pairs) print "\nFiles a second of one thread and of two:"
    for (i = 1; i <= pairs; ++i)
        printf "%-16s %8d %8d: %.2f\n", threaded[i], one[threaded[i]], two[threaded[i]], two[threaded[i]] / one[threaded[i]]
    if (peaks) print "\nPeak memory above the caller, in sizes of the 128 MiB input:"
    for (i = 1; i <= peaks; ++i) print peak[i]
    if (singles) print ""
    for (i = 1; i <= singles; ++i) print single[i]
    exit failed
}' "$log"

if [ $# -eq 0 ]; then
    echo
    build/bench/bin/bench_allocations
    echo
    build/bench/bin/bench_load build/bench/bin/libVarnotix.so
fi
