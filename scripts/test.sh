#!/usr/bin/env bash
# test.sh [STAGE...]: builds and tests each stage and fails if any of them fails. Without a stage, all but clang.
#   release    Linux, optimised
#   asan       Linux with the address and undefined behaviour sanitizers
#   tsan       Linux with the thread sanitizer: the tests that use threads
#   installed  hosts, built and run against an installed copy that was moved, and against the unpacked Debian packages;
#              the exported names
#   windows    32-bit Windows under Wine; a host, built and run against the unpacked archive
#   reference  the API reference, whose comments must be whole
#   clang      Linux, built by clang
# A stage that takes longer than its limit is stopped and has failed. VARNOTIX_PATIENCE=2 doubles the limits, for slow
# machines. Sample files are looked for in VARNOTIX_SAMPLES, then in ../shared/samples.
set -uo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$top" || exit 1

# Seconds, from nothing on two cores. Together they leave a hang time to be reported.
declare -A limits=([release]=1200 [asan]=1500 [tsan]=900 [installed]=600 [windows]=1500 [reference]=300 [clang]=1200)

# quietly LOG COMMAND...: shows what the command printed only if it fails.
quietly()
{
    local log=$1
    shift
    "$@" >"$log" 2>&1 || { cat "$log" >&2; return 1; }
}

# timed NAME COMMAND...: prints how long a step took.
timed()
{
    local name=$1 begin=$SECONDS result=0
    shift
    "$@" || result=$?
    printf -- '-- %s: %d s\n' "$name" $((SECONDS - begin))
    return $result
}

# build_preset PRESET [TARGET...]: builds the targets, or everything.
build_preset()
{
    local preset=$1
    shift
    quietly "build/$preset.log" cmake --preset "$preset" &&
        cmake --build --preset "$preset" --parallel "$(nproc)" ${1:+--target "$@"}
}

run_tests()
{
    ctest --preset "$1" --parallel "$(nproc)" --no-tests=error
}

# The sanitizer does not know all places where newer kernels put programs, and lets each program sleep at its end.
run_thread_tests()
{
    local -x TSAN_OPTIONS="atexit_sleep_ms=50 ${TSAN_OPTIONS:-}"
    local fixed=()
    setarch -R true 2>/dev/null && fixed=(setarch -R)
    "${fixed[@]}" ctest --preset tsan --tests-regex '^test_threads$' --no-tests=error
}

# reads_phantom COMMAND...: what the host prints of phantom.dcm holds the name that is in it.
reads_phantom()
{
    local output
    output=$("$@" phantom.dcm) || return
    [[ $output == *Phantom^Disc* ]] || { printf '%s printed no name:\n%s\n' "$*" "$output" >&2; return 1; }
}

# build_examples FOLDER OPTION...: the example hosts as a project of their own, against an installed library.
build_examples()
{
    local folder=$1
    shift
    quietly "$folder.log" cmake -G Ninja -S examples -B "$folder" -DCMAKE_BUILD_TYPE=Release "$@" &&
        quietly "$folder.log" cmake --build "$folder" --parallel "$(nproc)" --target example_phantom example_read_patient
}

# pkg_config_host FOLDER OUTPUT: an example host, built with what pkg-config reports of the library below the folder.
pkg_config_host()
{
    local flags
    read -ra flags <<<"$(PKG_CONFIG_PATH=$1/lib/pkgconfig pkg-config --cflags --libs varnotix)" &&
        [[ ${flags[*]} == *"$1"* ]] &&
        g++ -std=c++20 -Wall -Wextra -Werror examples/read_patient/read_patient.cpp "${flags[@]}" -o "$2"
}

# The copy is moved after the installation, so that a path that points back to the build or the first place shows.
try_installed()
{
    local place=$top/build/installed
    rm -rf "$place" &&
        mkdir -p "$place/elsewhere" &&
        quietly "$place/install.log" cmake --install build/release --prefix "$place/first" &&
        mv "$place/first" "$place/moved" &&
        ! grep -rl "$top" "$place/moved" &&
        build_examples "$place/examples" -DCMAKE_PREFIX_PATH="$place/moved" &&
        pkg_config_host "$place/moved" "$place/pkg_config_host" &&
        cd "$place/elsewhere" &&
        ../examples/example_phantom phantom.dcm &&
        reads_phantom ../examples/example_read_patient &&
        reads_phantom env LD_LIBRARY_PATH=../moved/lib ../pkg_config_host &&
        ../moved/bin/varnotix where &&
        reads_phantom ../moved/bin/varnotix dump
}

# Unpacked, not installed: that needs root rights, and scripts/fresh-machine.sh does it.
try_deb()
{
    local place=$top/build/installed/deb packages package
    packages=$(scripts/package.sh deb) || return
    [ "$(wc -l <<<"$packages")" -eq 3 ] || { printf 'not three packages:\n%s\n' "$packages" >&2; return 1; }
    for package in $packages; do
        dpkg-deb --extract "$package" "$place" || return
    done
    pkg_config_host "$place/usr" "$place/host" &&
        cd "$place" &&
        cp ../elsewhere/phantom.dcm . &&
        reads_phantom env LD_LIBRARY_PATH=usr/lib ./host &&
        reads_phantom usr/bin/varnotix dump
}

# Put hosts beside the DLLs, where Windows looks.
try_zip()
{
    local place=$top/build/unpacked archive folder
    archive=$(scripts/package.sh zip) || return
    rm -rf "$place" && mkdir -p "$place" && (cd "$place" && cmake -E tar xf "$archive") || return
    folder=$place/$(basename "$archive" .zip)
    build_examples "$place/examples" -DCMAKE_TOOLCHAIN_FILE="$top/cmake/mingw-i686.cmake" \
        -DVarnotix_DIR="$folder/lib/cmake/Varnotix" -DCMAKE_RUNTIME_OUTPUT_DIRECTORY="$folder/bin" || return
    cd "$place" &&
        "$top/scripts/wine-run.sh" "$folder/bin/example_phantom.exe" phantom.dcm &&
        reads_phantom "$top/scripts/wine-run.sh" "$folder/bin/example_read_patient.exe" &&
        reads_phantom "$top/scripts/wine-run.sh" "$folder/bin/varnotix.exe" dump
}

# check STAGE: the steps of a stage.
check()
{
    timed setup scripts/setup.sh "$1" || return
    unset VARNOTIX_DATA
    case $1 in
        installed)
            timed build build_preset release Varnotix varnotix && timed exports scripts/exports.sh &&
                (timed 'moved copy' try_installed) && (timed packages try_deb)
            ;;
        windows)
            timed wine scripts/wine-root.sh && timed build build_preset windows &&
                timed tests run_tests windows && (timed archive try_zip)
            ;;
        tsan) timed build build_preset tsan test_threads && timed tests run_thread_tests ;;
        reference) timed reference scripts/reference.sh ;;
        *) timed build build_preset "$1" && timed tests run_tests "$1" ;;
    esac
}

if [ "${1:-}" = --check ]; then
    check "$2"
    exit
fi

[ $# -gt 0 ] || set -- release asan tsan installed windows reference
for stage in "$@"; do
    [ -n "${limits[$stage]:-}" ] || die "there is no stage '$stage': release, asan, tsan, installed, windows, reference, clang"
done

mkdir -p build
summary=()
status=0
running=
# A stage has a process group of its own, which the keyboard does not reach.
trap '[ -z "$running" ] || kill "$running"; exit 130' INT TERM
for stage in "$@"; do
    printf '\n== %s\n' "$stage"
    SECONDS=0
    limit=$((limits[$stage] * ${VARNOTIX_PATIENCE:-1}))
    timeout --kill-after=30 "$limit" "$top/scripts/test.sh" --check "$stage" &
    running=$!
    wait "$running"
    case $? in
        0) verdict=passed ;;
        124 | 137) verdict='FAILED, stopped' status=1 ;;
        *) verdict=FAILED status=1 ;;
    esac
    running=
    summary+=("$(printf '%-10s %s in %d s' "$stage" "$verdict" "$SECONDS")")
done

printf '\n== summary\n'
printf '%s\n' "${summary[@]}"
exit $status
