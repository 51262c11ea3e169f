#!/usr/bin/env python3
"""Collects the pages of the manual in a folder: all Markdown of the project, at the same places, with its pictures.

    scripts/manual_pages.py build/manual-pages

A source file that a page links to becomes a page too; a folder is shown by its README, or else only named. Links to
what is not there are told, and end it.
"""

import pathlib
import posixpath
import re
import shutil
import subprocess
import sys

PICTURES = {".png", ".svg"}
LANGUAGES = {".cpp": "cpp", ".h": "cpp", ".json": "json", ".in": "json", ".sh": "bash", ".py": "python", ".txt": "cmake"}
FENCE = re.compile(r"^( *)(```+)(?!.*`).*?^\1\2 *$", re.MULTILINE | re.DOTALL)
LINK = re.compile(r"(?P<before>!?\[(?P<text>(?:[^\[\]]|\[[^\]]*\])*)\])\((?P<target>[^()\s]+)\)")


def files_of_project():
    names = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard"], check=True,
                           capture_output=True, text=True).stdout.splitlines()
    return [name for name in names if pathlib.Path(name).is_file()]


def is_page(name):
    return name.endswith(".md") and not name.startswith((".", "docs/site/"))


class Pages:
    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.files = set(files_of_project())
        self.faults = []

    def write(self, name, text):
        file = self.folder / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")

    def collect(self):
        for name in sorted(filter(is_page, self.files)):
            text = pathlib.Path(name).read_text(encoding="utf-8")
            self.write(name, self.without_dead_ends(name, text))

    def without_dead_ends(self, page, text):
        """The text, with each link as the manual can follow it. Code is left as it is."""
        result, position = [], 0
        for fence in FENCE.finditer(text):
            result += [self.relink(page, text[position:fence.start()]), fence.group()]
            position = fence.end()
        return "".join(result) + self.relink(page, text[position:])

    def relink(self, page, text):
        return LINK.sub(lambda link: self.link(page, link), text)

    def link(self, page, link):
        target, _, anchor = link["target"].partition("#")
        if not target or "://" in target:
            return link.group()
        path = posixpath.normpath(posixpath.join(posixpath.dirname(page), target))
        if is_page(path) and path in self.files:
            return link.group()
        if path in self.files:
            return f"{link['before']}({target}{self.add_file(path)})"
        if f"{path}/README.md" in self.files:
            return f"{link['before']}({target.rstrip('/')}/README.md{'#' + anchor if anchor else ''})"
        if not pathlib.Path(path).is_dir():
            self.faults.append(f"{page}: nothing is at {target}")
        return link["text"]

    def add_file(self, path):
        """Puts a picture or a source beside the pages; returns what is to be added to a link to it."""
        suffix = pathlib.Path(path).suffix
        if suffix in PICTURES:
            (self.folder / path).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(path, self.folder / path)
            return ""
        source = pathlib.Path(path).read_text(encoding="utf-8")
        self.write(path + ".md", f"# {path}\n\n````{LANGUAGES.get(suffix, 'text')}\n{source}````\n")
        return ".md"


def main():
    pages = Pages(sys.argv[1])
    pages.collect()
    if pages.faults:
        sys.exit("\n".join(pages.faults))


main()
