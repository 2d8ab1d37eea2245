#!/usr/bin/env bash
# test.sh [STAGE...]: configures, builds and tests each stage: release, asan, windows (the default is all three), clang.
# Sample files are looked for in VARNOTIX_SAMPLES, then in ../shared/samples. Fails if any stage fails.
set -uo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$top" || exit 1

[ $# -gt 0 ] || set -- release asan windows
for stage in "$@"; do
    case $stage in
        release | asan | windows | clang) ;;
        *) die "there is no stage '$stage': release, asan, windows, clang" ;;
    esac
done

run_stage()
{
    scripts/setup.sh "$1" &&
        { [ "$1" != windows ] || scripts/wine-root.sh; } &&
        cmake --preset "$1" >"build/$1.log" 2>&1 || { cat "build/$1.log" >&2; return 1; }
    cmake --build --preset "$1" --parallel "$(nproc)" &&
        ctest --preset "$1" --parallel "$(nproc)" --no-tests=error
}

mkdir -p build
summary=()
status=0
for stage in "$@"; do
    printf '\n== %s\n' "$stage"
    SECONDS=0
    if run_stage "$stage"; then verdict=passed; else verdict=FAILED status=1; fi
    summary+=("$(printf '%-8s %s in %d s' "$stage" "$verdict" "$SECONDS")")
done

printf '\n== summary\n'
printf '%s\n' "${summary[@]}"
exit $status
