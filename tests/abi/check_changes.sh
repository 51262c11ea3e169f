#!/usr/bin/env bash
# scripts/abi.py tells each change that breaks a program, and none that breaks nobody: the script, the program that
# reads meta-objects, the folder with the header, a folder to work in, and the libraries CHANGE=FILE, "none" first.
set -Eeuo pipefail
trap 'echo "FAILED: $BASH_COMMAND" >&2' ERR
script=$1 reader=$2 headers=$3 work=$4
shift 4
if ! command -v abidiff >/dev/null; then
    echo "Skipped: no abidiff, of the package abigail-tools"
    exit 0
fi
declare -A library
for pair in "$@"; do library[${pair%%=*}]=${pair#*=}; done
rm -rf "$work"
mkdir -p "$work"

abi() { "$script" "$1" "$work/contract" "${library[$2]}" --headers "$headers" --reader "$reader"; }

# tells CHANGE LINE...: the check fails, and these lines are in what it says.
tells() {
    local said change=$1 line
    if said=$(abi check "$change"); then
        echo "'$change' was not told" >&2
        return 1
    fi
    shift
    for line in "$@"; do
        grep -qxF -- "$line" <<<"$said" || {
            printf "'%s' is not in what is said of %s:\n%s\n" "$line" "$change" "$said" >&2
            return 1
        }
    done
}

# The same of one that breaks programs: it cannot be written down, either.
refuses() {
    tells "$@"
    local change=$1
    if abi write "$change" >/dev/null; then
        echo "'$change' was written into the contract" >&2
        return 1
    fi
}

name="Plugin::Halvex::CSubject"
abi write none >/dev/null
abi check none >/dev/null
abi check hidden >/dev/null
abi check job >/dev/null
refuses vtable "Virtual tables:" "  int $name::newest(): a new virtual function in slot 12" \
    "  int $name::second(): in slot 14, was in 13"
refuses virtual_added "Virtual tables:" "  int $name::newest(): a new virtual function in slot 15"
refuses table_hidden "No longer exported:" "  vtable for $name" "  typeinfo for $name" "  typeinfo name for $name"
refuses size "Sizes of classes:" "  $name: 56 bytes, was 48"
refuses padding "Other types:"
refuses order "Places of members:" "  $name: 'int m_rate' begins at byte 44, was at 40"
refuses removed "No longer exported:" "  $name::rate() const"
refuses argument "No longer exported:" "  $name::setRate(int)"
refuses result "Results of functions:" "  method int $name::limit() const, as it was"
refuses signal "Indices of signals:" "  class $name: signal rateChanged(int) at 1, was at 0"
refuses enum "What is known by name:" "  class $name: value EMode::Slow = 0"
refuses private "No longer exported:" "  $name::step() const" "Exported, and not in the list:" \
    "  $name::newestStep() const"
tells added "Exported, and not in the list:" "  $name::newestRate() const"
added_class=("  Plugin::Halvex::CNewest::count" "  Plugin::Halvex::CNewest::~CNewest()"
    "  vtable for Plugin::Halvex::CNewest" "  typeinfo for Plugin::Halvex::CNewest")
tells class_added "Exported, and not in the list:" "${added_class[@]}"
tells signal_added "Exported, and not in the list:" "  class $name: signal newestChanged() at 1"
tells soname "SONAME:" "  libHalvexSubject.so.2, was libHalvexSubject.so.1"

# No program calls a private function: its line may be taken out.
sed -i '/::step() const$/d' "$work/contract/symbols.txt"
tells private "Exported, and not in the list:" "  $name::newestStep() const"
abi write private >/dev/null
abi check private >/dev/null
rm -r "$work/contract"
abi write none >/dev/null
# What is new is taken in on purpose, and missed from then on.
abi write added >/dev/null
abi check added >/dev/null
tells none "No longer exported:" "  $name::newestRate() const"
rm -r "$work/contract"
abi write class_added >/dev/null
tells none "No longer exported:" "${added_class[@]}"
# With a new major version everything is.
abi write soname >/dev/null
abi check soname >/dev/null
echo "each change is told"
