#!/usr/bin/env bash
# setup.sh [STAGE...]: installs the Debian 12 packages that the stages of test.sh need; without a stage, those for all
# of the development work. Installed packages are left as they are.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

[ $# -gt 0 ] || set -- release asan tsan installed windows clang bench coverage fuzz hostile style reference

packages=(g++ cmake ninja-build libcli11-dev nlohmann-json3-dev libasio-dev zlib1g-dev libssl-dev
    libpng-dev libjpeg62-turbo-dev libopenjp2-7-dev libcharls-dev)
for stage in "$@"; do
    case $stage in
        release | asan | tsan) packages+=(libgtest-dev dcmtk libgdcm-tools dicom3tools python3-pydicom) ;;
        installed) packages+=(libgtest-dev pkgconf dpkg-dev file) ;;
        clang) packages+=(libgtest-dev clang) ;;
        windows) packages+=(g++-mingw-w64-i686-posix libz-mingw-w64-dev googletest debootstrap util-linux) ;;
        fuzz) packages+=(clang libclang-rt-dev) ;;
        hostile) packages+=(time) ;;
        bench) packages+=(libbenchmark-dev libdcmtk-dev libgdcm-dev) ;;
        coverage) packages+=(libgtest-dev gcovr) ;;
        style) packages+=(clang-format clang-tidy) ;;
        reference) packages+=(doxygen) ;;
        *) die "there is no stage '$stage'" ;;
    esac
done

version=$(. /etc/os-release 2>/dev/null && echo "${ID:-} ${VERSION_ID:-}") || version=
if [ "$version" != "debian 12" ]; then
    missing=()
    for tool in g++ cmake ninja; do
        command -v "$tool" >/dev/null || missing+=("$tool")
    done
    [ ${#missing[@]} -gt 0 ] || exit 0
    printf 'Wanted, by their Debian names:\n' >&2
    printf '  %s\n' "${packages[@]}" >&2
    die "packages are installed on Debian 12 only; missing here: ${missing[*]}"
fi

wanted=()
for package in "${packages[@]}"; do
    state=$(dpkg-query --show --showformat '${db:Status-Status}' "$package" 2>/dev/null) || state=
    [ "$state" = installed ] || wanted+=("$package")
done
[ ${#wanted[@]} -gt 0 ] || exit 0

echo "Installing ${wanted[*]}"
as_root apt-get update -qq
as_root env DEBIAN_FRONTEND=noninteractive apt-get install -qq -y --no-install-recommends "${wanted[@]}" >/dev/null
