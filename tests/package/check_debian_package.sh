#!/usr/bin/env bash
# Builds the two Debian packages from a Release build of their own and checks
# them: lintian finds no error or warning; the command line `zrt` needs and
# links nothing of Qt's GUI; each depends on what a minimal install needs;
# the manual pages, the desktop entry and the completion work, and the
# completion offers no word that the program refuses.
# Arguments: source folder, Release build folder, further cmake options.
set -euo pipefail
source_dir=$1 build=$2
shift 2
stage() { echo "[${SECONDS}s] $*"; }
fail() { echo "FAIL: $*"; exit 1; }

stage "building the Release programs in $build"
cmake -S "$source_dir" -B "$build" -DCMAKE_BUILD_TYPE=Release "$@" >/dev/null
cmake --build "$build" -j"$(nproc)" --target zrt zrt-window zrt_docs >/dev/null
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
(cd "$build" && cpack -G DEB -B "$out" >/dev/null)
cli=$(ls "$out"/zrt_*.deb)
window=$(ls "$out"/zrt-window_*.deb)
version=$(dpkg-deb --field "$cli" Version)
stage "packed $(basename "$cli") and $(basename "$window")"

stage "dependencies"
depends_on() { grep -Eq "(^|, )$2( |,|$)" <<<"$(dpkg-deb --field "$1" Depends)"; }
for needed in libodbc2 unixodbc tdsodbc; do
    depends_on "$cli" "$needed" || fail "zrt does not depend on $needed"
done
cli_depends=$(dpkg-deb --field "$cli" Depends)
! grep -Eiq 'gui|widgets|qpa|libx|libgl|xcb|wayland' <<<"$cli_depends" || fail "zrt depends on a GUI: $cli_depends"
for needed in "zrt (= $version)" qt6-qpa-plugins libqt6widgets6; do
    depends_on "$window" "${needed//[()]/.}" || fail "zrt-window does not depend on $needed"
done
# The programs talk to unixODBC themselves, not through Qt's ODBC plugin.
! depends_on "$cli" libqt6sql6-odbc || fail "depends on libqt6sql6-odbc"

stage "contents"
contains() { # package, files
    local package=$1 contents
    contents=$(dpkg-deb --contents "$package")
    shift
    for file in "$@"; do
        grep -q " \./$file\$" <<<"$contents" || fail "$(basename "$package") lacks $file"
    done
}
contains "$cli" usr/bin/zrt usr/share/man/man1/zrt.1.gz usr/share/bash-completion/completions/zrt \
    usr/share/zsh/vendor-completions/_zrt usr/share/doc/zrt/copyright usr/share/doc/zrt/changelog.gz
contains "$window" usr/bin/zrt-window usr/share/man/man1/zrt-window.1.gz usr/share/applications/zrt.desktop \
    usr/share/icons/hicolor/64x64/apps/zrt.png usr/share/icons/hicolor/scalable/apps/zrt.svg \
    usr/share/doc/zrt-window/copyright usr/share/doc/zrt-window/changelog.gz
! dpkg-deb --contents "$cli" | grep -Eq 'zrt-window|applications|icons' || fail "zrt holds a part of the window"

stage "lintian"
lintian --fail-on error,warning "$cli" "$window" || fail "lintian reports the above"

root=$out/root
dpkg-deb -x "$cli" "$root"
dpkg-deb -x "$window" "$root"
zrt=$root/usr/bin/zrt

stage "the programs"
[ "$("$zrt" --version)" = "zrt $version" ] || fail "zrt --version does not print zrt $version"
# Read whole first: grep -q leaving early would close the pipe under zrt, which then ends as interrupted.
grep -q -- "zrt run --all" <<<"$("$zrt" help run)" || fail "zrt help run does not show the forms of run"
! ldd "$zrt" | grep -Eq 'libQt6(Gui|Widgets)' || fail "zrt links Qt's GUI: $(ldd "$zrt")"
[ "$("$root/usr/bin/zrt-window" --version)" = "zrt-window $version" ] || fail "zrt-window --version"
for package in zrt zrt-window; do
    zcat "$root/usr/share/doc/$package/changelog.gz" | head -n 1 | grep -qF "zrt ($version)" ||
        fail "the changelog of $package has no entry for $version"
done
desktop-file-validate "$root/usr/share/applications/zrt.desktop" || fail "the desktop entry is not valid"

stage "manual pages"
page() { MANWIDTH=80 man -l "$root/usr/share/man/man1/$1.1.gz" 2>&1; }
zrt_page=$(page zrt)
for section in NAME SYNOPSIS DESCRIPTION COMMANDS OPTIONS "EXIT STATUS" ENVIRONMENT FILES EXAMPLES "SEE ALSO"; do
    grep -qx "$section" <<<"$zrt_page" || fail "zrt(1) has no section $section"
done
for text in "zrt $version" "zrt run --all --mode MODE [--server NAME | --odbc STRING]" "--report-dir DIR" "zrt run --fleet fleet.toml" \
    "[[server]]" "case \$? in" "ZRT_ODBC_DRIVER" "130"; do
    grep -qF -- "$text" <<<"$zrt_page" || fail "zrt(1) lacks '$text'"
done
window_page=$(page zrt-window)
for section in NAME SYNOPSIS DESCRIPTION OPTIONS ENVIRONMENT "SEE ALSO"; do
    grep -qx "$section" <<<"$window_page" || fail "zrt-window(1) has no section $section"
done

stage "completion offers the right words"
bash_completion=$root/usr/share/bash-completion/completions/zrt
mkdir "$out/cwd" "$out/cwd/reports"
touch "$out/cwd/report.jsonl"
offered() { # the words the completion offers after "zrt $*"
    (cd "$out/cwd" && bash -c 'source "$0" && registered=($(complete -p zrt)) && COMP_WORDS=(zrt "$@") \
        COMP_CWORD=$# && "${registered[2]}" && echo " ${COMPREPLY[*]} "' "$bash_completion" "$@")
}
words() { tr ' ' '\n' <<<"$1" | sed '/^$/d' | sort | paste -sd' '; }
[ "$(words "$(offered "")")" = "$(words "script list run plan check merge help -h --help -V --version")" ] ||
    fail "'zrt ' offers$(offered "")"
expect() { # words, expected, unexpected, after "zrt" and these words
    local got expected=$1 unexpected=$2
    shift 2
    got=$(offered "$@")
    for word in $expected; do [[ $got == *" $word "* ]] || fail "'zrt $*' does not offer $word:$got"; done
    for word in $unexpected; do [[ $got != *" $word "* ]] || fail "'zrt $*' offers $word:$got"; done
}
expect "--mode --database --server --odbc --create-at --report --all --fleet --retry" "--jobs --report-dir" run ""
expect "--mode --server --odbc --jobs --max-failures --report-dir --json --quiet" "--database --create-at --fleet" run --all ""
expect "--jobs --max-failures --report-dir --statement-timeout --verbose" "--mode --server --odbc --all" plan --fleet f ""
expect "--mode --server --odbc --jobs --report-dir --json" "--database --create-at --quiet" check --all ""
expect "--fleet --mode --odbc --jobs --report-dir" "--database --statement-timeout" check --retry d ""
expect "--report-dir" "--mode --jobs" merge ""
expect "--database --all" "--odbc" check --server s ""
expect "--report" "--quiet --verbose" plan --json ""
expect "OFFLINE LOCAL ONLINE" "--database" run --mode ""
expect "script run check" "--help" help ""
expect "report.jsonl reports" "" run --report re
expect "reports" "report.jsonl" run --all --report-dir re
expect "report.jsonl reports" "" list --fleet re

stage "completion offers nothing that zrt refuses"
# shellcheck source=/dev/null
source "$bash_completion"
refusal() { # what zrt says when it refuses an option as unknown or as not going with the others
    local said
    said=$(cd "$out/cwd" && "$zrt" "$@" 2>&1 >/dev/null) || true
    [[ $said != *"Unknown option"* && $said != *"go with"* ]] || echo "$said"
}
walk() { # command, first options: types the words the completion offers one after another
    local command=$1 takes_value typed=() word next refused
    local -A offered_after=() # each word offered, and the words typed when it was last offered
    shift
    takes_value=" $("$zrt" help "$command" | grep -o -- '--[a-z-]* <' | tr -d '<' | paste -sd' ') "
    with_value() { echo "$1"; [[ $takes_value != *" $1 "* ]] || echo x; }
    for word in "$@"; do
        mapfile -t -O "${#typed[@]}" typed < <(with_value "$word")
    done
    while :; do
        next=""
        for word in $(_zrt_words "$command" "${typed[@]}"); do
            offered_after[$word]="${typed[*]}"
            [ -n "$next" ] || [ "$word" = --help ] || next=$word
        done
        [ -n "$next" ] || break
        mapfile -t -O "${#typed[@]}" typed < <(with_value "$next")
    done
    # What zrt refuses it refuses the more so after more words: each word is
    # tried after the most words it was offered after.
    for word in "${!offered_after[@]}"; do
        # shellcheck disable=SC2206
        local with=(${offered_after[$word]} $(with_value "$word"))
        refused=$(refusal "$command" "${with[@]}")
        [ -z "$refused" ] || fail "'zrt $command ${with[*]}' is offered but refused: $refused"
    done
    walked+=" ${typed[*]} "
}
for command in script list run plan check merge; do
    walked=""
    walk "$command"
    # Then from each first word that the walk left behind: another form, an alternative.
    for word in $(_zrt_words "$command"); do
        [[ $walked == *" $word "* ]] || [ "$word" = --help ] || walk "$command" "$word"
    done
done

zsh_completion=$root/usr/share/zsh/vendor-completions/_zrt
if command -v zsh >/dev/null; then
    stage "zsh completion offers what bash offers"
    for typed in "" "run" "run --all" "check --retry d" "check --server s" "plan --json" "run --mode" "help"; do
        # shellcheck disable=SC2086
        in_zsh=$(zsh -fc 'compdef() { :; }; source "$0"; _zrt_words "$@"' "$zsh_completion" $typed)
        # shellcheck disable=SC2086
        in_bash=$(bash -c 'source "$0"; _zrt_words "$@"' "$bash_completion" $typed)
        [ "$in_zsh" = "$in_bash" ] || fail "after 'zrt $typed' zsh offers '$in_zsh', bash '$in_bash'"
    done
else
    stage "zsh is not installed: its completion is checked only as bash reads it"
fi
stage "done"
