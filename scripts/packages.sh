#!/usr/bin/env bash
# Makes the Debian packages, has lintian look at them, and tries them in a fresh system: installs them, runs each
# program, builds a project with them, and removes them. The manual is made before.
#
#   scripts/packages.sh           # build/packages/packages; as root, or the last step is left out
#   scripts/packages.sh --make    # makes them and does no more
. "$(dirname "$0")/common.sh"

need_packages "${library_packages[@]}" "${host_packages[@]}" "${manual_packages[@]}" "${package_packages[@]}"
scripts/manual.sh

step "build"
# As Debian hardens its own. Optimised as every release of ours; without debug information.
export DEB_CXXFLAGS_MAINT_STRIP="-g -O2"
export DEB_BUILD_MAINT_OPTIONS="hardening=+bindnow reproducible=-fixfilepath,-fixdebugpath"
compile=${CXXFLAGS-$(dpkg-buildflags --get CPPFLAGS) $(dpkg-buildflags --get CXXFLAGS)}
link=${LDFLAGS-$(dpkg-buildflags --get LDFLAGS)}
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH
cmake -S . -B build/packages -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr \
    -DCMAKE_SKIP_INSTALL_RPATH=ON -DHALVEX_BUILD_TESTING=OFF -DCMAKE_CXX_FLAGS="$compile" \
    -DCMAKE_EXE_LINKER_FLAGS="$link" -DCMAKE_SHARED_LINKER_FLAGS="$link" -DCMAKE_MODULE_LINKER_FLAGS="$link"
cmake --build build/packages

step "pack"
rm -rf build/packages/packages
(umask 022 && cd build/packages && cpack -G DEB)
[ "${1-}" != --make ] || exit 0

step "lintian"
lintian --fail-on error,warning --tag-display-limit 0 build/packages/packages/*.deb

if [ "$EUID" -ne 0 ]; then
    step "not tried in a fresh system: only root makes one"
    exit 0
fi
step "try them in a fresh system"
# shellcheck disable=SC2016 # mmdebstrap's shell puts the new system's folder there
make_system /dev/null --variant=apt --mode=root \
    --customize-hook='mkdir "$1/try" && cp build/packages/packages/*.deb "$1/try"' \
    --customize-hook='cp tests/package/try_packages.sh tests/package/use_pkgconfig.cpp "$1/try"' \
    --customize-hook='chroot "$1" env -i PATH="$PATH" bash /try/try_packages.sh'
step "installed, tried and removed"
