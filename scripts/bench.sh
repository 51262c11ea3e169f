#!/usr/bin/env bash
# Installs what is needed, builds the benchmarks and prints one Markdown table: the library against floors that the
# same program measures in the same run. It takes some minutes, and wants the machine for itself.
#
#   scripts/bench.sh                                # the table
#   scripts/bench.sh --quick                        # small graphs, once: whether everything runs
#   scripts/bench.sh --peers                        # with rows for other systems, which need more packages
#   scripts/bench.sh --benchmark_filter='^chain'    # what Google Benchmark understands goes to it
. "$(dirname "$0")/common.sh"

peers=OFF
packages=("${library_packages[@]}" "${host_packages[@]}" "${bench_packages[@]}")
# Short repetitions in random order: what disturbs the machine for a while disturbs what is compared alike.
options=(--benchmark_enable_random_interleaving=true --benchmark_repetitions=15 --benchmark_min_time=0.02)
for argument in "$@"; do
    case $argument in
    --quick) options=(--quick --benchmark_repetitions=1 --benchmark_min_time=0.001) ;;
    --peers) peers=ON packages+=("${bench_peers_packages[@]}") ;;
    *) options+=("$argument") ;;
    esac
done

need_packages "${packages[@]}" >&2
step "build" >&2
cmake --preset bench -DHALVEX_BUILD_HOST=ON -DHALVEX_BENCH_PEERS="$peers" >&2
cmake --build --preset bench --target halvex-benchmarks >&2
step "measure" >&2
# The C library keeps the memory that was freed. Otherwise it gives back large images and fetches them again, page by
# page: how often depends on which thread frees them, and hides what the filters' rows compare.
export GLIBC_TUNABLES=glibc.malloc.mmap_threshold=$((32 << 20)):glibc.malloc.trim_threshold=$((1 << 30))
build/bench/benchmarks/halvex-benchmarks "${options[@]}"
