#!/usr/bin/env bash
# Every installed manual page is sound, and that of halvex-host tells all commands, all their options, and the exit codes:
# prefix.
set -Eeuo pipefail
trap 'echo "FAILED: $BASH_COMMAND" >&2' ERR
prefix=$(realpath "$1")
pages=$prefix/share/man/man1
host=$prefix/bin/halvex-host

export LC_ALL=C.UTF-8 MANWIDTH=1000 MAN_KEEP_FORMATTING=
for page in "$pages"/*.1; do
    warnings=$(man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
    [ -z "$warnings" ] || { echo "$page: $warnings" >&2; exit 1; }
done
text=$(man -E UTF-8 -l "$pages/halvex-host.1")

tells() { grep -q -- "$1" <<<"$text" || { echo "the page does not tell '$1'" >&2; return 1; }; }

for section in NAME SYNOPSIS DESCRIPTION COMMANDS "EXIT STATUS" ENVIRONMENT; do tells "^$section"; done
for code in 0 1 2 '128+n'; do tells "^ *$code  "; done
for command in $("$host" --complete ""); do
    tells "^ *$command "
    for option in $("$host" --complete "$command" --); do tells "^ .*$option"; done
done
echo "can be read"
