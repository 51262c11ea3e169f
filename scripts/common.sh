# shellcheck shell=bash disable=SC2034 # what is set here is used by the scripts that source it
# Sourced by the scripts beside it: a failing step ends the script and says its name; packages are installed once.

set -Eeuo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# Debian 12's packages, by what they are for.
library_packages=(g++ cmake ninja-build qtbase5-dev qttools5-dev)
host_packages=(pkg-config libaravis-dev libusb-1.0-0-dev # named in aravis-0.8.pc, but no dependency of its package
    libopencv-core-dev libopencv-imgproc-dev libopencv-imgcodecs-dev libopencv-videoio-dev
    libgraphviz-dev # pictures of graphs
    libqwt-qt5-dev # charts of the viewer, and with it Qt's widgets
    libplplot-dev plplot-driver-cairo fonts-dejavu-core # charts, drawn in memory
    libcli11-dev rapidjson-dev libvalijson-dev) # headers: arguments, JSON with its places, and JSON Schema
picture_packages=(xvfb xauth) # a display for pictures of the viewer, where there is none
abi_packages=(abigail-tools) # what programs rely on, and how two builds differ in it
test_packages=("${picture_packages[@]}" libxtst-dev # mouse and keyboard of that display, for tests of the viewer
    aravis-tools # arv-fake-gv-camera-0.8, a GigE Vision camera on the loopback
    man-db   # reads the manual page
    "${abi_packages[@]}" # whether it would see what breaks programs
    fonts-droid-fallback # Chinese and Japanese in the pictures of the viewer
    libgtest-dev # one of the examples
    pkg-config # whether it finds what is installed
    python3) # compiles the samples
package_packages=(dpkg-dev lintian mmdebstrap) # Debian packages, and a fresh system to try them in
race_packages=(qtbase5-private-dev) # how Qt's events name their sender, for the race detector
fuzz_packages=(clang libclang-rt-dev llvm)
coverage_packages=(gcovr)
bench_packages=(libbenchmark-dev libopencv-core-dev libopencv-imgproc-dev valgrind)
bench_peers_packages=(pkg-config libtbb-dev libboost-dev # what the benchmarks can be compared with
    libgstreamer1.0-dev libunwind-dev) # LLVM's libunwind stands in for it as a package, but has no file for pkg-config
lint_packages=(clang-format clang-tidy clazy shellcheck cmake-format)
manual_packages=(mkdocs mkdocs-material doxygen aspell aspell-en reuse python3)
qt6_packages=(g++ cmake ninja-build qt6-base-dev # Core, Test, moc and qmake6
    qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools) # CMake's commands for translations, and what they call
arm64_packages=(g++-aarch64-linux-gnu mmdebstrap # a cross compiler, and a system for what it links
    qemu-user-static binfmt-support) # runs arm64's programs; its own libraries are not what LD_PRELOAD is for
qt512_packages=(qt5-qmake clang clang-tidy python3-clang qtbase5-doc-html)

# A compiler cache, where there is one, also for a tree that lies elsewhere.
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR="$PWD" CCACHE_NOHASHDIR=true
fi

current_step="start"
step_began=$SECONDS
trap 'echo "FAILED in \"$current_step\" of $0: $BASH_COMMAND" >&2' ERR

# Says what comes now, and how long what came before has taken.
step() {
    echo "== $1 ($current_step: $((SECONDS - step_began)) s)"
    current_step=$1
    step_began=$SECONDS
}

# make_system <folder> <options>: a Debian like this one, by mmdebstrap, from where this machine gets its own packages.
make_system() {
    local sources=/etc/apt/sources.list.d/debian.sources
    [ -f "$sources" ] || sources=/etc/apt/sources.list
    mmdebstrap --quiet "${@:2}" "$(. /etc/os-release && echo "$VERSION_CODENAME")" "$1" "$sources"
}

# Installs those of the given packages that are missing; needs root or sudo only if one is.
need_packages() {
    step "install packages"
    local package missing=() as_root=()
    for package in "$@"; do
        dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    [ "$EUID" -eq 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get -q update
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get -q install --yes --no-install-recommends "${missing[@]}"
}
