#!/usr/bin/env python3
"""Compares what a library offers to compiled programs with what its contract says, and tells what differs, whom that
breaks, and what to do about it.

    scripts/abi.py check tests/abi/contract libHalvex.so --headers include --reader read_meta_objects --log abidiff.txt
    scripts/abi.py write tests/abi/contract libHalvex.so --headers include --reader read_meta_objects

The library has debug information, or another of the same sources has, of which abidw can read more: --types. The
contract is a folder with three files: symbols.txt, the functions and objects that are exported on purpose;
meta_objects.txt, what Qt's meta-object system knows, which abidiff does not read; and types.abi.xz, what abidw writes.
"write" takes in what is new, but nothing that breaks a program, unless the SONAME is new.
"""

import argparse
import lzma
import pathlib
import re
import subprocess
import sys
import tempfile

# Kind of finding: its heading, whom it breaks, what to do.
KINDS = {
    "gone": ("No longer exported", "Programs that use it do not start.",
             "Bring it back, if only as a wrapper around what took its place. A private function that no inline one\n"
             "calls may go: take its line out of tests/abi/contract/symbols.txt. A class whose vtable or typeinfo it\n"
             "is keeps HALVEX_EXPORT, and a virtual function in a source file."),
    "table": ("Virtual tables", "Programs call virtual functions by their slots: they call another one now.",
              "Make it a function that is not virtual, a slot or a property, or one of a new interface beside the\n"
              "class."),
    "size": ("Sizes of classes", "Whoever derives from it or holds one has its own members where the new ones are.",
             "Put new members where a pointer leads to already."),
    "member": ("Places of members", "Inline functions and subclasses in programs read another member.",
               "Leave the members of a public class in their order."),
    "result": ("Results of functions", "Programs read what is returned as what it was.",
               "Keep the function, and add one of another name."),
    "signal": ("Indices of signals", "Whoever keeps the index of one, as spies and state machines do, gets another.",
               "Put new signals behind the others of the class."),
    "meta": ("What is known by name", "Connections, hosts and documents that name it find nothing, or another value.",
             "Bring it back: a signal, slot, property or value of an enumeration stays, and its arguments too."),
    "other": ("Other types", "Programs were compiled with the types as they were.",
              "Read what abidiff says of it, and take the change back."),
    "soname": ("SONAME", "", "It is another library to programs, so everything may change: scripts/abi.sh --write"),
    "new": ("Exported, and not in the list", "Nobody is broken, but it would have to stay.",
            "Hide it: no HALVEX_EXPORT, or a function of the source file alone. If it is meant for users:\n"
            "scripts/abi.sh --write"),
}
BREAKS_NOBODY = {"soname", "new"}
RAISE = ("If it has to be: raise the major version, which is the SONAME's, then scripts/abi.sh --write. All programs\n"
         "are then built anew. docs/compatibility.md says what may change without that.")


def run(*command, codes=(0,)):
    result = subprocess.run([str(part) for part in command], capture_output=True, text=True)
    if result.returncode not in codes:
        sys.exit(f"{command[0]} failed with {result.returncode}:\n{result.stdout}{result.stderr}")
    return result


def exported_symbols(library):
    """The mangled names. Of weak ones only the tables and typeinfos of classes that have functions in the library: a
    compiler writes them where the first virtual function is that is not inline. Programs have the others themselves."""
    strong, weak = [], []
    for line in run("nm", "-D", "--defined-only", library).stdout.splitlines():
        kind, name = line.split()[-2:]
        (strong if kind in "TDBR" else weak).append(name)
    names = list(strong)
    for name in weak:
        data = re.fullmatch(r"_ZT[VTIS]N(.+)E", name)
        if data and any(function.startswith((f"_ZN{data[1]}", f"_ZNK{data[1]}")) for function in strong):
            names.append(name)
    return sorted(names)


def symbol_list(names):
    readable = run("c++filt", *names).stdout.splitlines() if names else []
    return "".join(f"{name} {words}\n" for name, words in zip(names, readable))


def meta_objects(library, reader, names):
    return run(reader, library, *[name for name in names if name.endswith("16staticMetaObjectE")]).stdout


def write_suppressions(file, headers):
    """Types that programs see no definition of may change: all that stand in none of the headers. Qt's are Qt's."""
    names = "|".join(sorted({re.escape(header.stem) for header in headers.rglob("*.h")}))
    file.write_text(f"[suppress_type]\n  source_location_not_regexp = (^|/)({names})\\.h$\n")
    return file


def types(library):
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder) / "types.abi"
        run("abidw", "--no-corpus-path", "--no-comp-dir-path", "--short-locs", "--no-elf-needed",
            "--out-file", file, library)
        return re.sub(r" path='[^']*/", " path='", file.read_text())  # wherever it was built


def soname_in(dump):
    return re.search(r"<abi-corpus [^>]*soname='([^']*)'", dump)[1]


def soname_of(library):
    return re.search(r"\(SONAME\).*\[(.*)\]", run("readelf", "-d", library).stdout)[1]


def compare_symbols(old_list, names):
    old = dict(line.split(" ", 1) for line in old_list.splitlines())
    findings = [("gone", words) for name, words in old.items() if name not in names]
    added = symbol_list([name for name in names if name not in old])
    return findings + [("new", line.split(" ", 1)[1]) for line in added.splitlines()]


def by_class(text):
    """Lines of each class, by its heading without its base."""
    classes, lines = {}, []
    for line in text.splitlines():
        if line.startswith("class "):
            lines = classes.setdefault(line.split(" : ")[0], [])
        lines.append(line.strip())
    return classes


def place_of_signal(lines, signature):
    """The line in which it stands, if any."""
    return next((line for line in lines if line.startswith(f"{signature} at ")), None)


def compare_meta_objects(old_text, new_text):
    findings, moved, old, new = [], set(), by_class(old_text), by_class(new_text)
    for heading, lines in old.items():
        now = new.get(heading, [])
        for line in lines:
            if line in now:
                continue
            signal = re.match(r"(signal .*) at (\d+)$", line)
            there = place_of_signal(now, signal[1]) if signal else None
            if there:
                moved.add((heading, there))
                findings.append(("signal", f"{heading}: {there}, was at {signal[2]}"))
            else:
                findings.append(("meta", f"{heading}: {line}"))
    for heading, lines in new.items():
        findings += [("new", f"{heading}: {line}") for line in lines
                     if line not in old.get(heading, []) and (heading, line) not in moved]
    return findings


def read_report(report):
    """What abidiff's report means."""
    findings, subject = [], ""
    for line in report.splitlines():
        named = re.match(r"'(?:class |struct )([^']+)' changed:", line)
        function = re.match(r"  \[C\] '(.+)' has some sub-type changes:", line)
        if named or function:
            subject = (named or function)[1]
        size = re.search(r"type size changed from (\d+) to (\d+)", line)
        slot = re.search(r"vtable offset of method virtual (.+) changed from (-?\d+) to (-?\d+)", line)
        added = re.search(r"'method virtual ([^']+)'.*virtual at voffset (\d+)", line)
        member = re.search(r"'([^']+)' offset changed from (\d+) to (\d+)", line)
        if line == "    return type changed:":
            findings.append(("result", f"{subject}, as it was"))
        elif size and not line.startswith("      "):
            findings.append(("size", f"{subject}: {size[2]} bytes, was {size[1]}"))
        elif slot:
            findings.append(("table", f"{slot[1]}: in slot {slot[3]}, was in {slot[2]}"))
        elif added:
            findings.append(("table", f"{added[1]}: a new virtual function in slot {added[2]}"))
        elif member:
            findings.append(("member", f"{subject}: '{member[1]}' begins at byte {member[3]}, was at {member[2]}"))
    return list(dict.fromkeys(findings))


def compare_types(old_dump, library, headers, log):
    """abidiff's findings, and whether there is any change at all but of symbols, which are compared by their names."""
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder) / "types.abi"
        file.write_text(old_dump)
        suppressions = write_suppressions(pathlib.Path(folder) / "suppressions", headers)
        # Exit codes are bits: 4 something changed, 8 programs are broken by it, 1 and 2 it did not work. Each changed
        # type is told by itself. Told by the functions that it reaches, a type that may change was still told where it
        # refers to the public class that it came from.
        result = run("abidiff", "--leaf-changes-only", "--no-show-locs", "--show-bytes", "--show-dec",
                     "--no-added-syms", "--suppressions", suppressions, file, library, codes=(0, 4, 8, 12))
    if log:
        log.write_text(result.stdout)
    differs = re.search(r"^(  \[C\] |'.*' changed:)", result.stdout, re.MULTILINE) is not None
    return read_report(result.stdout), differs, result.stdout


def compare(contract, library, typed_library, headers, reader, log):
    dump = lzma.decompress((contract / "types.abi.xz").read_bytes()).decode()
    if soname_of(library) != soname_in(dump):
        return [("soname", f"{soname_of(library)}, was {soname_in(dump)}")]
    names = exported_symbols(library)
    findings = compare_symbols((contract / "symbols.txt").read_text(), names)
    findings += compare_meta_objects((contract / "meta_objects.txt").read_text(), meta_objects(library, reader, names))
    found, differs, report = compare_types(dump, typed_library, headers, log)
    if differs and not found:
        found = [("other", report.strip())]
    return findings + found


def tell(findings):
    for kind, (heading, who, remedy) in KINDS.items():
        texts = [text for found, text in findings if found == kind]
        if texts:
            lines = [f"{heading}:"] + [f"  {text}" for text in texts] + ([who] if who else []) + [remedy]
            print("\n".join(lines) + "\n")
    if any(kind not in BREAKS_NOBODY for kind, _ in findings):
        print(RAISE)


def write(contract, library, typed_library, reader):
    names = exported_symbols(library)
    contract.mkdir(parents=True, exist_ok=True)
    (contract / "symbols.txt").write_text(symbol_list(names))
    (contract / "meta_objects.txt").write_text(meta_objects(library, reader, names))
    (contract / "types.abi.xz").write_bytes(lzma.compress(types(typed_library).encode(), preset=9))


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("action", choices=("check", "write"))
    parser.add_argument("contract", type=pathlib.Path)
    parser.add_argument("library", type=pathlib.Path)
    parser.add_argument("--types", type=pathlib.Path, help="the library whose types are read, if it is another one")
    parser.add_argument("--headers", type=pathlib.Path, required=True, help="the folder with the public headers")
    parser.add_argument("--reader", required=True, help="the program that prints meta-objects")
    parser.add_argument("--log", type=pathlib.Path, help="where abidiff's own report goes")
    arguments = parser.parse_args()

    is_first = arguments.action == "write" and not arguments.contract.is_dir()
    subject = (arguments.contract, arguments.library, arguments.types or arguments.library)
    findings = [] if is_first else compare(*subject, arguments.headers, arguments.reader, arguments.log)
    breaks = [finding for finding in findings if finding[0] not in BREAKS_NOBODY]
    if breaks or (findings and arguments.action == "check"):
        tell(findings)
        sys.exit(1)
    if arguments.action == "write":
        write(*subject, arguments.reader)
        print(f"written: {arguments.contract}")
    else:
        print("Nothing that programs rely on has changed.")


main()
