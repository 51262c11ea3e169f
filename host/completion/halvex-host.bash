# Completion for bash. It asks the program itself, so that it knows what the program knows. Names of files are completed
# only where the program says so, with its exit code.

# Puts into COMP_ASKED the words up to the cursor, and into COMP_CUT what bash keeps of the last one: it takes each "=" of
# "--set=blur.size=9" for a word of its own.
_halvex_host_words() {
    local i word
    COMP_ASKED=()
    COMP_CUT=
    for ((i = 1; i <= COMP_CWORD; ++i)); do
        word=${COMP_WORDS[i]}
        if [[ ${#COMP_ASKED[@]} -gt 0 && $word == "=" ]]; then
            COMP_CUT=${COMP_ASKED[-1]}=
            COMP_ASKED[-1]=$COMP_CUT
        elif [[ -n $COMP_CUT && -n $word && ${COMP_WORDS[i - 1]} == "=" ]]; then
            COMP_ASKED[-1]+=$word
        else
            COMP_CUT=
            COMP_ASKED+=("$word")
        fi
    done
}

_halvex_host() {
    local word answer code cut COMP_CUT
    local -a COMP_ASKED
    COMPREPLY=()
    _halvex_host_words
    answer=$("${COMP_WORDS[0]}" --complete "${COMP_ASKED[@]}" 2>/dev/null)
    code=$?
    while IFS= read -r word; do
        [[ -n $word ]] || continue
        # The word has no quotes, and so does not begin as COMP_CUT does; it has the same "=".
        cut=$COMP_CUT
        while [[ $cut == *=* ]]; do
            cut=${cut#*=}
            word=${word#*=}
        done
        # Within a quote that is still open, bash wants the word as it is.
        [[ ${COMP_ASKED[-1]} =~ ^\"[^\"]*$|^\'[^\']*$ ]] || word=$(printf '%q' "$word")
        COMPREPLY+=("$word")
    done <<<"$answer"
    if [[ $code -ne 0 ]]; then
        compopt -o default 2>/dev/null || true
    fi
    # "blur.size=" goes on with a value.
    if [[ ${#COMPREPLY[@]} -eq 1 && ${COMPREPLY[0]} == *= ]]; then
        compopt -o nospace 2>/dev/null || true
    fi
}

complete -F _halvex_host halvex-host
