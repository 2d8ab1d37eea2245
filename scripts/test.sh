#!/usr/bin/env bash
# test.sh [STAGE...]: builds and tests each stage and fails if any of them fails. Without a stage, all but clang.
#   release    Linux, optimised
#   asan       Linux with the address and undefined behaviour sanitizers
#   installed  the examples, built and run against an installed copy that was moved to another folder
#   windows    32-bit Windows under Wine
#   clang      Linux, built by clang
# Sample files are looked for in VARNOTIX_SAMPLES, then in ../shared/samples.
set -uo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$top" || exit 1

[ $# -gt 0 ] || set -- release asan installed windows
for stage in "$@"; do
    case $stage in
        release | asan | installed | windows | clang) ;;
        *) die "there is no stage '$stage': release, asan, installed, windows, clang" ;;
    esac
done

# quietly LOG COMMAND...: shows what the command printed only if it fails.
quietly()
{
    local log=$1
    shift
    "$@" >"$log" 2>&1 || { cat "$log" >&2; return 1; }
}

build_preset()
{
    quietly "build/$1.log" cmake --preset "$1" && cmake --build --preset "$1" --parallel "$(nproc)"
}

run_tests()
{
    ctest --preset "$1" --parallel "$(nproc)" --no-tests=error
}

# The copy is moved after the installation, so that a path that points back to the build or the first place shows.
try_installed()
{
    local place=$top/build/installed
    rm -rf "$place" &&
        mkdir -p "$place" &&
        quietly "$place/install.log" cmake --install build/release --prefix "$place/first" &&
        mv "$place/first" "$place/moved" &&
        quietly "$place/configure.log" cmake -G Ninja -S examples -B "$place/examples" \
            -DCMAKE_BUILD_TYPE=Release -DCMAKE_PREFIX_PATH="$place/moved" &&
        cmake --build "$place/examples" --parallel "$(nproc)" &&
        cd "$place" &&
        unset VARNOTIX_DATA &&
        ./examples/example_phantom phantom.dcm &&
        ./moved/bin/varnotix where &&
        ./moved/bin/varnotix dump phantom.dcm >phantom.txt &&
        [ -s phantom.txt ]
}

run_stage()
{
    scripts/setup.sh "$1" || return
    case $1 in
        installed) build_preset release && (try_installed) ;;
        windows) scripts/wine-root.sh && build_preset windows && run_tests windows ;;
        *) build_preset "$1" && run_tests "$1" ;;
    esac
}

mkdir -p build
summary=()
status=0
for stage in "$@"; do
    printf '\n== %s\n' "$stage"
    SECONDS=0
    if run_stage "$stage"; then verdict=passed; else verdict=FAILED status=1; fi
    summary+=("$(printf '%-10s %s in %d s' "$stage" "$verdict" "$SECONDS")")
done

printf '\n== summary\n'
printf '%s\n' "${summary[@]}"
exit $status
