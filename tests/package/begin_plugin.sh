#!/usr/bin/env bash
# halvex-new begins a plugin in an empty folder, which is built, tested and has frames streamed through it by what its
# own .ci/run does, and is found by halvex-host once it is installed; and it refuses what is no name: prefix, folder to
# work in, generator of CMake.
set -Eeuo pipefail
trap 'echo "FAILED: $BASH_COMMAND" >&2' ERR
installed=$(realpath "$1") work=$(realpath -m "$2")
prefix=$work/prefix # of its own: others do not expect another plugin in theirs
export PATH=$prefix/bin:$PATH CMAKE_GENERATOR=$3

rm -rf "$work"
mkdir -p "$work/projects"
cp -r "$installed" "$prefix"
cd "$work/projects"

# refuses WORDS ARGUMENT...: it ends with 2, says so, and writes nothing.
refuses() {
    local said code=0
    said=$(halvex-new "${@:2}" 2>&1) || code=$?
    if [ "$code" != 2 ] || [[ $said != "halvex-new: "*"$1"* ]] || [ -n "$(ls)" ]; then
        echo "'${*:2}' ends with $code and '$said', not with '$1'" >&2
        return 1
    fi
}
refuses "a name is missing"
refuses "the name is empty" ""
refuses "does not begin with a small letter" MyFilter
refuses "does not begin with a small letter" 2_filters
refuses "other characters than small letters, digits and underscores" my-filter
refuses "other characters than small letters, digits and underscores" "my filter"
refuses "does not begin with a small letter" ../my_filter
refuses "other characters than small letters, digits and underscores" folder/my_filter
refuses "two underscores in a row, or one at its end" my__filter
refuses "two underscores in a row, or one at its end" my_
refuses "longer than 40 characters" a12345678901234567890123456789012345678901
refuses "there is no option '--with-tests'" --with-tests my_filter
refuses "one name is wanted" my filter
refuses "taken" halvex_filter
# Each model of the host whose name would come out again.
names=$(halvex-host models --json | python3 -c 'import json, sys
for name in {model["name"] for model in json.load(sys.stdin)["models"]}:
    if " ".join(word.capitalize() for word in name.split()) == name:
        print(name.lower().replace(" ", "_"))')
[ "$(wc -w <<<"$names")" -gt 5 ]
for name in $names; do refuses "taken" "$name"; done

halvex-new small >/dev/null
[ ! -e small/tests ] && [ ! -e small/.ci ]
if grep -r 'with-test\|__[A-Za-z]*__' small; then exit 1; fi
rm -r small

halvex-new --with-test --with-ci my_filter >/dev/null
said=$(halvex-new my_filter 2>&1) || true
[ "$said" = "halvex-new: 'my_filter' is there already" ]
if grep -r 'with-test\|__[A-Za-z]*__' my_filter; then exit 1; fi
my_filter/.ci/run "-DCMAKE_PREFIX_PATH=$prefix" "-DCMAKE_INSTALL_PREFIX=$prefix" >log.txt 2>&1 || { cat log.txt; exit 1; }
grep -q '^100% tests passed, 0 tests failed out of 2$' log.txt
grep -qE '^\[1\] My Filter +20 +20 ' log.txt
[ -s my_filter/build/frames/fake/brightened/frame-000000.png ]
cmake --install my_filter/build/release >/dev/null
halvex-host plugins | grep -q '^MyFilter '
echo "begun, built, tested, run and installed"
