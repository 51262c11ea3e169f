#!/usr/bin/env bash
# Installs what is needed, builds the reference host and streams 300 frames of a simulated camera through a graph.
# Arguments go to the host: scripts/demo.sh --frames 30
. "$(dirname "$0")/common.sh"

need_packages "${library_packages[@]}" "${host_packages[@]}"
step "configure"
cmake --preset release -DBUILD_TESTING=OFF # scripts/test.sh, which needs more packages, switches them on again
step "build"
cmake --build --preset release --target halvex-host
step "run"
mkdir -p out
build/release/host/halvex-host run --frames 300 --pixel-format RGB8 --output out/demo "$@"
