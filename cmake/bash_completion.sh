#!/usr/bin/env bash
# Writes zrt's bash completion to OUTPUT, read from the program's own
# help: the commands that `zrt --help` lists and the options that each
# `zrt COMMAND --help` declares, so the completion follows the parser.
set -euo pipefail
zrt=$1 output=$2
# Whole or not at all: a failed run leaves no file that looks up to date.
rm -f "$output"
exec >"$output.part"

help=$("$zrt" --help)
commands=$(sed -n 's/^  \([a-z][a-z-]*\)  .*/\1/p' <<<"$help")
[ -n "$commands" ] || { echo "no commands in '$zrt --help'" >&2; exit 1; }
first_words="$commands $(grep -o -- '--[a-z][a-z-]*' <<<"$help" | sort -u)"

# Qt's help lists an option as "  [-x, ]--name [<VALUE>]  description".
option_rows() { # command -> "name|value|description" per option
    "$zrt" "$1" --help | sed -n 's/^  \(-[a-zA-Z], \)\{0,1\}\(--[a-z][a-z-]*\)\( <\([A-Z]*\)>\)\{0,1\}  *\(.*\)/\2|\4|\5/p'
}

# What follows an option that takes a value: files, folders, the choices its
# description lists ("A, B or C."), or nothing to offer.
value_arm() { # name value description
    case $2 in
        FILE | FILEBASE) echo "        $1) compopt -o filenames; mapfile -t COMPREPLY < <(compgen -f -- \"\$cur\"); return ;;" ;;
        DIR) echo "        $1) compopt -o filenames; mapfile -t COMPREPLY < <(compgen -d -- \"\$cur\"); return ;;" ;;
        *)
            if [[ $3 =~ ^([A-Z]+(, [A-Z]+)*)\ or\ ([A-Z]+)\.$ ]]; then
                echo "        $1) words=\"${BASH_REMATCH[1]//,/} ${BASH_REMATCH[3]}\" ;;"
            else
                echo "        $1) return ;;"
            fi ;;
    esac
}

value_arms=""
command_arms=""
declare -A seen
for command in $commands; do
    rows=$(option_rows "$command")
    [ -n "$rows" ] || { echo "no options in '$zrt $command --help'" >&2; exit 1; }
    command_arms+="            $command) words=\"$(cut -d'|' -f1 <<<"$rows" | paste -sd' ')\" ;;"$'\n'
    while IFS="|" read -r name value description; do
        [ -n "$value" ] && [ -z "${seen[$name]:-}" ] || continue
        seen[$name]=1
        value_arms+="$(value_arm "$name" "$value" "$description")"$'\n'
    done <<<"$rows"
done

cat <<EOF
# bash completion for zrt; generated from the program's help, do not edit.
_zrt()
{
    local cur=\${COMP_WORDS[COMP_CWORD]} prev=\${COMP_WORDS[COMP_CWORD-1]} words=""
    if [ "\$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W "$(echo $first_words)" -- "\$cur")
        return
    fi
    case \$prev in
${value_arms}        *)
            case \${COMP_WORDS[1]} in
${command_arms}            esac ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "\$words" -- "\$cur")
}
complete -F _zrt zrt
EOF
mv "$output.part" "$output"
