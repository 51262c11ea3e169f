# Completion for bash. It asks the program itself, so that it knows what the program knows; where that has nothing to
# say, it completes the names of files.

_halvex_host() {
    local word
    COMPREPLY=()
    while IFS= read -r word; do
        COMPREPLY+=("$(printf '%q' "$word")")
    done < <("${COMP_WORDS[0]}" --complete "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null)
    # "blur.size=" goes on with a value.
    if [[ ${#COMPREPLY[@]} -eq 1 && ${COMPREPLY[0]} == *= ]]; then
        compopt -o nospace 2>/dev/null || true
    fi
}

complete -o default -F _halvex_host halvex-host
