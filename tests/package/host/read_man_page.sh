#!/usr/bin/env bash
# The installed manual page is sound, and tells all commands, all their options, and the exit codes: prefix.
set -Eeuo pipefail
trap 'echo "FAILED: $BASH_COMMAND" >&2' ERR
prefix=$(realpath "$1")
page=$prefix/share/man/man1/halvex-host.1
host=$prefix/bin/halvex-host

export LC_ALL=C.UTF-8 MANWIDTH=1000 MAN_KEEP_FORMATTING=
warnings=$(man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
[ -z "$warnings" ] || { echo "$warnings" >&2; exit 1; }
text=$(man -E UTF-8 -l "$page")

tells() { grep -q -- "$1" <<<"$text" || { echo "the page does not tell '$1'" >&2; return 1; }; }

for section in NAME SYNOPSIS DESCRIPTION COMMANDS "EXIT STATUS" ENVIRONMENT; do tells "^$section"; done
for code in 0 1 2 '128+n'; do tells "^ *$code  "; done
for command in $("$host" --complete ""); do
    tells "^ *$command "
    for option in $("$host" --complete "$command" --); do tells "^ .*$option"; done
done
echo "can be read"
