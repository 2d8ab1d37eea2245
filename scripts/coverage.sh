#!/usr/bin/env bash
# coverage.sh [OPTION...]: how many lines of the decoders, which take bytes or text from outside, the tests and the
# fuzzers' seeds reach, file by file, with the lines that they do not reach. Fails below 90 lines in a hundred. Options
# go to gcovr; build/coverage/report/index.html shows the sources in colours.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$top"

decoders='Varnotix/(codec/((Classic|Standard)[a-zA-Z]*Decoder|FragmentReader|SyntaxProbe|DcmParser|StreamCursor)|asl/(Asl|Scan|Script)|script/|iod/(DcmIODStream|DcmCompositeIODScript|ScriptFrames)|pixel/(PackBits|RleCodec)|pdu/(PduDecoder|PduBytes|PduItems)|registry/(DataFiles|DictionaryFile|EntryTable|NameList))'
programs='test_(asl|codec|element|iod|load|pdu|pixel|registry|script)|replay_.*'

scripts/setup.sh coverage
mkdir -p build/coverage/report
cmake --preset coverage >build/coverage.log
mapfile -t targets < <(ctest --preset coverage --show-only -R "^($programs)\$" | awk '/Test +#/ { print $3 }')
cmake --build --preset coverage --parallel "$(nproc)" --target "${targets[@]}"
find build/coverage -name '*.gcda' -delete
ctest --preset coverage --quiet -R "^($programs)\$"
gcovr --root . --filter "$decoders" --sort-uncovered --fail-under-line 90 \
    --html-details build/coverage/report/index.html --txt - "$@" build/coverage
