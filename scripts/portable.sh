#!/usr/bin/env bash
# portable.sh [SOURCE...]: checks sources as Visual C++ classes: clang reads them with the ABI of 32-bit Visual C++, in
# which an exported class defines all its members at once, and with warnings for extensions of the language. Without
# sources, all of the library and, as a host of it, the example that reads a patient.
# The standard headers are those of MinGW-w64, so this does not replace a build by Visual C++; their windows.h is for
# g++ only, so the sources that need it are left to the preset windows.
set -uo pipefail
shopt -s extglob
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$top" || exit 1

headers=$(dirname "$(i686-w64-mingw32-g++-posix -print-libgcc-file-name)")/include/c++
[ -d "$headers" ] || die "there are no MinGW-w64 headers: scripts/setup.sh windows"
generated=build/release/generated
[ -e "$generated/Varnotix/Version.h" ] || die "configure the preset release first"

check()
{
    local building=()
    [[ $1 == Varnotix/* ]] && building=(-DVARNOTIX_BUILDING)
    clang++ --target=i686-pc-windows-msvc -std=c++20 -fsyntax-only -fms-extensions -fno-ms-compatibility \
        -fmsc-version=0 -fgnuc-version=4.2.1 -fno-delayed-template-parsing -Wall -Wextra -Wpedantic -Wgnu -Werror \
        -D__MINGW32__ -D_ALLOCA_S_MARKER_SIZE=8 -D_UCRT \
        -nostdinc++ -isystem "$headers" -isystem "$headers/i686-w64-mingw32" -isystem "$headers/backward" \
        -isystem /usr/i686-w64-mingw32/include -I. -I"$generated" "${building[@]}" "$1"
}

if [ $# -eq 1 ]; then
    check "$1"
    exit
fi
[ $# -gt 0 ] || set -- Varnotix/*/!(*Windows).cpp examples/read_patient/read_patient.cpp
printf '%s\n' "$@" | xargs -P "$(nproc)" -n 1 "${BASH_SOURCE[0]}" || die "see above"
printf '%d sources hold under the Visual C++ ABI\n' $#
