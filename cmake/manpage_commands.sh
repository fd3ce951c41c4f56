#!/usr/bin/env bash
# Writes a COMMANDS section for help2man to OUTPUT: each command that
# `zrt --help` lists, with its own `zrt COMMAND --help` turned into roff.
set -euo pipefail
zrt=$1 output=$2
# Whole or not at all: a failed run leaves no file that looks up to date.
rm -f "$output"
exec >"$output.part"

commands=$("$zrt" --help | sed -n 's/^  \([a-z][a-z-]*\)  .*/\1/p')
[ -n "$commands" ] || { echo "no commands in '$zrt --help'" >&2; exit 1; }

echo '[COMMANDS]'
for command in $commands; do
    echo ".SS \"zrt $command\""
    # Qt's help: usage lines, a blank line, the description, "Options:", then
    # "  [-x, ]--name [<VALUE>]  text" with continuation lines indented.
    "$zrt" "$command" --help | awk '
        function roff(s) { gsub(/\\/, "\\e", s); gsub(/-/, "\\-", s); if (s ~ /^[.\047]/) s = "\\&" s; return s }
        part == 0 && $0 == "" { print ".fi"; print ".PP"; part = 1; next }
        part == 0 { if (NR == 1) print ".nf"; print roff($0); next }
        part == 1 && $0 == "Options:" { part = 2; next }
        part == 1 && $0 != "" { print roff($0); next }
        match($0, /^  (-[a-zA-Z], )?--[a-z-]+( <[A-Z]+>)?  +/) {
            head = substr($0, 3, RLENGTH - 2); body = substr($0, RLENGTH + 1)
            sub(/ +$/, "", head); value = ""
            if (match(head, / <[A-Z]+>$/)) { value = " \\fI" substr(head, RSTART + 2, RLENGTH - 3) "\\fR"; head = substr(head, 1, RSTART - 1) }
            print ".TP"; print "\\fB" roff(head) "\\fR" value; print roff(body); next
        }
        part == 2 && /^ +[^ ]/ { sub(/^ +/, ""); print roff($0) }
    '
done
mv "$output.part" "$output"
