#!/usr/bin/env python3
"""Holds docs/coverage-gaps.md to what was measured: `coverage_gaps.py coverage.json`, from gcovr.

Prints coverage by folder, and what the document's table does not have: lines that no test reached, and conditions that
were always true or always false. That is no failure: what threads reach is not the same every time. It fails when the
table has a line that is not in the source any more.
"""

import collections
import json
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
DOCUMENT = "docs/coverage-gaps.md"


def listed():
    """(file, text of the line) of each row of the table."""
    rows = re.findall(r"^\| `([^`]+)` \| `([^`]+)` \|", (ROOT / DOCUMENT).read_text(), re.MULTILINE)
    return set(rows)


def percent(reached, of):
    return f"{100 * reached / of if of else 100:.1f} % of {of}"


def main():
    counts = collections.defaultdict(collections.Counter)
    gaps = set()
    for file in json.loads(pathlib.Path(sys.argv[1]).read_text())["files"]:
        source = (ROOT / file["file"]).read_text().splitlines()
        count = counts[file["file"].split("/")[0]]
        for line in file["lines"]:
            if line.get("gcovr/noncode"):
                continue
            branches = [branch for branch in line["branches"] if not branch["throw"]]
            count.update(lines=1, reached=line["count"] > 0, branches=len(branches),
                         taken=sum(branch["count"] > 0 for branch in branches))
            text = source[line["line_number"] - 1].strip()
            if line["count"] == 0:
                gaps.add((file["file"], text))
            decision = line.get("gcovr/decision", {})
            if decision.get("type") == "conditional" and 0 in (decision["count_true"], decision["count_false"]):
                gaps.add((file["file"], text))
    for folder, count in sorted(counts.items()):
        print(f"{folder}: lines {percent(count['reached'], count['lines'])}, "
              f"branches {percent(count['taken'], count['branches'])}")

    for file, line in sorted(gaps - listed()):
        print(f"not covered, and not in {DOCUMENT}: {file}: {line}")
    wrong = []
    for file, line in sorted(listed()):
        path = ROOT / file
        if not path.exists() or line not in map(str.strip, path.read_text().splitlines()):
            wrong.append(f"in {DOCUMENT}, but not in the source: {file}: {line}")
    print(*wrong, sep="\n", end="\n" if wrong else "")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
