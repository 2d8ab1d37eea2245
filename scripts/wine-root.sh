#!/usr/bin/env bash
# wine-root.sh: makes the small 32-bit Debian that the Windows tests run in, once; later calls find it and return.
# It lies in ${VARNOTIX_CACHE:-$HOME/.cache/varnotix}/wine-i386. A root of its own spares the machine a second architecture.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

if [ "${1:-}" = --isolated-warm-up ]; then
    enter_wine_root -- / sh -c 'wineboot --init && wine cmd /c "exit 0" && wineserver --wait'
    exit
fi

[ ! -e "$wine_root/.ready" ] || exit 0
if [ "$(id -u)" -ne 0 ]; then
    as_root env VARNOTIX_CACHE="$cache" "${BASH_SOURCE[0]}"
    exit
fi

mkdir -p "$cache"
exec 9>"$cache/lock"
flock 9
[ ! -e "$wine_root/.ready" ] || exit 0
"${isolated[@]}" true || die "mounts and name spaces are not permitted here, so Wine cannot be set up"

suite=bookworm
find_mirror "$suite"

! grep -qF " $wine_root" /proc/mounts || die "something is mounted below $wine_root: unmount it first"
rm -rf --one-file-system "$wine_root"
echo "Making the Wine root in $wine_root (about a minute)"
"${isolated[@]}" debootstrap --arch=i386 --variant=minbase --include=wine32,wine "$suite" "$wine_root" "$mirror" \
    >"$cache/wine-root.log" 2>&1 9>&- || { tail -n 20 "$cache/wine-root.log" >&2; die "debootstrap failed"; }
rm -f "$wine_root"/var/cache/apt/archives/*.deb

# The first start of a prefix builds it; done here so that no test finds a half-made one.
"${isolated[@]}" "${BASH_SOURCE[0]}" --isolated-warm-up >>"$cache/wine-root.log" 2>&1 9>&- ||
    { tail -n 20 "$cache/wine-root.log" >&2; die "the first start of Wine failed"; }
touch "$wine_root/.ready"
