# Completion of macroctl for bash. Subcommands and options are asked from macroctl itself, whose --help lists each
# at the start of a line: what is completed is what the installed program knows.

_macroctl_subcommands() {
    "$1" --help 2>/dev/null | sed -n '/^Subcommands:/,/^$/ s/^  \([a-z][a-z-]*\).*/\1/p'
}

# Arguments: the program and a subcommand, or the program alone.
_macroctl_options() {
    "$@" --help 2>/dev/null | sed -n '/^Options:/,/^$/ s/^  \(-[^ ]*\).*/\1/p' | tr , '\n'
}

_macroctl_complete() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} program=${COMP_WORDS[0]}
    local subcommands subcommand='' candidate
    subcommands=$(_macroctl_subcommands "$program")
    for candidate in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        if grep -qxF -- "$candidate" <<<"$subcommands"; then
            subcommand=$candidate
            break
        fi
    done

    COMPREPLY=()
    case $subcommand:$previous in
        registers:--format)
            mapfile -t COMPREPLY < <(compgen -W 'table listing csv json markdown html c-header svd' -- "$word")
            return ;;
        run:--format | check:--format | diff:--format)
            mapfile -t COMPREPLY < <(compgen -W 'text json' -- "$word")
            return ;;
        *:--work-dir)
            compopt -o dirnames 2>/dev/null
            return ;;
        *:--namespace)
            return ;;
    esac
    if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_macroctl_options "$program" ${subcommand:+"$subcommand"})" -- "$word")
    elif [[ -z $subcommand ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$subcommands" -- "$word")
    else
        compopt -o default 2>/dev/null  # files
    fi
}

complete -F _macroctl_complete macroctl
