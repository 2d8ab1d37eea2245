#!/usr/bin/env bash
# package.sh deb|zip: makes the Debian packages from the release build, or the archive for 32-bit Windows from the windows
# build, and prints where they are. The packages take the version from CMakeLists.txt.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$top"

case ${1:-} in
    deb) stage=installed preset=release generator=DEB ;;
    zip) stage=windows preset=windows generator=ZIP ;;
    *) die "usage: package.sh deb|zip" ;;
esac
[ $# -eq 1 ] || die "usage: package.sh deb|zip"

scripts/setup.sh "$stage"
mkdir -p build
log=build/package-$1.log
{
    cmake --preset "$preset"
    cmake --build --preset "$preset" --parallel "$(nproc)" --target Varnotix varnotix
    rm -rf "build/$preset/packages"
    cpack -G "$generator" --config "build/$preset/CPackConfig.cmake"
} >"$log" 2>&1 || { cat "$log" >&2; die "no packages were made"; }
find "$top/build/$preset/packages" -maxdepth 1 -type f | LC_ALL=C sort
