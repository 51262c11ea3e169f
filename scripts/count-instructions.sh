#!/usr/bin/env bash
# Counts the instructions of one delivery through graphs of several shapes, and of other operations, and those of their
# floors, written by hand. Prints a Markdown table, and fails if a count or its ratio is above its limit. Unlike times,
# the counts do not depend on what else the machine does.
#
#   scripts/count-instructions.sh
. "$(dirname "$0")/common.sh"

# The greatest count and ratio: one to two per cent above what was measured.
declare -A limits=(
    [chain]="360 1.185" [converting]="422 1.235" [fan-out]="70 1.70" [fan-in]="215 1.245" [diamonds]="232 1.235"
    [random]="151 1.335"
    [construct]="13200 2.545" [load]="40500 1.365" [import]="76000 4.26" [find]="135 1.875" [push]="91 1.53"
    [work]="7970 1.26")

# The instructions of one run. Threads take fair turns, so that those of work meet at much the same points.
instructions() {
    valgrind --fair-sched=yes --tool=callgrind --callgrind-out-file=/dev/null "build/bench/benchmarks/$1" "${@:2}" \
        2>&1 >/dev/null |
        awk '/Collected :/ { print $4; found = 1 } END { exit !found }'
}

# Those of one delivery, by 50 walks more.
of_delivery() {
    local few many deliveries
    few=$(instructions halvex-hops "$@" 50)
    many=$(instructions halvex-hops "$@" 100)
    deliveries=$(build/bench/benchmarks/halvex-hops floor "$2" 50)
    awk -v few="$few" -v many="$many" -v n="$deliveries" 'BEGIN { printf "%.1f", (many - few) / n }'
}

# Those of one operation, by a thousand more, less what is prepared for these.
of_operation() {
    local few many less
    few=$(instructions halvex-operations "$@" 1000)
    many=$(instructions halvex-operations "$@" 2000)
    less=$(($(instructions halvex-operations nothing "$2" 2000) - $(instructions halvex-operations nothing "$2" 1000)))
    awk -v few="$few" -v many="$many" -v less="$less" 'BEGIN { printf "%.1f", (many - few - less) / 1000 }'
}

# count <function> <what>
count() {
    local engine floor limit
    engine=$("$1" engine "$2")
    floor=$("$1" floor "$2")
    read -r -a limit <<<"${limits[$2]}"
    awk -v what="$2" -v engine="$engine" -v floor="$floor" -v most="${limit[0]}" -v ratio="${limit[1]}" 'BEGIN {
        printf "| %s | %.0f | %d | %.0f | %.3f | %.3f |\n", what, engine, most, floor, engine / floor, ratio
        exit engine > most || engine > floor * ratio
    }'
}

need_packages "${library_packages[@]}" "${bench_packages[@]}"
step "build"
cmake --preset bench
cmake --build --preset bench --target halvex-hops halvex-operations
step "count"
failed=0
echo "| delivery through | instructions | limit | floor | ratio | limit |"
echo "| --- | ---: | ---: | ---: | ---: | ---: |"
for shape in chain converting fan-out fan-in diamonds random; do
    count of_delivery "$shape" || failed=1
done
echo
echo "| operation | instructions | limit | floor | ratio | limit |"
echo "| --- | ---: | ---: | ---: | ---: | ---: |"
for operation in construct load import find push work; do
    count of_operation "$operation" || failed=1
done
exit "$failed"
