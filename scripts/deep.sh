#!/usr/bin/env bash
# What is too long for every change: measures everything, and writes each figure to docs/figures.md. A part that has
# passed on this commit is not run again, so that an interrupted run goes on where it was; a part that is named is.
#
#   scripts/deep.sh                          # every part, the mutants last
#   scripts/deep.sh instructions bench       # these parts
#   FUZZ_SECONDS=60 scripts/deep.sh fuzz     # each fuzzer so long (default: 600)
#   STEPS=100000 scripts/deep.sh sequences   # so many random steps (default: 1000000)
#   SOAK_SECONDS=60 scripts/deep.sh soak     # so long (default: 3600)
#   USER_STEPS=2000 VIEWER_SOAK=60 scripts/deep.sh viewer   # so many random steps (default: 20000), and edits for so
#                                                           # many seconds (default: 1800)
#   MUTANTS_ALSO=asan scripts/deep.sh mutants   # what survives, with sanitizers too (default: without)
. "$(dirname "$0")/common.sh"

FUZZ_SECONDS=${FUZZ_SECONDS:-600}
STEPS=${STEPS:-1000000}
SOAK_SECONDS=${SOAK_SECONDS:-3600}
USER_STEPS=${USER_STEPS:-20000}
VIEWER_SOAK=${VIEWER_SOAK:-1800}
MUTANTS_ALSO=${MUTANTS_ALSO:-}
parts=(lint compilers previous qt512 qt6 arm64 sanitizers race instructions bench limits soak sequences viewer fuzz
    coverage packages mutants)

# Each of these prints what the page is to show; the rest of what is said goes to the log.
lint() {
    scripts/lint.sh >&2
    echo "No finding in any file."
}
compilers() {
    need_packages "${library_packages[@]}" "${test_packages[@]}" clang >&2
    cmake --preset release -B build/clang -DHALVEX_BUILD_HOST=OFF -DHALVEX_WERROR=ON -DCMAKE_CXX_COMPILER=clang++ >&2
    cmake --build build/clang >&2
    clang++ --version | head -n 1
    run_tests build/clang
    echo
    scripts/libcxx.sh | tee /dev/stderr | tail -n 1
}
previous() {
    scripts/previous-plugin.sh | tee /dev/stderr |
        sed -n 's/^== build the plugin of \(.......\).*/The plugin of commit \1 with the library of today:\n/p; /^Totals:/p; /^Commit .* is not in this clone/p'
}
qt512() {
    scripts/qt512.sh | tee /dev/stderr | sed -n 's/^== n\(othing newer than Qt 5.12 in [0-9]* files\).*/N\1./p'
    echo "By its documentation: Qt 5.12 itself was not there to build with."
}
qt6() { scripts/qt6.sh | tee /dev/stderr | sed -n 's/^== test with \(Qt [0-9.]*\) .*/\1\n/p; /tests passed/p'; }
arm64() { scripts/arm64.sh | tee /dev/stderr | sed -n 's/^== test for arm64 with \(.*\) (.*/\1\n/p; /tests passed/p'; }
sanitizers() {
    need_packages "${library_packages[@]}" "${host_packages[@]}" "${test_packages[@]}" >&2
    cmake --preset asan -B build/asan-host -DHALVEX_BUILD_HOST=ON -DHALVEX_BUILD_TESTING_KIT=ON >&2
    cmake --build build/asan-host >&2
    # OpenGL's driver is never freed. Tests read what the programs say: what is suppressed is not told there.
    local -x ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1 QT_XCB_GL_INTEGRATION=none \
        LSAN_OPTIONS=suppressions=$PWD/tests/host/viewer/user/lsan.suppressions:print_suppressions=0
    build/asan-host/host/halvex-host run host/chains/demo.json --camera fake-1 --camera fake-2 --frames 30 \
        --output out/deep-demo >&2
    # What the asan preset leaves out builds or reads things without the sanitizers.
    run_tests build/asan-host --exclude-regex 'ByHand|^(package_|platform_other|tst_ShippersTexts|plugin_translations)'
    # Not strict with strings: the library that Qt reads keyboards with copies text that has no end.
    ASAN_OPTIONS=detect_leaks=1 run_tests build/asan-host --tests-regex ByHand
}
race() {
    need_packages "${library_packages[@]}" "${test_packages[@]}" "${race_packages[@]}" >&2
    cmake --preset tsan >&2
    cmake --build --preset tsan >&2
    ctest --preset tsan | tee /dev/stderr | grep 'tests passed'
}
instructions() { scripts/count-instructions.sh | tee /dev/stderr | sed '1,/^== count/d'; }
bench() { scripts/bench.sh --peers | tee /dev/stderr | sed -n '/^|/,$p'; }
limits() { scripts/limits.sh | tee /dev/stderr | sed '1,/^== measure/d'; }
soak() {
    build_tests soak_decouplers soak_workers
    build/release/tests/soak/soak_decouplers "$SOAK_SECONDS"
    build/release/tests/soak/soak_workers "$SOAK_SECONDS"
}
sequences() {
    build_tests sequences
    build/release/tests/world/sequences "$STEPS" "$((RANDOM * 32768 + RANDOM))"
}
viewer() {
    need_packages "${picture_packages[@]}" >&2
    build_tests halvex-viewer-measure tst_WindowUser
    local display=(xvfb-run --auto-servernum --server-args "-screen 0 1600x1000x24")
    # What is not on a display first: it is quick.
    QT_QPA_PLATFORM=offscreen build/release/host/halvex-viewer-measure --seconds 30
    echo
    "${display[@]}" build/release/host/halvex-viewer-measure --seconds 30 --soak "$VIEWER_SOAK"
    echo
    # All that it says goes to the log; in the page stands what it ends with.
    HALVEX_USER_STEPS=$USER_STEPS "${display[@]}" build/release/tests/host/viewer/user/tst_WindowUser -maxwarnings 0 |
        tee /dev/stderr | sed -n 's/^\([0-9]* steps, seed .*\)/A random user of the window: \1/p'
}
fuzz() { scripts/fuzz.sh "$FUZZ_SECONDS" | tee /dev/stderr | sed '1,/^== what was run/d' | indent; }
coverage() { scripts/coverage.sh | tee /dev/stderr | sed '1,/^== coverage/d' | indent; }
packages() {
    scripts/packages.sh >&2
    echo "Installed, tried and removed in a fresh system, and nothing for lintian to say:"
    echo
    (cd build/packages/packages && du -h --apparent-size -- *.deb) | sed 's/^/- /'
}
# The rates stand in the page also when too few are killed; what survives stands in the log.
mutants() {
    scripts/mutate.py --all ${MUTANTS_ALSO:+--also "$MUTANTS_ALSO"} | tee out/deep/mutants.txt >&2 || failed+=(mutants)
    grep -E '^(Killed|With what sanitizers kill):' out/deep/mutants.txt | indent
}

run_tests() { ctest --test-dir "$@" --output-on-failure -j 2 | tee /dev/stderr | grep 'tests passed'; }
build_tests() {
    need_packages "${library_packages[@]}" "${host_packages[@]}" "${test_packages[@]}" >&2
    cmake --preset release >&2
    cmake --build --preset release --target "$@" >&2
}
indent() { sed 's/^/    /'; } # Markdown leaves it as it is

declare -A headings=([lint]="Linters" [compilers]="Other compilers"
    [previous]="A plugin that was built with an earlier library" [qt512]="Newer than Qt 5.12"
    [qt6]="All tests of the library with Qt 6"
    [arm64]="The library's tests for arm64"
    [sanitizers]="All tests with sanitizers, those of host and kit among them"
    [race]="All tests with the race detector" [instructions]="Instructions per delivery" [bench]="Times and memory"
    [limits]="How far it goes" [soak]="Soak" [sequences]="Random sequences" [viewer]="The viewer" [fuzz]="Fuzzers"
    [coverage]="Coverage" [packages]="Debian packages" [mutants]="Mutants")
declare -A lengths=([soak]="SOAK_SECONDS=$SOAK_SECONDS " [sequences]="STEPS=$STEPS "
    [viewer]="USER_STEPS=$USER_STEPS VIEWER_SOAK=$VIEWER_SOAK " [fuzz]="FUZZ_SECONDS=$FUZZ_SECONDS "
    [mutants]="${MUTANTS_ALSO:+MUTANTS_ALSO=$MUTANTS_ALSO }")

mkdir -p out/deep
commit=$(git rev-parse HEAD)
named=("$@")
failed=() # parts that have figures for the page, which are not good enough
figures=()
for part in "${named[@]:-${parts[@]}}"; do
    if [ ${#named[@]} -eq 0 ] && grep -qsx "$commit" "out/deep/$part.passed"; then
        continue
    fi
    step "$part (log: out/deep/$part.log)"
    "$part" >"out/deep/$part.md" 2>"out/deep/$part.log"
    scripts/figures.py set "$part" "${headings[$part]}" "${lengths[$part]-}scripts/deep.sh $part" <"out/deep/$part.md"
    figures+=("out/deep/$part.md")
    # Of a tree with changes nothing is known of the commit.
    if [[ " ${failed[*]} " != *" $part "* ]] && [ -z "$(git status --porcelain -- . ':(exclude)docs/figures.md')" ]; then
        echo "$commit" >"out/deep/$part.passed"
    fi
done
step "done; docs/figures.md is up to date with what was run"
[ ${#figures[@]} -eq 0 ] || grep -H '^Targets missed: [1-9]' "${figures[@]}" || true
if [ ${#failed[@]} -gt 0 ]; then
    echo "Not good enough, see the logs: ${failed[*]}" >&2
    exit 1
fi
