#!/usr/bin/env bash
# Runs the library's tests on a build that counts, and fails when they reach too few lines or branches of the library.
# Branches that only an exception takes are not counted: the compiler makes one for each call that may throw.
. "$(dirname "$0")/common.sh"

need_packages "${library_packages[@]}" "${test_packages[@]}" "${coverage_packages[@]}"
step "build to count"
cmake --preset coverage
cmake --build --preset coverage
step "test and count"
find build/coverage -name '*.gcda' -delete
ctest --preset coverage "$@"

step "coverage"
mkdir -p out/coverage
gcovr --root . --object-directory build/coverage --filter '(graph|scene|models|service)/' \
    --exclude-throw-branches --exclude-unreachable-branches --decisions --print-summary \
    --html-details out/coverage/index.html --txt out/coverage/summary.txt --json out/coverage/coverage.json \
    --exclude-directories build/coverage/CMakeFiles/3 \
    --fail-under-line 98 --fail-under-branch 92 || { cat out/coverage/summary.txt; exit 1; }
scripts/coverage_gaps.py out/coverage/coverage.json
