#!/usr/bin/env bash
# Installs what is needed and builds the reference host with its plugins. With a display, opens the viewer on two
# simulated cameras: each has a scene of its own, into which the same chain is imported. Without one, or with arguments,
# streams 300 frames of each through the same on the command line, where both must record every frame, and takes
# pictures of the viewer. Arguments go to the command line: scripts/demo.sh --frames 30
. "$(dirname "$0")/common.sh"

host=build/release/host/halvex-host
viewer=build/release/host/halvex-viewer
report=out/demo-report.txt

# One line for each camera of a report: its name, the frames asked for, those at the sink "frames", which gets every one,
# and those that the decoupler let through to the preview.
summary() {
    awk '/^Camera/ { camera = $4; gsub(/[(),]/, "", camera) }
        /^Ended/ { asked = $3 }
        /^\[[0-9]+\] Decoupler for VGR/ { previewed = $6 }
        $1 == "frames" { print camera, asked, $2, previewed }' "$1"
}

need_packages "${library_packages[@]}" "${host_packages[@]}" "${picture_packages[@]}"
step "configure"
cmake --preset release -DHALVEX_BUILD_TESTING=OFF # scripts/test.sh, which needs more packages, switches them on again
step "build"
cmake --build --preset release --target halvex-host halvex-viewer

if [ -n "${DISPLAY-}${WAYLAND_DISPLAY-}" ] && [ $# -eq 0 ]; then
    step "open the viewer"
    exec "$viewer" --camera fake-1 --camera fake-2 --chain host/chains/demo.json
fi

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

step "take pictures of the viewer"
for colors in light dark; do
    xvfb-run --auto-servernum --server-args "-screen 0 1600x1000x24" "$viewer" --forget --colors "$colors" --language en \
        --camera fake-1 --camera fake-2 --chain host/chains/demo.json --screenshot "out/viewer-$colors.png"
    echo "out/viewer-$colors.png"
done
