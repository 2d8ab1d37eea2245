#!/usr/bin/env bash
# hostile.sh: gives the tool inputs that are made to cost much, each in one size and in twice that size, and prints the
# processor time and peak memory of each as a row of a table. docs/hostile-input.md shows it and says what to expect.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
cd "$top"

scripts/setup.sh release hostile
mkdir -p build/hostile
{ cmake --preset release && cmake --build --preset release --parallel "$(nproc)" --target varnotix; } \
    >build/hostile/build.log 2>&1 || { cat build/hostile/build.log >&2; exit 1; }
PATH=$top/build/release/bin:$PATH
cd build/hostile

# make_input NAME COUNT: writes the input to standard output.
make_input()
{
    perl -e '
        binmode STDOUT;
        my ($name, $count) = @ARGV;
        sub many { $_[0] x $_[1] }
        sub tag { pack("vv", @_) }
        sub short_form { tag($_[0], $_[1]) . $_[2] . pack("v", length $_[3]) . $_[3] }
        sub long_form { tag($_[0], $_[1]) . $_[2] . pack("vV", 0, $_[3]) }
        my $open = long_form(0x0008, 0x1140, "SQ", 0xFFFFFFFF) . tag(0xFFFE, 0xE000) . pack("V", 0xFFFFFFFF);
        my $close = tag(0xFFFE, 0xE00D) . pack("V", 0) . tag(0xFFFE, 0xE0DD) . pack("V", 0);
        my $pixels = long_form(0x7FE0, 0x0010, "OB", 0xFFFFFFFF);
        my $fragment = tag(0xFFFE, 0xE000) . pack("V", 0);
        my $end = tag(0xFFFE, 0xE0DD) . pack("V", 0);
        my $text = short_form(0x0008, 0x0100, "SH", "AB");
        my $picture = short_form(0x0028, 0x0002, "US", pack("v", 1)) . short_form(0x0028, 0x0004, "CS", "MONOCHROME2 ")
            . short_form(0x0028, 0x0010, "US", pack("v", $count)) . short_form(0x0028, 0x0011, "US", pack("v", $count))
            . short_form(0x0028, 0x0100, "US", pack("v", 8)) . short_form(0x0028, 0x0101, "US", pack("v", 8))
            . short_form(0x0028, 0x0102, "US", pack("v", 7)) . short_form(0x0028, 0x0103, "US", pack("v", 0));
        my $uid = short_form(0x0002, 0x0010, "UI", "1.2.840.10008.1.2.5\0");
        my $meta = ("\0" x 128) . "DICM" . short_form(0x0002, 0x0000, "UL", pack("V", length $uid)) . $uid;
        my $begin = "#SEQUENCE_BEGIN\n";
        my $level = "0008,1140,SQ,1,,[]\n$begin";
        my %make = (
            elements => sub { short_form(0x0010, 0x0020, "LO", "") x $count },
            private => sub { join "", map { short_form(0x0009 + 2 * int($_ / 65536), $_ % 65536, "LO", "") } 1 .. $count },
            texts => sub { long_form(0x0040, 0xA160, "UT", $count) . ("\\" x $count) },
            nested => sub { many(many($open, 64) . $text . many($close, 64), $count) },
            too_deep => sub { $open x $count },
            items => sub { $open . (tag(0xFFFE, 0xE00D) . pack("V", 0) . tag(0xFFFE, 0xE000) . pack("V", 0xFFFFFFFF)
                . $text) x $count . $close },
            empty_items => sub { long_form(0x0008, 0x1140, "SQ", 8 * $count) . $fragment x $count },
            length => sub { long_form(0x0040, 0xA160, "UT", 0xFFFFFFF0) . ("x" x $count) },
            fragments => sub { $pixels . $fragment x ($count + 1) . $end },
            offsets => sub { $pixels . tag(0xFFFE, 0xE000) . pack("V", 4 * $count) . "\0" x (4 * $count) . $fragment x $count . $end },
            rle => sub { my $frame = pack("V*", 1, 64, (0) x 14) . ("\x81\0" x 32);
                $meta . $picture . $pixels . $fragment . tag(0xFFFE, 0xE000) . pack("V", length $frame) . $frame . $end },
            pdu => sub { pack("CCN", 4, 0, 6 * $count) . pack("NCC", 2, 1, 0) x $count },
            contexts => sub { pack("CCN", 1, 0, 68 + 8 * $count) . "\0" x 68 . pack("CCnCCCC", 0x20, 0, 4, 1, 0, 0, 0) x $count },
            script_lines => sub { join "", map { sprintf "%04x,%04x,LO,1,,[a]\n", 0x0009 + 2 * int($_ / 65535), 1 + $_ % 65535 } 1 .. $count },
            script_values => sub { "0010,1001,PN,-1,,[" . ("," x $count) . "]\n" },
            script_text => sub { "0040,a160,UT,1,,[" . ("x" x $count) . "]\n" },
            script_nested => sub { join "", map { sprintf("0009,%04x,SQ,1,,[]\n", 0x1000 + $_) . $begin . many($level, 63)
                . "0008,0100,SH,1,,[AB]\n" . many("#SEQUENCE_END\n", 64) } 1 .. $count },
            script_deep => sub { $level x $count },
        );
        print $make{$name}->();
    ' "$1" "$2"
}

# measure NAME COUNT WHAT COMMAND...: runs the command on the input, which replaces INPUT in it, and prints a row.
measure()
{
    local name=$1 count=$2 what=$3 size status=0
    shift 3
    make_input "$name" "$count" >"$name.input"
    size=$(stat -c %s "$name.input")
    rm -rf pictures
    timeout 600 /usr/bin/time -o measured -f '%U %S %M' "${@//INPUT/$name.input}" >/dev/null 2>message || status=$?
    awk -v what="$what" -v count="$count" -v size="$size" -v status="$status" 'END {
        printf "| %s | %d | %.2f MB | %.2f s | %.1f MB | %s |\n", what, count, size / 1e6, $1 + $2, $3 * 1024 / 1e6,
            status ? "exit " status : "" }' measured
    rm "$name.input"
}

try()
{
    local name=$1 count=$2
    shift 2
    measure "$name" "$count" "$@"
    measure "$name" $((2 * count)) "$@"
}

printf '%s\n' '0008,0016,UI,1,,[1.2.840.10008.5.1.4.1.1.7]' '0008,0018,UI,1,,[1.2.3]' |
    varnotix build --quiet - -o base.dcm

printf '| %s ' Input Count Size 'Processor time' 'Peak memory' ''
printf '|\n|---|---|---|---|---|---|\n'
try elements 500000 'elements without a value' varnotix dump INPUT
try private 500000 'private tags, each a new one' varnotix dump INPUT
try texts 4000000 'empty texts in one value' varnotix dump INPUT
try nested 1000 'sequences of 64 levels, one after the other' varnotix dump INPUT
try too_deep 500000 'levels in one sequence' varnotix dump INPUT
try items 200000 'items of one sequence' varnotix dump INPUT
try empty_items 1000000 'empty items of one sequence' varnotix convert INPUT converted.dcm
try length 4000000 'bytes after a length of 4 GiB' varnotix dump INPUT
try fragments 500000 'fragments of pixel data' varnotix dump INPUT
try offsets 500000 'entries of an offset table' varnotix dump INPUT
try rle 10000 'rows and columns of a frame of 128 bytes' varnotix frames --png -o pictures INPUT
try pdu 500000 'data values in one PDU' varnotix pdu INPUT
try contexts 500000 'presentation contexts in one PDU' varnotix pdu INPUT
try script_lines 200000 'lines of a script, each with a new private tag' varnotix build INPUT -o built.dcm
try script_values 4000000 'empty values in one line of a script' varnotix build INPUT -o built.dcm
try script_text 4000000 'characters in one value of a script' varnotix build INPUT -o built.dcm
try script_nested 1000 'sequences of 64 levels in a script, one after the other' varnotix build INPUT -o built.dcm
try script_deep 500000 'levels in one sequence of a script' varnotix build INPUT -o built.dcm
try script_lines 200000 'lines to apply, each with a new private tag' varnotix apply INPUT base.dcm -o applied.dcm
