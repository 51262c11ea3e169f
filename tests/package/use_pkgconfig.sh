#!/usr/bin/env bash
# A program is built with what pkg-config says of the prefix, wherever that was moved to: prefix, compiler, source,
# folder.
set -Eeuo pipefail
trap 'echo "FAILED: $BASH_COMMAND" >&2' ERR
prefix=$(realpath "$1") compiler=$2 source=$3 work=$4

rm -rf "$work"
mkdir -p "$work"
file=$(find "$prefix" -name halvex.pc)
PKG_CONFIG_PATH=$(dirname "$file")
export PKG_CONFIG_PATH
read -ra flags <<<"$(pkg-config --cflags --libs halvex)"
"$compiler" -std=c++17 -fPIC "$source" -o "$work/program" "${flags[@]}"
library=$(dirname "$PKG_CONFIG_PATH")
LD_LIBRARY_PATH=$library "$work/program"
[[ $(pkg-config --variable=plugin_iid halvex) =~ ^[A-Za-z0-9_./-]+$ ]]
version=$(sed -n 's/^Version: //p' "$file")
pkg-config --exact-version="$version" halvex
IFS=. read -r major minor _ <<<"$version"
newer=$major.$((minor + 1))
if pkg-config --exists "halvex >= $newer"; then
    echo "it says that it is $newer" >&2
    exit 1
fi
echo "built and run"
