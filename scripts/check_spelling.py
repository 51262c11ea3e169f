#!/usr/bin/env python3
"""Tells the words of the pages and of the public headers' descriptions that neither English nor docs/words.txt has,
and those of the list that stand in none of them.

    scripts/check_spelling.py
"""

import pathlib
import re
import subprocess
import sys

WORDS = pathlib.Path("docs/words.txt")
HEADERS = ("graph", "scene", "models", "service", "platform", "testing")

# What is no prose, each up to the blank that takes its place: code, links' targets, marks, and names of code.
NO_PROSE = [re.compile(pattern, flags) for pattern, flags in (
    (r"^( *)(```+)(?!.*`).*?^\1\2 *$", re.MULTILINE | re.DOTALL),
    (r"^(    |\t).*$", re.MULTILINE),
    (r"(`+).+?\1", re.DOTALL),
    (r"<!--.*?-->|<[^<>\n]*>", re.DOTALL),
    (r"\]\([^()\s]*\)", 0),
    (r"\S*://\S+", 0),
    (r"[\w./~-]*[/_][\w./~*-]*", 0),       # paths
    (r"[\w:~]*(::|\(\))[\w:~]*", 0),       # functions
    (r"\b\w*[a-z0-9][A-Z]\w*\b", 0),       # names with capitals inside
    (r"\b[A-Z]{1,2}[A-Z][a-z]\w*\b", 0),   # classes
    (r"\b[\w-]*\d[\w-]*\b", 0),            # numbers, versions, commits
    (r"\"[^\"\n]{1,60}\"", 0),             # texts and keys that are quoted
    (r"\.\w+", 0),                         # suffixes
)]
CODE_IN_COMMENT = re.compile(r"\\code.*?\\endcode", re.DOTALL)


def prose_of(file):
    text = file.read_text(encoding="utf-8")
    if file.suffix == ".h":
        lines = re.findall(r"^ *(?:///|/\*\*|\*) ?(.*)$|///< (.*)$", text, re.MULTILINE)
        text = CODE_IN_COMMENT.sub(" ", "\n".join(first or second for first, second in lines))
        text = re.sub(r"[\\@](a|p) \w+|\\\w+", " ", text)
    for pattern in NO_PROSE:
        text = pattern.sub(" ", text)
    return text


def unknown_words(text):
    """As they stand in the list: without an apostrophe and what follows it, and small unless that is wrong."""
    run = subprocess.run(["aspell", "list", "--lang=en_GB", "--encoding=utf-8"], input=text, check=True,
                         capture_output=True, text=True)
    words = {word.partition("'")[0] for word in run.stdout.split()}
    return {word.lower() if word[1:].islower() else word for word in words}


def main():
    pages = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard", "*.md"], check=True,
                           capture_output=True, text=True).stdout.split()
    files = [pathlib.Path(page) for page in pages if pathlib.Path(page).is_file()]
    for folder in HEADERS:
        files += [header for header in sorted(pathlib.Path(folder).glob("*.h")) if not header.stem.endswith("_p")]
    known = set(WORDS.read_text(encoding="utf-8").split())
    used, faults = set(), []
    for file in files:
        unknown = unknown_words(prose_of(file))
        used |= unknown
        faults += [f"{file}: {word}" for word in sorted(unknown - known)]
    faults += [f"{WORDS}: {word} stands nowhere" for word in sorted(known - used)]
    if faults:
        sys.exit("\n".join(faults))


main()
