#!/usr/bin/env bash
# reference.sh: makes the API reference, build/reference/html/index.html, and fails if a comment of the public headers is
# wrong or missing.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$top"

scripts/setup.sh reference
place=build/reference
rm -rf "$place"
mkdir -p "$place"
version=$(sed -n 's/^project(Varnotix VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)

# The headers that a host gets through the one that includes all; the compiler knows which.
mapfile -t headers < <(g++ -std=c++20 -MM -MG -I . Varnotix/Varnotix.h | grep -o 'Varnotix/[^ ]*\.h' | sort -u |
    grep -v '^Varnotix/Version\.h$')

doxygen - <<CONFIGURATION
@INCLUDE = docs/Doxyfile
PROJECT_NUMBER = $version
OUTPUT_DIRECTORY = $place
WARN_LOGFILE = $place/warnings.txt
INPUT = README.md CHANGELOG.md docs ${headers[*]}
CONFIGURATION

# Members whose names say it all may go without a comment, and are listed without one; so may the macros that others are
# made of. Classes, enumerations and free functions may not.
plain='Member .*(\((function|variable|friend)\) of (class|struct)|\(macro definition\) of file) .* is not documented'
sort -u "$place/warnings.txt" | grep -Ev "$plain" >"$place/faults.txt" || true
if [ -s "$place/faults.txt" ]; then
    cat "$place/faults.txt" >&2
    die "comments are wrong or missing"
fi
echo "The reference of ${#headers[@]} headers is in $top/$place/html/index.html"
