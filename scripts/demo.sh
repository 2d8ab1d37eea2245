#!/usr/bin/env bash
# demo.sh: builds the library with its tool, lets a small host write an object, and looks at it with the tool.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$top"

scripts/setup.sh release
mkdir -p build/demo
cmake --preset release >build/demo/configure.log 2>&1 || { cat build/demo/configure.log >&2; exit 1; }
cmake --build --preset release --parallel "$(nproc)" --target varnotix example_phantom example_read_patient

# show COMMAND...: prints the command as one would type it, then runs it.
show()
{
    printf '\n$ %s\n' "$*"
    "$@"
}

# show_part LINES COMMAND...: the same, with only some lines of the output. The command runs to its end, as it would
# otherwise meet a closed pipe.
show_part()
{
    local lines=$1
    shift
    show "$@" | sed -n "1,2p;${lines}p" | cut -c 1-110
}

cd build/demo
PATH=$top/build/release/bin:$PATH
printf '\nA small host writes an object: a disc on a ramp, 64 by 64 pixels.\n'
show example_phantom phantom.dcm
printf '\nAnother one, of a few lines, reads the name from it.\n'
show example_read_patient phantom.dcm
printf '\nThe tool prints objects as text; here are the patient and the picture.\n'
show_part '/^0010,/p;/^0028,001/p;/^7fe0,/' varnotix dump phantom.dcm
printf '\nA script makes another object around the same picture, a CT image.\n'
show varnotix build "$top/examples/scripts/ct-from-phantom.asl" -o ct.dcm
show_part '/^#IOD_KIND/p;/^0008,0060/p;/^0028,0030/p;/^7fe0,/' varnotix dump ct.dcm
printf '\nIt rewrites them in another transfer syntax, here with the bytes of each number turned round.\n'
show varnotix convert --syntax big phantom.dcm phantom-big.dcm
show_part '/^#IOD_SYNTAX/p;/^0002,0010/p;/^0028,0010/' varnotix dump phantom-big.dcm
printf '\nIt writes the frames as pictures to look at.\n'
show varnotix frames --png -o pictures phantom.dcm
ls pictures
printf '\nAnd it prints where the data dictionary came from.\n'
show varnotix where
printf '\nThe objects lie in %s, the programs in %s\n' "$PWD" "$top/build/release/bin"
