#!/usr/bin/env bash
# wine-run.sh PROGRAM [ARGUMENT...]: runs a 32-bit Windows program in the current folder under Wine, from the root that
# scripts/wine-root.sh made. Output and exit status come through. CTest calls it for every test of the windows preset.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

if [ "${1:-}" = --isolated ]; then
    shift
    count=$1
    shift
    enter_wine_root "${@:1:count}" -- "${@:count+1}"
    exit
fi

[ $# -gt 0 ] || die "usage: wine-run.sh PROGRAM [ARGUMENT...]"
[ -e "$wine_root/.ready" ] || die "there is no Wine root in $wine_root: run scripts/wine-root.sh"
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || die "mounting into the Wine root needs root rights"
    exec sudo --non-interactive --preserve-env VARNOTIX_CACHE="$cache" "${BASH_SOURCE[0]}" "$@"
fi

folders=()
# share FOLDER: makes it visible inside unless a folder above it is already.
share()
{
    local known
    for known in "${folders[@]}"; do
        [[ $1/ == "$known"/* ]] && return
    done
    folders+=("$1")
}

# windows_path PATH: how Wine spells a path of this system; its folder is shared.
windows_path()
{
    local path
    path=$(realpath -- "$1")
    if [ -d "$path" ]; then share "$path"; else share "$(dirname -- "$path")"; fi
    result=Z:${path//\//\\}
}

share "$top"
share "$(pwd -P)"
for name in VARNOTIX_SAMPLES VARNOTIX_DATA VARNOTIX_BIN; do
    if [ -n "${!name:-}" ] && [ -e "${!name}" ]; then
        windows_path "${!name}"
        export "$name=$result"
    fi
done
arguments=()
for argument in "$@"; do
    if [[ $argument == /* && -e $argument ]]; then
        windows_path "$argument"
        argument=$result
    fi
    arguments+=("$argument")
done

run()
{
    "${isolated[@]}" "${BASH_SOURCE[0]}" --isolated "${#folders[@]}" "${folders[@]}" \
        "$(pwd -P)" wine "${arguments[@]}"
}

status=0
run || status=$?
# Signal 11 is a crash of Wine itself, seen once in eighty runs while a process ended: faults of a Windows program end it
# with another status.
if [ "$status" -eq 139 ]; then
    echo "wine-run.sh: Wine crashed; running the program once more" >&2
    status=0
    run || status=$?
fi
exit "$status"
