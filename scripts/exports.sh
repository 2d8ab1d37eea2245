#!/usr/bin/env bash
# exports.sh [--renew] [LIBRARY]: compares what the Linux library exports with cmake/exports.txt, the list of the class
# interface, and fails if they differ. --renew writes the list again; read the difference before you commit it. The
# default library is that of the release build. The list is that of g++ 12, optimised.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

list=$top/cmake/exports.txt
renew=false
if [ "${1:-}" = --renew ]; then
    renew=true
    shift
fi
[ $# -le 1 ] && [[ ${1:-} != -* ]] || die "usage: exports.sh [--renew] [LIBRARY]"
library=${1:-$top/build/release/bin/libVarnotix.so}
[ -e "$library" ] || die "there is no $library: build it first"

exported=$(mktemp)
trap 'rm -f "$exported"' EXIT
# Constructors and destructors have several symbols of one name.
nm --dynamic --defined-only "$library" | cut -d ' ' -f 3- | c++filt | LC_ALL=C sort -u >"$exported"
[ -s "$exported" ] || die "$library exports nothing"

# The functions that hosts call by name are in the namespace; a global one can meet a host's own.
global=$(grep -E '^[A-Za-z_]+(\(|$)' "$exported" | grep -vxF 'InitDicomDLL()' || true)
[ -z "$global" ] || die "exported outside the namespace Varnotix: $global"

if $renew; then
    cp "$exported" "$list"
    printf '%s: %d names\n' "$list" "$(wc -l <"$list")"
elif difference=$(diff --unified=0 "$list" "$exported" | sed -n '/^[-+][^-+]/p'); then
    printf 'The %d names that the library exports are those of the list.\n' "$(wc -l <"$list")"
else
    printf '%s\n' "$difference" >&2
    die "'+' is exported and not in cmake/exports.txt, '-' is no longer exported; if that is meant: scripts/exports.sh --renew"
fi
