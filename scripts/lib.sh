# shellcheck shell=bash disable=SC2034
# Shared by the scripts beside it; sourced, never run.

top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
cache=${VARNOTIX_CACHE:-$HOME/.cache/varnotix}
wine_root=$cache/wine-i386

die()
{
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# as_root COMMAND...: runs it as root, by sudo where the caller is another user.
as_root()
{
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo -- "$@"
    else
        die "root rights are needed for: $*"
    fi
}

# The calls that follow run in name spaces of their own: every mount and every process that they leave goes away
# with them, so nothing can stay mounted into the Wine root, not even after a kill.
isolated=(unshare --mount --pid --fork --kill-child)

# find_mirror SUITE: sets mirror to where this machine takes the suite's packages from, and the proxy that it takes.
find_mirror()
{
    mirror=$(apt-get indextargets --format '$(RELEASE) $(COMPONENT) $(REPO_URI)' |
        awk -v suite="$1" '$1 == suite && $2 == "main" { print $3; exit }')
    [ -n "$mirror" ] || die "no package source of this machine offers $1 main"
    local proxy
    eval "$(apt-config shell proxy Acquire::http::Proxy)"
    [ -z "${proxy:-}" ] || export http_proxy=$proxy
}

# enter_wine_root FOLDER... -- COMMAND...: runs the command in the Wine root, with the folders visible there under their
# own paths. /tmp is fresh each time: the Wine server's socket lies there, so that runs side by side do not meet.
# Only for use below "isolated".
enter_wine_root()
{
    mount -t proc proc "$wine_root/proc"
    mount --rbind /dev "$wine_root/dev"
    mount -t tmpfs tmpfs "$wine_root/tmp"
    local folder
    while [ "$1" != -- ]; do
        folder=$1
        shift
        mkdir -p "$wine_root$folder"
        mount --bind "$folder" "$wine_root$folder"
    done
    shift
    chroot "$wine_root" /usr/bin/env PATH=/usr/bin:/bin HOME=/root WINEPREFIX=/root/.wine WINEDEBUG=-all \
        LC_ALL=C.UTF-8 /bin/sh -c 'cd "$0" && exec "$@"' "$@"
}
