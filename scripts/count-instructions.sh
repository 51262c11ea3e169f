#!/usr/bin/env bash
# Counts the instructions of one hop through a chain of 100 nodes, and those of the floor, a signal per hop written by
# hand. Fails if the ratio is above the limit. Unlike times, the counts do not depend on what else the machine does.
#
#   scripts/count-instructions.sh [limit]           # 1.15
. "$(dirname "$0")/common.sh"

limit=${1:-1.15}

# The instructions of a run with that many walks.
instructions() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null build/bench/benchmarks/halvex-hops "$@" 2>&1 |
        awk '/Collected :/ { print $4; found = 1 } END { exit !found }'
}

# Those of one hop: what 100 more walks of 100 hops each take.
per_hop() {
    local few many
    few=$(instructions "$1" 100)
    many=$(instructions "$1" 200)
    echo $(((many - few) / 10000))
}

need_packages "${library_packages[@]}" "${bench_packages[@]}"
step "build"
cmake --preset bench
cmake --build --preset bench --target halvex-hops
step "count"
engine=$(per_hop engine)
floor=$(per_hop floor)
awk -v engine="$engine" -v floor="$floor" -v limit="$limit" 'BEGIN {
    printf "Instructions per hop: %d, floor %d, ratio %.2f, limit %.2f\n", engine, floor, engine / floor, limit
    exit engine > floor * limit
}'
