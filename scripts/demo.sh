#!/usr/bin/env bash
# Installs what is needed, builds the reference host and streams 300 frames of a simulated camera through a graph;
# then a second process restores the saved graph and does it again, and both must be the same.
# Arguments go to both runs: scripts/demo.sh --frames 30
. "$(dirname "$0")/common.sh"

host=build/release/host/halvex-host

# How many frames a run's table has for the sink "frames", which gets every one.
recorded() {
    awk '$1 == "frames" { print $2; found = 1 } END { exit !found }' "$1"
}

# How many of them the decoupler let through to the preview.
previewed() {
    awk '/^\[[0-9]+\] Decoupler for VGR/ { print $(NF - 3); found = 1 } END { exit !found }' "$1"
}

need_packages "${library_packages[@]}" "${host_packages[@]}"
step "configure"
cmake --preset release -DBUILD_TESTING=OFF # scripts/test.sh, which needs more packages, switches them on again
step "build"
cmake --build --preset release --target halvex-host

documents=out/demo-documents
mkdir -p "$documents"
rm -f "$documents"/*
step "run and save"
"$host" run --frames 300 --pixel-format RGB8 --output out/demo "$@" --save "$documents/saved.json" |
    tee "$documents/saved.txt"
step "restore in a second process, run and save again"
"$host" run --frames 300 --pixel-format RGB8 --output out/demo-restored "$@" --load "$documents/saved.json" \
    --save "$documents/again.json" | tee "$documents/again.txt"

step "compare"
"$host" compare "$documents/saved.json" "$documents/again.json"
saved=$(recorded "$documents/saved.txt")
again=$(recorded "$documents/again.txt")
[ "$saved" -eq "$again" ]
preview_saved=$(previewed "$documents/saved.txt")
preview_again=$(previewed "$documents/again.txt")
echo "Both runs agree: the same scene, $saved and $again frames recorded;" \
    "$preview_saved and $preview_again of them previewed."
