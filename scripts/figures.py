#!/usr/bin/env python3
"""Keeps docs/figures.md, the page with everything that was measured: a section for each part of scripts/deep.sh.

    scripts/figures.py set limits "How far it goes" "scripts/limits.sh" < table   # puts a section in, or anew
    scripts/figures.py behind   # how many changes of the library came since, and which parts were never measured
    scripts/figures.py commit lint   # the commit that a section was measured on; nothing if there is no such section

A section begins with its heading and one line that names the command, the commit and the date; "with changes" if the
tree was not that of the commit.
"""

import datetime
import pathlib
import re
import subprocess
import sys

PAGE = pathlib.Path("docs/figures.md")
DEEP = pathlib.Path("scripts/deep.sh")
LIBRARY = ("graph", "scene", "models", "service", "platform")
SECTION = re.compile(r"^## .*?(?=^## |\Z)", re.MULTILINE | re.DOTALL)
MEASURED = re.compile(r"<!-- (\w+) -->\n`[^`\n]*`, commit (\w+)(?: with changes)?, ")
PARTS = re.compile(r"^parts=\(([^)]*)\)", re.MULTILINE)


def git(*arguments):
    return subprocess.run(("git",) + arguments, check=True, capture_output=True, text=True).stdout.strip()


def tree():
    """The commit, and whether something differs from it; not the page, which parts before this one have changed."""
    changes = git("status", "--porcelain", "--", ".", f":(exclude){PAGE}")
    return git("rev-parse", "--short", "HEAD") + (" with changes" if changes else "")


def set_section(part, heading, command, text):
    today = datetime.datetime.now(datetime.timezone.utc).date()
    text = text.strip("\n").rstrip()  # what its first line is indented by stays
    section = f"## {heading}\n\n<!-- {part} -->\n`{command}`, commit {tree()}, {today}\n\n{text}\n\n"
    page = PAGE.read_text()
    sections = SECTION.findall(page)
    introduction = page[: page.index(sections[0])] if sections else page.rstrip() + "\n\n"
    earlier = [old for old in sections if f"<!-- {part} -->" in old]
    if earlier:
        sections[sections.index(earlier[0])] = section
    else:
        sections.append(section)
    PAGE.write_text((introduction + "".join(old.rstrip() + "\n\n" for old in sections)).rstrip() + "\n")


def say_behind():
    counts = {}
    measured = MEASURED.findall(PAGE.read_text())
    for part, commit in measured:
        try:
            counts[part] = int(git("rev-list", "--count", f"{commit}..HEAD", "--", *LIBRARY))
        except subprocess.CalledProcessError:
            print(f"docs/figures.md: nobody knows commit {commit} of the part {part}")
    for part, count in counts.items():
        print(f"docs/figures.md: {part} is {count} changes of the library behind")
    for part in PARTS.search(DEEP.read_text()).group(1).split():
        if part not in dict(measured):
            print(f"docs/figures.md: {part} was never measured")


if sys.argv[1] == "set":
    set_section(*sys.argv[2:5], sys.stdin.read())
elif sys.argv[1] == "commit":
    print(dict(MEASURED.findall(PAGE.read_text())).get(sys.argv[2], ""))
else:
    say_behind()
