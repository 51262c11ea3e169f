#!/usr/bin/env bash
# Looks whether programs that were compiled with an earlier build still run with this one: virtual tables, sizes,
# signals and exported symbols are those of tests/abi/contract. What differs is told, with what to do about it.
#
#   scripts/abi.sh           # fails if anything differs
#   scripts/abi.sh --write   # takes in what is new; refuses what breaks a program, unless the SONAME is new
. "$(dirname "$0")/common.sh"

case "$*" in
"") action=check ;;
--write) action="write" ;;
*)
    echo "usage: scripts/abi.sh [--write]" >&2
    exit 2
    ;;
esac
need_packages "${library_packages[@]}" "${abi_packages[@]}"
step "build the library with debug information"
cmake --preset release -B build/abi -DCMAKE_BUILD_TYPE=RelWithDebInfo -DHALVEX_BUILD_HOST=OFF \
    -DHALVEX_BUILD_TESTING_KIT=OFF
cmake --build build/abi --target Halvex halvex_whole read_meta_objects
step "compare"
scripts/abi.py "$action" tests/abi/contract build/abi/plugins/libHalvex.so \
    --types build/abi/tests/abi/libHalvex.so \
    --headers build/abi/generated/Halvex --reader build/abi/tests/abi/read_meta_objects \
    --log build/abi/abidiff.txt
