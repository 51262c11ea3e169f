#!/usr/bin/env bash
# Builds the tests' plugin with models as it was in an earlier commit, against the library of that commit, and has
# today's library load it and work with it. Fails when plugins of then would have to be rebuilt.
#
#   scripts/previous-plugin.sh            # the last release tag; without any, the first commit that today's test can
#                                         # use; passed over where that is not in the clone
#   scripts/previous-plugin.sh <commit>
. "$(dirname "$0")/common.sh"

# From then on the plugin has all the models that tst_PluginLife asks for.
oldest=4c8a96d
wanted=${1:-$(git describe --tags --abbrev=0 2>/dev/null || echo "$oldest")}
if ! commit=$(git rev-parse --verify --quiet "$wanted^{commit}"); then
    echo "Commit $wanted is not in this clone; if it is a shallow one: git fetch --unshallow"
    exit $# # 0 lets scripts/deep.sh go on, 1 if the commit was named
fi
folder=build/previous
need_packages "${library_packages[@]}"

step "build the plugin of $commit"
rm -rf "$folder"
mkdir -p "$folder/source"
git archive "$commit" | tar -x -C "$folder/source"
cmake -S "$folder/source" -B "$folder/build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DHALVEX_BUILD_HOST=OFF
cmake --build "$folder/build" --target HalvexTestModels
rm "$folder"/build/plugins/libHalvex.so* # today's is to be taken

step "load it today"
cmake --preset release
cmake --build --preset release --target tst_PluginLife
HALVEX_TEST_MODELS=$PWD/$folder/build/tests/plugin/libHalvexTestModels.so build/release/tests/plugin/tst_PluginLife
