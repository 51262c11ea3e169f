#!/usr/bin/env bash
# Fails at each use, in the library, its tests and the fuzzers, of something that Qt's documentation calls newer than Qt
# 5.12. It compiles against a copy of Qt's headers in which that is marked; Qt 5.12 itself is not there. A use that is
# right says why beside it: "// NOLINT(clang-diagnostic-deprecated-declarations): …".
. "$(dirname "$0")/common.sh"

need_packages "${library_packages[@]}" "${test_packages[@]}" "${qt512_packages[@]}"
headers=$(qmake -qt=qt5 -query QT_INSTALL_HEADERS)
marked=$PWD/build/qt512/qt5
# Clang-tidy wants a check of its own beside the compiler's warnings.
find_uses=(clang-tidy --quiet '--checks=-*,clang-diagnostic-deprecated-*,bugprone-sizeof-container'
    '--warnings-as-errors=*' --extra-arg=-DQT_NO_DEPRECATED_WARNINGS) # older code has its own warning, in every build

step "mark what is newer than Qt 5.12"
scripts/mark_newer_qt.py "$(qmake -qt=qt5 -query QT_INSTALL_DOCS)" "$headers" "$marked"

step "see whether each kind is found"
"${find_uses[@]}" scripts/newer_qt_seeds.cpp -- -std=c++17 -fPIC "-isystem$marked" "-isystem$marked/QtCore" \
    "-isystem$marked/QtTest" >build/qt512/seeds.log 2>&1 || true
diff <(grep -n '// newer' scripts/newer_qt_seeds.cpp | cut -d: -f1) \
    <(sed -n 's/^.*seeds\.cpp:\([0-9]*\):[0-9]*: error: .*since Qt.*/\1/p' build/qt512/seeds.log | sort -nu)

step "CMake's commands and targets without Qt's version"
# Those came with Qt 5.15.
if git grep -nE '^ *qt_[a-z_]+\(|\bQt::[A-Z]|find_package\(QT ' -- '*CMakeLists.txt' '*.cmake' '*.cmake.in'; then false; fi

step "commands and moc files"
cmake --preset dev -B build/qt512/build -DHALVEX_BUILD_HOST=OFF -DHALVEX_WERROR=OFF -DCMAKE_AUTOGEN_ORIGIN_DEPENDS=OFF
mapfile -t sources < <(scripts/lint_sources.py build/qt512/build/compile_commands.json build/qt512)
mapfile -t moc_targets <build/qt512/moc_targets
cmake --build build/qt512/build --target "${moc_targets[@]}"
sed -i "s#-isystem $headers#-isystem $marked#g" build/qt512/compile_commands.json
grep -q -- "-isystem $marked/QtTest" build/qt512/compile_commands.json

step "look for uses in ${#sources[@]} files"
printf '%s\0' "${sources[@]}" | xargs -0 -P "$(nproc)" -n 1 "${find_uses[@]}" -p build/qt512 \
    --header-filter="^$PWD/[a-z]+/" 2>build/qt512/clang-tidy.log || {
    tail -n 20 build/qt512/clang-tidy.log >&2 # what kept it from running
    false
}
step "nothing newer than Qt 5.12 in ${#sources[@]} files"
