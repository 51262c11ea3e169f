#!/usr/bin/env bash
# Installs what is needed, builds everything and runs all tests. Arguments go to ctest: scripts/test.sh -R CNodeScene
. "$(dirname "$0")/common.sh"

need_packages "${library_packages[@]}" "${host_packages[@]}" "${test_packages[@]}"
step "configure"
cmake --preset release
step "build"
cmake --build --preset release
step "test"
ctest --preset release "$@"
