#!/usr/bin/env bash
# Builds the library and its tests with Qt 6, where warnings are errors, and runs all of them. The reference host is built
# with Qt 5 alone. Arguments go to ctest: scripts/qt6.sh -R CNodeScene
. "$(dirname "$0")/common.sh"

need_packages "${qt6_packages[@]}" "${test_packages[@]}"
step "configure"
cmake --preset release -B build/qt6-release -DHALVEX_QT_MAJOR=6 -DHALVEX_BUILD_HOST=OFF -DHALVEX_WERROR=ON
step "build"
cmake --build build/qt6-release
step "test with Qt $(qmake6 -query QT_VERSION)"
ctest --test-dir build/qt6-release --output-on-failure -j 2 "$@"
