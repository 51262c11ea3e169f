#!/usr/bin/env bash
# Counts the instructions of one delivery through graphs of several shapes, and those of the floor, a signal per hop
# written by hand. Prints a Markdown table, and fails if a ratio is above its limit. Unlike times, the counts do not
# depend on what else the machine does.
#
#   scripts/count-instructions.sh
. "$(dirname "$0")/common.sh"

# One to two per cent above what was measured.
declare -A limits=([chain]=1.185 [converting]=1.235 [fan-out]=1.70 [fan-in]=1.245 [diamonds]=1.235 [random]=1.335)

# The instructions of a run with that many walks.
instructions() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null build/bench/benchmarks/halvex-hops "$@" 2>&1 >/dev/null |
        awk '/Collected :/ { print $4; found = 1 } END { exit !found }'
}

# Those of 50 more walks.
of_walks() {
    local few many
    few=$(instructions "$@" 50)
    many=$(instructions "$@" 100)
    echo $((many - few))
}

need_packages "${library_packages[@]}" "${bench_packages[@]}"
step "build"
cmake --preset bench
cmake --build --preset bench --target halvex-hops
step "count"
echo "| graph | instructions per delivery | floor | ratio | limit |"
echo "| --- | ---: | ---: | ---: | ---: |"
failed=0
for shape in chain converting fan-out fan-in diamonds random; do
    deliveries=$(build/bench/benchmarks/halvex-hops floor "$shape" 50)
    engine=$(of_walks engine "$shape")
    floor=$(of_walks floor "$shape")
    awk -v shape="$shape" -v n="$deliveries" -v engine="$engine" -v floor="$floor" -v limit="${limits[$shape]}" 'BEGIN {
        printf "| %s | %.0f | %.0f | %.3f | %.3f |\n", shape, engine / n, floor / n, engine / floor, limit
        exit engine > floor * limit
    }' || failed=1
done
exit "$failed"
