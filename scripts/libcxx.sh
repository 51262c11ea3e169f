#!/usr/bin/env bash
# Builds the library and its tests by clang with its own C++ standard library, libc++, and runs them. Qt is built with
# GCC's: what calls QThread::create() hands it a std::future, and cannot be linked. It is left out, counted and named;
# what fails for another reason ends this.
#
#   scripts/libcxx.sh
. "$(dirname "$0")/common.sh"

need_packages "${library_packages[@]}" "${test_packages[@]}" clang
step "unpack libc++"
# It is not installed: its libunwind would take away the one that GStreamer's headers ask for.
version=$(clang++ -dumpversion | cut -d. -f1)
packages=$PWD/build/libcxx-packages
mkdir -p "$packages"
(
    cd "$packages"
    apt-get -q download {libc++,libc++abi,libunwind}-"$version"-dev {libc++1,libc++abi1,libunwind}-"$version"
)
for package in "$packages"/*.deb; do
    dpkg -x "$package" "$packages"
done

step "build with libc++ $version"
llvm=$packages/usr/lib/llvm-$version
cmake --preset release -B build/libcxx -DHALVEX_BUILD_HOST=OFF -DHALVEX_WERROR=ON -DCMAKE_CXX_COMPILER=clang++ \
    -DCMAKE_CXX_FLAGS="-nostdinc++ -isystem $llvm/include/c++/v1" -DCMAKE_CXX_STANDARD_LIBRARIES="-lc++ -lc++abi" \
    -DCMAKE_{EXE,SHARED,MODULE}_LINKER_FLAGS="-nostdlib++ -L$llvm/lib -Wl,-rpath,$llvm/lib"
cmake --build build/libcxx --target Halvex # has to be there: without it, every test would be left out
log=build/libcxx/build.log
cmake --build build/libcxx -- -k 0 >"$log" || true
# Each step that failed is a link that misses what QThread::create() calls, and nothing else.
if grep -E 'error:|undefined reference' "$log" | grep -vE 'QThread::createThreadImpl|linker command failed' ||
    [ "$(grep -c '^FAILED: ' "$log")" -ne "$(grep -c 'linker command failed' "$log")" ]; then
    tail -n 50 "$log"
    false
fi

# Those of packages and of the binary contract build for themselves, without the flags above. The module that the two of
# plugins load calls QThread::create() as well: a module is linked with what is missing, but cannot be loaded.
step "test with libc++ $version"
log=build/libcxx/tests.log
unloadable='^tst_Plugin(Life|Rounds)$'
ctest --test-dir build/libcxx -E "^(package|abi)_|$unloadable" --output-on-failure -j 2 | tee "$log" || true
if grep -P '^\t *\d+ - .* \((?!Not Run|Skipped|Disabled)' "$log"; then false; fi
mapfile -t left_out < <(
    sed -n 's/^\t *[0-9]* - \(.*\) (Not Run).*/\1/p' "$log"
    ctest --test-dir build/libcxx -N -R "$unloadable" | sed -n 's/.*Test *#[0-9]*: //p'
)
passed=$(grep -c ' Passed ' "$log") # ends this if there is none
echo "With libc++ $version: $passed tests pass. ${#left_out[@]} are left out, as they or what" \
    "they run call QThread::create(), which takes a type of the other library: ${left_out[*]}"
