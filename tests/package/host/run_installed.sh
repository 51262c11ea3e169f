#!/usr/bin/env bash
# The installed host runs from where it was moved to, finds its plugins there, and needs nothing else: prefix, folder to
# work in.
set -Eeuo pipefail
trap 'echo "FAILED: $BASH_COMMAND" >&2' ERR
prefix=$(realpath "$1")
work=$2
host=$prefix/bin/halvex-host

rm -rf "$work"
mkdir -p "$work"
cd "$work"
[ -x "$host" ]

"$host" run --frames 20 --output out >report.txt
grep -qx 'Frames grabbed     20 = 20 complete + 0 incomplete' report.txt
"$host" check "$prefix/share/halvex/chains/demo.json"
"$host" run "$prefix/share/halvex/chains/demo.json" --frames 2 --output out >/dev/null
"$host" models >models.txt
grep -q '^Filters   Blur .* HalvexHostModels$' models.txt
"$host" plugins >plugins.txt
grep -qF "$prefix" plugins.txt
if grep 'Not loaded' plugins.txt; then exit 1; fi

# Through a link, as programs are put on the path.
ln -s "$host" halvex-host
./halvex-host models >models-by-link.txt
cmp models.txt models-by-link.txt

# Editors read the schemas from there.
for schema in chain scene; do
    python3 -m json.tool "$prefix/share/halvex/schemas/$schema.schema.json" >/dev/null
done
echo "runs from $prefix"
