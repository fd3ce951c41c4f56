# What may follow "zrt WORD...", WORD... being the words typed before the one
# being completed: words to offer, or "<file>" or "<folder>" where a file or
# folder name goes. Plain POSIX shell, so that bash and zsh run the same code
# over the same syntax (_zrt_commands, _zrt_forms, _zrt_alternatives,
# _zrt_value).
_zrt_words()
{
    [ -z "${ZSH_VERSION-}" ] || emulate -L sh
    local command word skip="" typed=" " selector options chosen="" usual="" offered=""
    if [ $# -eq 0 ]; then
        echo "$_zrt_commands -h --help -V --version"
        return
    fi
    command=$1
    shift
    if [ "$command" = help ]; then
        [ $# -gt 0 ] || echo "$_zrt_commands"
        return
    fi
    if [ $# -gt 0 ]; then
        eval "word=\${$#}"
        _zrt_value "$word" && return
    fi
    for word in "$@"; do
        if [ -n "$skip" ]; then
            skip=""
            continue
        fi
        case $word in
            -h) typed="$typed--help " ;;
            -*) typed="$typed$word "
                _zrt_value "$word" >/dev/null && skip=1 ;;
        esac
    done
    # The form is the one whose switch was typed, else the usual one.
    while read -r selector options; do
        [ -n "$usual" ] || usual=$options
        case $typed in *" $selector "*) chosen=$options ;; esac
    done <<FORMS
$(_zrt_forms "$command")
FORMS
    for word in ${chosen:-$usual}; do
        case $typed in *" $word "*) continue ;; esac
        _zrt_alternative_typed "$command" "$word" "$typed" || offered="$offered $word"
    done
    # Without a switch typed: the switches whose forms take every option typed.
    [ -n "$chosen" ] || while read -r selector options; do
        [ "$selector" != - ] && _zrt_takes_all " $options " $typed && offered="$offered $selector"
    done <<FORMS
$(_zrt_forms "$command")
FORMS
    echo $offered
}

# Whether an option that does not go with OPTION was typed: command, option, typed.
_zrt_alternative_typed()
{
    [ -z "${ZSH_VERSION-}" ] || emulate -L sh
    local group name
    while read -r group; do
        case " $group " in *" $2 "*) ;; *) continue ;; esac
        for name in $group; do
            [ "$name" != "$2" ] && case $3 in *" $name "*) return 0 ;; esac
        done
    done <<GROUPS
$(_zrt_alternatives "$1")
GROUPS
    return 1
}

# Whether " OPTIONS " holds every option after it.
_zrt_takes_all()
{
    [ -z "${ZSH_VERSION-}" ] || emulate -L sh
    local options=$1 option
    shift
    for option in "$@"; do
        case $options in *" $option "*) ;; *) return 1 ;; esac
    done
}
