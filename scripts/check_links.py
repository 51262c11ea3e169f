#!/usr/bin/env python3
"""Follows every link of a site in a folder, and tells those that lead nowhere and what would need a network. So it does
with the links into the manual that the kit's reports print.

    scripts/check_links.py build/manual
"""

import html.parser
import pathlib
import re
import sys
import urllib.parse

REPORTS = pathlib.Path("tests/testing/golden")
INSTALLED = "share/doc/halvex/"  # what holds the manual where it is installed


class Page(html.parser.HTMLParser):
    """What a page links to, what it loads, and the anchors that it has."""

    def __init__(self, file):
        super().__init__()
        self.links, self.loads, self.anchors = [], [], {"", "top"}
        self.feed(file.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        self.anchors |= {values[name] for name in ("id", "name") if values.get(name)}
        if tag == "a" and values.get("href"):
            self.links.append(values["href"])
        elif tag == "link" and values.get("rel") != "canonical":
            self.loads.append(values.get("href"))
        elif tag in ("img", "script", "iframe", "object"):
            self.loads.append(values.get("src") or values.get("data"))


def faults_of(file, page, pages, root):
    for link in filter(None, page.links + page.loads):
        parts = urllib.parse.urlsplit(link)
        if parts.scheme or parts.netloc:
            if link in page.loads and parts.scheme not in ("data", "javascript"):
                yield f"loads {link}"
            continue
        target = (file.parent / urllib.parse.unquote(parts.path)).resolve() if parts.path else file
        if not target.is_file() or root not in target.parents:
            yield f"nothing is at {link}"
        elif target in pages and urllib.parse.unquote(parts.fragment) not in pages[target].anchors:
            yield f"no place has the name in {link}"


def faults_of_reports(pages, root):
    """Their links begin where everything is installed."""
    reports = sorted(REPORTS.rglob("*.txt"))
    if not reports:
        yield f"{REPORTS}: no report was found"
    for report in reports:
        for link in re.findall(r"^  page  (.*)$", report.read_text(encoding="utf-8"), re.MULTILINE):
            page, _, anchor = link.partition("#")
            target = root.parent / page.removeprefix(INSTALLED)
            if not page.startswith(INSTALLED) or target not in pages or anchor not in pages[target].anchors:
                yield f"{report}: nothing is at {link}"


def main():
    root = pathlib.Path(sys.argv[1]).resolve()
    pages = {file: Page(file) for file in sorted(root.rglob("*.html")) if file.name != "404.html"}
    faults = [f"{file.relative_to(root)}: {fault}"
              for file, page in pages.items() for fault in faults_of(file, page, pages, root)]
    faults += faults_of_reports(pages, root)
    print(f"{len(pages)} pages")
    if faults or not pages:
        sys.exit("\n".join(faults) or "no page was found")


main()
