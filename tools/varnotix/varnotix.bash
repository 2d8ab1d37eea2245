# Completion of 'varnotix' for bash: verbs, options, and the values of options that have a list of them. It asks the
# program itself, so it always fits the one that is typed. All else is completed as file names.

# _varnotix_options HELP: prints the options that a help text lists.
_varnotix_options()
{
    local line name
    while IFS= read -r line; do
        if [[ $line =~ ^'  '(-[^ ]+) ]]; then
            for name in ${BASH_REMATCH[1]//,/ }; do
                printf '%s\n' "$name"
            done
        fi
    done <<<"$1"
}

# _varnotix_values HELP NAME: prints the values that a help text gives for an option, or for arguments by position when
# NAME is empty.
_varnotix_values()
{
    local line
    while IFS= read -r line; do
        if [[ $line =~ ^'  '([^ ]+)' '[^{}]*'{'([^{}]*)'}' ]]; then
            local names=${BASH_REMATCH[1]} values=${BASH_REMATCH[2]}
            if { [[ -n $2 && ,$names, == *,"$2",* ]]; } || { [[ -z $2 && $names != -* ]]; }; then
                printf '%s\n' ${values//,/ }
            fi
        fi
    done <<<"$1"
}

# _varnotix_verbs HELP: prints the verbs that a help text lists.
_varnotix_verbs()
{
    local line listed=
    while IFS= read -r line; do
        if [[ $line == Subcommands:* ]]; then
            listed=1
        elif [[ -z $line ]]; then
            listed=
        elif [[ -n $listed && $line =~ ^'  '([a-z]+) ]]; then
            printf '%s\n' "${BASH_REMATCH[1]}"
        fi
    done <<<"$1"
}

_varnotix()
{
    local tool=${COMP_WORDS[0]/#\~/$HOME} word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    local verb='' help words i
    COMPREPLY=()
    for ((i = 1; i < COMP_CWORD; ++i)); do
        case ${COMP_WORDS[i]} in
        --) return ;;
        -*) ;;
        *) verb=${verb:-${COMP_WORDS[i]}} ;;
        esac
    done
    # An equals sign is a word of its own here.
    if [[ $word == = ]]; then
        word=
    elif [[ $before == = ]]; then
        before=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    help=$("$tool" $verb --help 2>/dev/null) || return
    if [[ -z $verb ]]; then
        words=$(_varnotix_verbs "$help"; _varnotix_options "$help")
    elif [[ $word == -* ]]; then
        words=$(_varnotix_options "$help")
    elif [[ $before == -* ]]; then
        words=$(_varnotix_values "$help" "$before")
    else
        words=$(_varnotix_values "$help" '')
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}

complete -o bashdefault -o default -F _varnotix varnotix
