# bash completion for zrt; generated from the program's own syntax, do not edit.
@SYNTAX@
@WORDS@
_zrt()
{
    local cur=${COMP_WORDS[COMP_CWORD]} words
    words=$(_zrt_words "${COMP_WORDS[@]:1:COMP_CWORD-1}")
    case $words in
        "<file>")
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -f -- "$cur") ;;
        "<folder>")
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -d -- "$cur") ;;
        *) mapfile -t COMPREPLY < <(compgen -W "$words" -- "$cur") ;;
    esac
}
complete -F _zrt zrt
