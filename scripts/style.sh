#!/usr/bin/env bash
# style.sh [PATTERN...]: holds all sources to .clang-format, and those whose path matches a regular expression (at first
# those of the library and the tool) to the checks in .clang-tidy.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$top"

[ $# -gt 0 ] || set -- "^$top/(Varnotix|tools)/"

scripts/setup.sh release style
mkdir -p build
git ls-files -z '*.h' '*.cpp' | xargs -0 clang-format --dry-run -Werror
# Configured only: the checks read sources, nothing is built.
cmake --preset release -B build/style -DCMAKE_EXPORT_COMPILE_COMMANDS=ON >build/style.log
run-clang-tidy -p build/style -quiet -j "$(nproc)" "$@" >build/style.log 2>&1 ||
    { grep -vE '^(clang-tidy|[0-9]+ warnings generated)' build/style.log >&2; die "clang-tidy found something"; }
