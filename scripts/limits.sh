#!/usr/bin/env bash
# Measures how far the library goes, and what happens beyond, see docs/limits.md; prints tables, which scripts/deep.sh
# writes to docs/figures.md. Takes some ten minutes and 5 GiB of memory. Arguments choose:
#
#   scripts/limits.sh chain frames
. "$(dirname "$0")/common.sh"

need_packages "${library_packages[@]}" "${host_packages[@]}"
step "build"
cmake --preset release
cmake --build --preset release --target limits
step "measure"
uname -srm
grep -m 1 'model name' /proc/cpuinfo
nproc
date --utc +%F
[ $# -gt 0 ] || set -- chain nodes ports document depth frames decouplers
for limit in "$@"; do # a process for each, so that none finds another's memory
    build/release/tests/limits/limits "$limit"
done
