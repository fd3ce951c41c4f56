#!/usr/bin/env bash
# Builds the Debian package from a Release build of its own and checks it:
# lintian finds no error or warning, it depends on what a minimal install
# needs, and its manual page, bash completion and desktop entry work.
# Arguments: source folder, Release build folder, further cmake options.
set -euo pipefail
source_dir=$1 build=$2
shift 2
cmake -S "$source_dir" -B "$build" -DCMAKE_BUILD_TYPE=Release "$@" >/dev/null
cmake --build "$build" -j"$(nproc)" --target zrt zrt_docs >/dev/null
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
(cd "$build" && cpack -G DEB -B "$out" >/dev/null)
deb=$(ls "$out"/*.deb)
fail() { echo "$*"; exit 1; }
echo "package: $(basename "$deb"), $(stat -c %s "$deb") bytes"

depends=$(dpkg-deb --field "$deb" Depends)
echo "Depends: $depends"
depends_on() { grep -Eq "(^|, )$1( |,|$)" <<<"$depends"; }
for needed in libodbc2 unixodbc tdsodbc qt6-qpa-plugins libqt6widgets6; do
    depends_on "$needed" || fail "missing dependency: $needed"
done
# The program talks to unixODBC itself, not through Qt's ODBC plugin.
! depends_on libqt6sql6-odbc || fail "depends on libqt6sql6-odbc"

contents=$(dpkg-deb --contents "$deb")
for file in usr/bin/zrt usr/share/applications/zrt.desktop usr/share/icons/hicolor/64x64/apps/zrt.png \
    usr/share/icons/hicolor/scalable/apps/zrt.svg usr/share/man/man1/zrt.1.gz \
    usr/share/bash-completion/completions/zrt usr/share/doc/zrt/copyright usr/share/doc/zrt/changelog.gz; do
    grep -q " \./$file\$" <<<"$contents" || fail "missing file: $file"
done

lintian --fail-on error,warning "$deb" || fail "lintian reports the above"

root=$out/root
dpkg-deb -x "$deb" "$root"
version=$(dpkg-deb --field "$deb" Version)
zcat "$root/usr/share/doc/zrt/changelog.gz" | head -n 1 | grep -qF "zrt ($version)" ||
    fail "the changelog has no entry for $version"

page=$(MANWIDTH=80 man -l "$root/usr/share/man/man1/zrt.1.gz" 2>&1)
for text in "zrt $version" "zrt run" "--report-dir DIR" "zrt check"; do
    grep -qF -- "$text" <<<"$page" || fail "the manual page lacks '$text'"
done

offered() { # the words the completion offers after "zrt $*"
    bash -c 'source "$0" && registered=($(complete -p zrt)) && COMP_WORDS=(zrt "$@") COMP_CWORD=$# &&
             "${registered[2]}" && echo " ${COMPREPLY[*]} "' "$root/usr/share/bash-completion/completions/zrt" "$@"
}
after_zrt=$(offered "")
for word in script list run plan check; do
    [[ $after_zrt == *" $word "* ]] || fail "'zrt ' does not offer $word: $after_zrt"
done
after_run=$(offered run --)
for word in --mode --database --server --odbc --create-at --report --all --jobs --report-dir; do
    [[ $after_run == *" $word "* ]] || fail "'zrt run --' does not offer $word: $after_run"
done

desktop-file-validate "$root/usr/share/applications/zrt.desktop" || fail "the desktop entry is not valid"
