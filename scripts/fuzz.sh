#!/usr/bin/env bash
# Fuzzes each target for so many seconds (default: 600), as many at a time as there are processors; a finding fails.
# Findings are put into build/fuzz/found, inputs that reached something new into build/fuzz/corpus.
. "$(dirname "$0")/common.sh"

seconds=${1:-600}
targets=(Id ImportDocument Operations Restore SceneDocument)
# One leak is Qt's own: the file says which, and why the stacks have to be whole.
export LSAN_OPTIONS=suppressions=fuzz/lsan.suppressions:print_suppressions=0:fast_unwind_on_malloc=0:malloc_context_size=255
export UBSAN_OPTIONS=print_stacktrace=1

need_packages "${library_packages[@]}" "${fuzz_packages[@]}"
step "build the fuzzers"
cmake --preset fuzz
cmake --build --preset fuzz --target "${targets[@]/#/fuzz_}"

fuzz() {
    local target=$1 seconds=$2
    mkdir -p build/fuzz/found "build/fuzz/corpus/$target"
    "build/fuzz/fuzz/fuzz_$target" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=2048 \
        -dict="fuzz/dictionaries/$target.dict" -artifact_prefix="build/fuzz/found/$target-" \
        "build/fuzz/corpus/$target" "fuzz/corpus/$target" >"build/fuzz/$target.log" 2>&1 && return
    tail -n 60 "build/fuzz/$target.log"
    echo "$target has found something, see above and build/fuzz/found" >&2
    return 1
}
export -f fuzz

step "fuzz ${targets[*]}, $seconds seconds each"
printf '%s\n' "${targets[@]}" | xargs -P "$(nproc)" -I{} bash -c "fuzz {} $seconds"

# An edge is a way from one piece of code to the next, in the library and the target.
step "what was run"
printf '%-16s %12s %12s %9s %9s %9s\n' Target Executions "Per second" Edges of Inputs
for target in "${targets[@]}"; do
    awk -v target="$target" '
        /INFO: Loaded .* inline 8-bit counters/ { match($0, /\([0-9]+/); all = substr($0, RSTART + 1, RLENGTH - 1) }
        /\tDONE / { executions = substr($1, 2); edges = $4; split($8, corpus, "/"); inputs = corpus[1]; rate = $(NF - 2) }
        END { printf "%-16s %12d %12d %9d %9d %9d\n", target, executions, rate, edges, all, inputs }
    ' "build/fuzz/$target.log"
done
