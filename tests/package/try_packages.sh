#!/usr/bin/env bash
# In a fresh system that nobody else needs, as root: installs the packages that lie beside this script, runs a program
# of each, builds what a user would build, and removes them. scripts/packages.sh runs it.
set -Eeuo pipefail
trap 'echo "FAILED: $BASH_COMMAND" >&2' ERR
cd "$(dirname "$0")"
export DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 HOME=/try QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=/try
packages=(libhalvex1 libhalvex-dev halvex-host halvex-viewer halvex-doc)
install() { apt-get -qq install --yes --no-install-recommends "$@" >/dev/null; }

# The programs, before anything is there that they would not have asked for.
install ./libhalvex1_*.deb ./halvex-host_*.deb
halvex-host run --frames 10 --output frames >report.txt
grep -qx 'Frames grabbed     10 = 10 complete + 0 incomplete' report.txt
[ -n "$(find frames -name '*.png' -path '*histogram*')" ]
said=$(halvex-host plugins 2>&1)
if grep -i 'not loaded' <<<"$said"; then exit 1; fi
install ./halvex-viewer_*.deb
halvex-viewer --forget --camera fake --for 60 --screenshot window.png
[ -s window.png ]

# What is for who builds, and a compiler.
install ./libhalvex-dev_*.deb ./halvex-doc_*.deb g++ cmake ninja-build pkg-config
halvex-check --model Blur --instances 20 /usr/lib/*/halvex/plugins/libHalvexHostModels.so
[ -s /usr/share/doc/halvex/manual/index.html ]
grep -q SPDX-2.3 /usr/share/doc/halvex/halvex.spdx.json
halvex-new --with-test --with-ci my_filter
CMAKE_GENERATOR=Ninja my_filter/.ci/run
# shellcheck disable=SC2046 # these are several words
g++ -fPIC use_pkgconfig.cpp -o own $(pkg-config --cflags --libs halvex)
./own
cmake -S /usr/share/doc/halvex/examples/smallest_graph -B example -G Ninja
cmake --build example
ctest --test-dir example --output-on-failure

# Nothing stays.
dpkg -L "${packages[@]}" | sort -u >files.txt
apt-get -qq purge --yes "${packages[@]}" >/dev/null
while IFS= read -r file; do
    if [ -f "$file" ] || [ -L "$file" ]; then
        if dpkg -S "$file" >/dev/null 2>&1; then continue; fi # a folder's link of the system
        echo "left behind: $file" >&2
        exit 1
    fi
done <files.txt
echo "the packages work"
