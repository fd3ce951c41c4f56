#compdef zrt
# zsh completion for zrt; generated from the program's own syntax, do not edit.
@SYNTAX@
@WORDS@
_zrt()
{
    local found
    local -a offered
    found=$(_zrt_words "${(@)words[2,CURRENT-1]}")
    case $found in
        "<file>") _files ;;
        "<folder>") _files -/ ;;
        *) offered=(${=found}); compadd -a offered ;;
    esac
}
if [ "$funcstack[1]" = _zrt ]; then
    _zrt "$@"
else
    compdef _zrt zrt
fi
