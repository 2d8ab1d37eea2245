#!/usr/bin/env bash
# demo.sh: builds the library with its tool, lets a small host write an object, and looks at it with the tool.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$top"

scripts/setup.sh release
mkdir -p build/demo
cmake --preset release >build/demo/configure.log 2>&1 || { cat build/demo/configure.log >&2; exit 1; }
cmake --build --preset release --parallel "$(nproc)" --target varnotix example_phantom

# show COMMAND...: prints the command as one would type it, then runs it.
show()
{
    printf '\n$ %s\n' "$*"
    "$@"
}

cd build/demo
PATH=$top/build/release/bin:$PATH
show example_phantom phantom.dcm
show varnotix where
show varnotix dump phantom.dcm
show varnotix convert --syntax big phantom.dcm -o phantom-big.dcm
# Reads to the end, as the tool would otherwise meet a closed pipe.
show varnotix dump phantom-big.dcm | sed -n '1,14p'
printf '\nThe objects lie in %s\n' "$PWD"
