#!/usr/bin/env bash
# Installs what is needed, builds the reference host with its plugins and streams 300 frames of each of two simulated
# cameras: each has a scene of its own, into which the same chain is imported. Both must record every frame.
# Arguments go to the host: scripts/demo.sh --frames 30
. "$(dirname "$0")/common.sh"

host=build/release/host/halvex-host
report=out/demo-report.txt

# One line for each camera of a report: its name, the frames asked for, those at the sink "frames", which gets every one,
# and those that the decoupler let through to the preview.
summary() {
    awk '/^Camera/ { camera = $4; gsub(/[(),]/, "", camera) }
        /^Ended/ { asked = $3 }
        /^\[[0-9]+\] Decoupler for VGR/ { previewed = $6 }
        $1 == "frames" { print camera, asked, $2, previewed }' "$1"
}

need_packages "${library_packages[@]}" "${host_packages[@]}"
step "configure"
cmake --preset release -DHALVEX_BUILD_TESTING=OFF # scripts/test.sh, which needs more packages, switches them on again
step "build"
cmake --build --preset release --target halvex-host

step "stream two cameras through a chain"
mkdir -p out
"$host" run host/chains/demo.json --camera fake-1 --camera fake-2 --frames 300 --pixel-format RGB8 \
    --output out/demo "$@" | tee "$report"

step "check what was recorded"
mapfile -t cameras < <(summary "$report")
[ ${#cameras[@]} -eq 2 ]
for camera in "${cameras[@]}"; do
    read -r name asked recorded previewed <<< "$camera"
    [ "$recorded" -eq "$asked" ]
    echo "$name: $recorded of $asked frames recorded, $previewed of them previewed."
done
