#!/usr/bin/env bash
# clang-format, clang-tidy and clazy over our own files, shellcheck and cmake-lint over what builds them; any finding
# fails.
#
#   scripts/lint.sh             # every file
#   scripts/lint.sh --changed   # what differs from the last release tag, or else from what docs/figures.md says was
#                               # linted whole; every file if neither is known
#   scripts/lint.sh --changed COMMIT   # what differs from that
#   scripts/lint.sh --format    # those that take seconds: clang-format, shellcheck, cmake-lint; over every file
. "$(dirname "$0")/common.sh"

folders=(graph scene models service platform testing host fuzz tests benchmarks examples templates)

need_packages "${lint_packages[@]}"
step "clang-format"
find "${folders[@]}" \( -name '*.h' -o -name '*.cpp' \) -print0 | xargs -0 clang-format --dry-run -Werror
step "shell and CMake"
git ls-files -z '*.sh' '*.ci/run' templates/halvex-new | xargs -0 shellcheck
git ls-files -z '*.cmake' '*CMakeLists.txt' | xargs -0 cmake-lint --suppress-decorations --config-files .cmake-lint.yaml --
[ "${1-}" != --format ] || exit 0

base=
if [ "${1-}" = --changed ]; then
    base=${2-$(git describe --tags --abbrev=0 2>/dev/null || scripts/figures.py commit lint)}
    git rev-parse --quiet --verify "$base^{commit}" >/dev/null || base= # the clone may not reach back so far
fi
if [ -n "$base" ] && git diff --quiet "$base" -- '*.h' '*.cpp'; then
    step "no source differs from $base"
    exit 0
fi

need_packages "${library_packages[@]}" "${host_packages[@]}" "${test_packages[@]}" "${bench_packages[@]}" \
    "${bench_peers_packages[@]}"
step "commands and moc files for the linters"
cmake --preset dev -DHALVEX_BUILD_BENCHMARKS=ON -DHALVEX_BENCH_PEERS=ON
mapfile -t sources < <(scripts/lint_sources.py build/dev/compile_commands.json build/lint ${base:+"$base"})
[ ${#sources[@]} -gt 0 ] || exit 0
xargs -d '\n' -P "$(nproc)" -I '{}' sh -c '{}' <build/lint/moc_commands

step "clang-tidy over ${#sources[@]} files, changed since ${base:-ever}"
printf '%s\0' "${sources[@]}" | xargs -0 -P "$(nproc)" -n 1 clang-tidy -p build/lint --quiet 2>build/lint/clang-tidy.log || {
    tail -n 20 build/lint/clang-tidy.log >&2 # how many warnings are not ours, and what kept it from running
    false
}

# Signals and slots are published with unqualified types, under which the library registers them with Qt; the one
# check that objects to that is off.
step "clazy over the same"
printf '%s\0' "${sources[@]}" | xargs -0 -P "$(nproc)" -n 1 clazy-standalone -p build/lint \
    --checks=level0,level1,no-fully-qualified-moc-types --header-filter="^$PWD/[a-z]+/" --extra-arg=-Werror
step "linted"
