#!/usr/bin/env bash
# fresh-machine.sh [STAGE...]: shows that a machine with nothing but Debian 12 is enough. In an empty root it runs
# scripts/demo.sh and scripts/test.sh, and makes the Debian packages. In a second one it installs the packages, reads an
# object from any folder, and builds a host with CMake and with pkg-config. Of scripts/test.sh only the stage "release"
# is run, to save time, unless stages are named. What is committed is tested. It needs root rights, debootstrap and 3 GB
# in ${VARNOTIX_CACHE:-$HOME/.cache/varnotix}/fresh, which it removes at the end.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

# Below "isolated": runs a command in a root, in /root.
if [ "${1:-}" = --isolated ]; then
    root=$2
    shift 2
    mount -t proc proc "$root/proc"
    mount --rbind /dev "$root/dev"
    exec chroot "$root" /usr/bin/env --ignore-environment PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive ${http_proxy:+http_proxy="$http_proxy"} /bin/sh -euc 'cd && exec "$@"' "$0" "$@"
fi

if [ "$(id -u)" -ne 0 ]; then
    as_root env VARNOTIX_CACHE="$cache" "${BASH_SOURCE[0]}" "$@"
    exit
fi
[ $# -gt 0 ] || set -- release

fresh=$cache/fresh
empty=$fresh/empty builder=$fresh/builder user=$fresh/user
suite=bookworm

inside()
{
    "${isolated[@]}" "${BASH_SOURCE[0]}" --isolated "$@"
}

# step NAME COMMAND...: says what is done, and how long it took.
step()
{
    local name=$1 begin=$SECONDS
    shift
    printf '\n== %s\n' "$name"
    "$@" </dev/null || die "$name: failed"
    printf '== %s: %d s\n' "$name" $((SECONDS - begin))
}

make_empty()
{
    debootstrap --variant=minbase "$suite" "$empty" "$mirror" >"$fresh/debootstrap.log" 2>&1 ||
        { tail -n 20 "$fresh/debootstrap.log" >&2; return 1; }
    cp -a "$empty" "$builder" && cp -a "$empty" "$user"
}

copy_project()
{
    mkdir "$builder/root/varnotix" &&
        git -c safe.directory="$top" -C "$top" archive HEAD | tar -x -C "$builder/root/varnotix"
}

install_packages()
{
    cp "$builder"/root/varnotix/build/release/packages/*.deb "$user/root/" &&
        inside "$user" sh -euc 'apt-get update -qq && apt-get install -qq -y --no-install-recommends ./*.deb >install.log ||
            { cat install.log >&2; exit 1; }'
}

read_anywhere()
{
    cp "$builder/root/varnotix/build/demo/phantom.dcm" "$user/root/" &&
        inside "$user" sh -euc 'varnotix where
            for folder in / /tmp /usr/share /root; do
                cd "$folder"
                varnotix dump /root/phantom.dcm >/root/dump.txt
                grep "Phantom^Disc" /root/dump.txt
            done'
}

# The host's project is the one that docs/install.md shows.
build_host()
{
    local host=$user/root/host
    mkdir "$host" &&
        cp "$top/examples/read_patient/read_patient.cpp" "$host/host.cpp" &&
        awk '/^```/ { inside = $0 == "```cmake"; next } inside' "$top/docs/install.md" >"$host/CMakeLists.txt" &&
        inside "$user" sh -euc 'apt-get install -qq -y --no-install-recommends g++ cmake make pkgconf >install.log 2>&1 ||
                { cat install.log >&2; exit 1; }
            cd host
            cmake -S . -B build
            cmake --build build
            g++ -std=c++20 host.cpp $(pkg-config --cflags --libs varnotix) -o host
            for program in build/host ./host; do
                "$program" ../phantom.dcm >name.txt
                grep "Phantom^Disc" name.txt
            done'
}

"${isolated[@]}" true || die "mounts and name spaces are not permitted here"
command -v debootstrap >/dev/null || die "debootstrap is not installed"
find_mirror "$suite"
! grep -qF " $fresh" /proc/mounts || die "something is mounted below $fresh: unmount it first"
trap 'rm -rf --one-file-system "$fresh"' EXIT
rm -rf --one-file-system "$fresh"
mkdir -p "$fresh"

step 'two empty roots' make_empty
step 'the project' copy_project
step 'scripts/demo.sh' inside "$builder" varnotix/scripts/demo.sh
step "scripts/test.sh $*" inside "$builder" varnotix/scripts/test.sh "$@"
step 'scripts/package.sh deb' inside "$builder" varnotix/scripts/package.sh deb
step 'the packages install' install_packages
step 'varnotix dump from any folder' read_anywhere
step 'a host by CMake, and by pkg-config' build_host
printf '\nAll done in %d s\n' "$SECONDS"
