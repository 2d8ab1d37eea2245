#!/usr/bin/env bash
# batch.sh: rewrites many files by 'varnotix', on one machine or on many; see docs/batch.md.
#
#   batch.sh run [-j JOBS] STATE INPUT OUT VERB [OPTION...]   all of what follows, on this machine
#   batch.sh split STATE INPUT [FILES]                        parts the input into chunks of so many files
#   batch.sh chunk STATE NUMBER OUT VERB [OPTION...]          does one chunk: here, or wherever the folders are seen
#   batch.sh finish STATE                                     lists what failed, and returns the worst exit status
#
# INPUT is a folder, or a list with one path per line. VERB is 'convert' or 'anonymize', with its options but without -o.
# Outputs lie in OUT as the inputs lie in INPUT. STATE is a folder that remembers the chunks; a second run does what the
# first one did not. The exit statuses are those of 'varnotix': 0, 1 wrong usage, 10 identifying
# values may be left, 20 input, 40 output.
set -uo pipefail

usage=1
left=10
unwritten=40

die()
{
    printf 'batch.sh: %s\n' "$*" >&2
    exit $usage
}

tool()
{
    "${VARNOTIX:-varnotix}" "$@"
}

# What the input holds, one path per line, in the same order each time.
list_input()
{
    if [ -d "$1" ]; then
        find "$1" -type f ! -name '.varnotix-*' | LC_ALL=C sort
    else
        grep -v '^$' -- "$1"
    fi
}

split_input()
{
    local state=$1 input=${2%/} files=${3:-1000}
    [ -r "${input:-/}" ] || die "cannot read '$2'"
    mkdir -p "$state/todo" "$state/done" "$state/failed" "$state/log" || exit $unwritten
    list_input "${input:-/}" >"$state/list.new" || [ -s "$state/list.new" ] || die "there are no files in '$2'"
    ! grep -Eq '(^|/)\.\.(/|$)' "$state/list.new" || die "'$2' holds a path with '..' in it"
    if [ -e "$state/list" ]; then
        cmp -s "$state/list" "$state/list.new" || die "'$state' is the state of another input: take a new folder"
        rm "$state/list.new"
        return
    fi
    # The prefix that an output's path does not have.
    if [ -d "$input" ]; then printf '%s/' "$input"; fi >"$state/prefix"
    split --numeric-suffixes --suffix-length=6 --lines="$files" "$state/list.new" "$state/todo/" || exit $unwritten
    mv "$state/list.new" "$state/list"
}

# target_of FILE: sets 'target', without a process of its own, for there may be a million of them.
target_of()
{
    target=${1#"$prefix"}
    target=${target#/}
    target=$out/${target#./}
}

# rewrite_one FILE: for itself, so that the exit status is its own.
rewrite_one()
{
    target_of "$1"
    mkdir -p "${target%/*}" || return $unwritten
    if [ "$verb" = convert ]; then
        tool convert "${options[@]}" -- "$1" "$target"
    else
        tool anonymize "${options[@]}" -o "$target" -- "$1"
    fi
}

# rewrite_together FILE...: inputs of one folder, by one process. False when the verb cannot, or when one went wrong.
rewrite_together()
{
    [ "$verb" = anonymize ] && [ $# -gt 1 ] || return
    target_of "$1"
    mkdir -p "${target%/*}" && tool anonymize "${options[@]}" -o "${target%/*}/" -- "$@" || [ $? -eq $left ]
}

# rewrite FILE...: inputs of one folder; 'worst' and the list of failures on descriptor 3 hold what went wrong.
rewrite()
{
    [ $# -gt 0 ] && ! rewrite_together "$@" || return 0
    local file status
    for file in "$@"; do
        target_of "$file"
        [ ! -e "$target" ] || continue
        rewrite_one "$file"
        status=$?
        [ $status -ne $left ] || status=0 # The output is there, and the log says what it holds.
        [ $status -eq 0 ] || printf '%d %s\n' $status "$file" >&3
        [ $status -le $worst ] || worst=$status
        [ $status -ne $usage ] || break # Of one command line, the others would say the same.
    done
}

# has_left LOG...: some output may hold identifying values.
has_left()
{
    grep -qs ': not covered: ' "$@"
}

# check_call STATE OUT VERB
check_call()
{
    case $3 in convert | anonymize) ;; *) die "'$3' is not a verb for a batch: convert, anonymize" ;; esac
    ! [ "$(cat "$1/prefix")." -ef "$2" ] || die "INPUT and OUT are one folder"
}

do_chunk()
{
    local state=$1 number out=${3%/} verb=$4 prefix file folder='' worst=0
    number=$(printf '%06d' "$((10#$2))") || die "'$2' is not the number of a chunk"
    local options=("${@:5}") group=() target
    [ -r "$state/todo/$number" ] || die "there is no chunk $number in '$state'"
    check_call "$state" "$out" "$verb"
    [ ! -e "$state/done/$number" ] || return 0
    prefix=$(cat "$state/prefix")
    {
        while IFS= read -r file; do
            target_of "$file"
            [ ! -e "$target" ] || continue # An output appears when it is complete.
            if [ "${target%/*}" != "$folder" ]; then
                rewrite "${group[@]}"
                group=()
                folder=${target%/*}
            fi
            group+=("$file")
        done <"$state/todo/$number"
        rewrite "${group[@]}"
    } 3>"$state/failed/$number.new" 2>>"$state/log/$number"
    mv "$state/failed/$number.new" "$state/failed/$number"
    if [ $worst -eq 0 ]; then
        rm "$state/failed/$number"
        : >"$state/done/$number"
        ! has_left "$state/log/$number" || worst=$left
    fi
    return $worst
}

finish()
{
    local state=$1 number undone=0 worst=0 status line
    [ -d "$state/todo" ] || die "'$state' is not the state of a batch"
    for number in "$state"/todo/*; do
        number=${number##*/}
        if [ -e "$state/failed/$number" ]; then
            while IFS= read -r line; do
                printf '%s\n' "$line"
                status=${line%% *}
                [ "$status" -le $worst ] || worst=$status
            done <"$state/failed/$number"
        elif [ ! -e "$state/done/$number" ]; then
            undone=$((undone + 1))
        fi
    done
    if [ $undone -gt 0 ]; then
        printf 'batch.sh: %d chunks are not done\n' $undone >&2
        [ $worst -ge $unwritten ] || worst=$unwritten
    fi
    [ $worst -ne 0 ] || ! has_left "$state"/log/* || worst=$left
    return $worst
}

run()
{
    local jobs
    jobs=$(nproc)
    if [ "${1:-}" = -j ]; then
        jobs=${2:-}
        shift 2
    fi
    [ $# -ge 4 ] || die "run [-j JOBS] STATE INPUT OUT VERB [OPTION...]"
    local state=$1 input=$2 out=$3
    split_input "$state" "$input"
    check_call "$state" "$out" "$4"
    # The state holds what went wrong; xargs has one status for all of it.
    (cd "$state/todo" && printf '%s\0' *) | xargs -0 -P "$jobs" -I '{}' "$0" chunk "$state" '{}' "${@:3}"
    finish "$state"
}

case ${1:-} in
    run) run "${@:2}" ;;
    split) [ $# -ge 3 ] || die "split STATE INPUT [FILES]" && split_input "${@:2}" ;;
    chunk) [ $# -ge 5 ] || die "chunk STATE NUMBER OUT VERB [OPTION...]" && do_chunk "${@:2}" ;;
    finish) [ $# -eq 2 ] || die "finish STATE" && finish "$2" ;;
    *) die "run, split, chunk or finish; see the head of this script" ;;
esac
