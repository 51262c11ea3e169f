#!/usr/bin/env bash
# Builds the library and its tests for arm64 with Debian's cross compiler, where warnings are errors, and runs them with
# qemu. Left out is what builds or compares files, whatever the processor. Arguments go to ctest:
#
#   scripts/arm64.sh -R CNodeScene
#
# The sysroot lies in build/arm64-sysroot. Tests start programs for arm64, too, so the kernel has to know who runs those
# (binfmt_misc): to tell it takes root, once.
. "$(dirname "$0")/common.sh"

need_packages "${library_packages[@]}" "${test_packages[@]}" "${arm64_packages[@]}"
sysroot=$PWD/build/arm64-sysroot
if [ ! -e "$sysroot.made" ]; then
    step "make the sysroot"
    rm -rf "$sysroot"
    mkdir -p build
    make_system "$sysroot" --variant=extract --architectures=arm64 \
        --include=libstdc++-12-dev,qtbase5-dev,qttools5-dev
    # moc and its like: Qt's CMake files look for them beside themselves.
    for tool in "$sysroot"/usr/lib/qt5/bin/*; do
        ln -sf "/usr/lib/qt5/bin/${tool##*/}" "$tool"
    done
    touch "$sysroot.made"
fi

if [ ! -e /proc/sys/fs/binfmt_misc/qemu-aarch64 ]; then
    step "let the kernel run arm64's programs"
    [ -e /proc/sys/fs/binfmt_misc/register ] || mount -t binfmt_misc none /proc/sys/fs/binfmt_misc
    update-binfmts --enable qemu-aarch64
fi
export QEMU_LD_PREFIX=$sysroot # where they find their libraries

step "configure"
cmake --preset release -B build/arm64 -DHALVEX_BUILD_HOST=OFF -DHALVEX_WERROR=ON \
    --toolchain "$PWD/cmake/Arm64Toolchain.cmake" -DCMAKE_SYSROOT="$sysroot"
step "build"
cmake --build build/arm64
step "test for arm64 with $(qemu-aarch64-static --version | head -n 1)"
ctest --test-dir build/arm64 --output-on-failure -j 3 -E '^(package_|platform_other|tst_ShippersTexts|abi_)' "$@"
