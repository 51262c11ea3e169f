#!/usr/bin/env bash
# clang-format, clang-tidy and clazy over our own files; any finding fails.
# The tools read the commands and the moc files of the dev build, which this brings up to date first.
. "$(dirname "$0")/common.sh"

need_packages "${library_packages[@]}" "${host_packages[@]}" "${test_packages[@]}" "${bench_packages[@]}" \
    "${bench_peers_packages[@]}" "${lint_packages[@]}"

folders=()
for folder in graph scene models service platform host fuzz tests benchmarks; do
    [ -d "$folder" ] && folders+=("$folder")
done

step "clang-format"
find "${folders[@]}" \( -name '*.h' -o -name '*.cpp' \) -print0 | xargs -0 clang-format --dry-run -Werror

step "build for the linters"
cmake --preset dev -DHALVEX_BUILD_BENCHMARKS=ON -DHALVEX_BENCH_PEERS=ON
cmake --build --preset dev

# What the dev build compiles: no moc output, and not the consumers of an installed library.
mapfile -t sources < <(sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' build/dev/compile_commands.json |
    grep -v "^$PWD/build/" | sort -u)
[ ${#sources[@]} -gt 0 ]

step "commands for the linters"
# Clang has no such option, and none of what it switches off.
mkdir -p build/lint
sed 's/ -fno-gnu-unique / /' build/dev/compile_commands.json > build/lint/compile_commands.json

step "clang-tidy"
printf '%s\0' "${sources[@]}" | xargs -0 -P "$(nproc)" -n 1 clang-tidy -p build/lint --quiet

# Signals and slots are published with unqualified types, under which the library registers them with Qt; the one
# check that objects to that is off.
step "clazy"
printf '%s\0' "${sources[@]}" | xargs -0 -P "$(nproc)" -n 1 clazy-standalone -p build/lint \
    --checks=level0,level1,no-fully-qualified-moc-types --header-filter="^$PWD/[a-z]+/" --extra-arg=-Werror
