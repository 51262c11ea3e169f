#!/usr/bin/env python3
"""Writes the compile commands that the linters read, and the commands that make the moc files of what is linted, and
prints the sources to be linted, one to a line.

    scripts/lint_sources.py build/dev/compile_commands.json build/lint          every source of ours
    scripts/lint_sources.py build/dev/compile_commands.json build/lint v1.3.1   those that differ from a commit

A header that differs is linted through the source beside it, or else through one that includes it.
"""

import json
import os
import pathlib
import re
import subprocess
import sys


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def source_for(header, sources):
    beside = header.with_suffix(".cpp")
    if beside in sources:
        return beside
    including = re.compile(rf'#include ["<](\S*/)?{re.escape(header.name)}[">]')
    return next((source for source in sources if including.search(source.read_text())), None)


def made_by_moc(build, commands):
    """Of the targets that the commands belong to: AUTOMOC's stamps, and the files that moc is called for."""
    known = {line.rpartition(":")[0] for line in run("ninja", "-C", str(build), "-t", "targets", "all").splitlines()}
    for command in commands:
        folder, target = re.search(r" -o (\S*)CMakeFiles/([^/]+)\.dir/", command["command"]).groups()
        yield from {f"{folder}{target}_autogen/timestamp"} & known
        yield from (each for each in known if each.startswith(f"{folder}{target}_moc/"))


def main():
    commands_file, lint_folder, base = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3:]
    build = commands_file.parent.resolve()
    commands = [command for command in json.loads(commands_file.read_text())
                if build not in pathlib.Path(command["file"]).parents]
    for command in commands:
        # Clang has no such option and none of what it switches off, and takes a compiler cache for the compiler.
        command["command"] = re.sub(r"^\S*ccache |-fno-gnu-unique ", "", command["command"])
    lint_folder.mkdir(parents=True, exist_ok=True)
    (lint_folder / "compile_commands.json").write_text(json.dumps(commands, indent=1))

    sources = sorted({pathlib.Path(os.path.relpath(command["file"])) for command in commands})
    if base:
        changed = {pathlib.Path(name) for name in run("git", "diff", "--name-only", base[0]).splitlines() if os.path.exists(name)}
        chosen = {source for source in sources if source in changed}
        chosen |= {source_for(header, sources) for header in changed if header.suffix == ".h"}
        sources = sorted(chosen - {None})
    chosen = [command for command in commands if pathlib.Path(os.path.relpath(command["file"])) in sources]
    # The bare commands: for a target, Ninja would first build all that it links, of which moc needs nothing.
    made = sorted(set(made_by_moc(build, chosen)))
    moc_commands = run("ninja", "-C", str(build), "-t", "commands", "-s", *made) if made else ""
    (lint_folder / "moc_commands").write_text(moc_commands)
    for source in sources:
        print(source)


main()
