#!/usr/bin/env bash
# Bash completes what the installed program knows: prefix, folder to work in.
set -Eeuo pipefail
trap 'echo "FAILED: $BASH_COMMAND" >&2' ERR
prefix=$(realpath "$1")
work=$2
PATH=$prefix/bin:$PATH

rm -rf "$work"
mkdir -p "$work"
cd "$work"
# shellcheck source=/dev/null
. "$prefix/share/bash-completion/completions/halvex-host"
[ "$(complete -p halvex-host)" = "complete -F _halvex_host halvex-host" ]

# Bash has compopt only while it completes. Here it tells what it is asked for.
compopt() {
    [ "$*" != "-o default" ] || files=" FILES"
}

# What is offered for the last word of a command line; FILES stands for the names of files, which bash adds.
offered() {
    trap - ERR # that the program wants names of files is no failure
    files=
    COMP_WORDS=(halvex-host "$@")
    COMP_CWORD=$#
    COMPREPLY=()
    _halvex_host
    echo "${COMPREPLY[*]}$files"
}

# offers EXPECTED WORD...
offers() {
    local got
    got=$(offered "${@:2}")
    [ "$got" = "$1" ] || {
        echo "'${*:2}' offers '$got', not '$1'" >&2
        return 1
    }
}

offers run r
offers "--pixel-format --plugins" run --p
offers "--json" check --j
for place in "run" "run chain.json" "check" "draw" "compare a.json" "run --load" "run --save" "run --json" "run --output"; do
    read -ra words <<< "$place"
    offers " FILES" "${words[@]}" ""
done
offers "" run --frames ""
offers "" plugins ""
offers "off on" run --resend ""
offers fake run --camera ""
offers 'PNG\ Sink' models PNG
offers 'PNG\ Sink' models 'PNG\ '
offers "blur.size=" run --set blur.s
offers 'threshold\ files.sinkName=' run --set 'threshold\ files.sinkN'
offers "Otsu" run --set 'threshold.method' = O
offers "TriggerMode=" run --camera-set TriggerM

echo '[{"name": "soft", "model": {"name": "Blur"}, "unique_sources": [["*"]]}]' >own.json
offers "soft.size=" run own.json --set soft.s

# Every option that --help tells is offered.
for command in $(offered ""); do
    told=$(halvex-host "$command" --help | grep -o '^  \(-[a-z], \)\?--[a-z-]*' | sed 's/.*--/--/' | sort | tr '\n' ' ')
    [ "$(offered "$command" -- | tr ' ' '\n' | sort | tr '\n' ' ')" = "$told" ]
done
echo "completes"
