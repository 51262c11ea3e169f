#!/usr/bin/env python3
"""Changes the library in one place at a time and looks whether a test notices.

    scripts/mutate.py                          every mutant; hours
    scripts/mutate.py --count 100 --seed 7     a sample
    scripts/mutate.py service/CNodeService.cpp the mutants of some files
    scripts/mutate.py --list                   says what would be changed

A mutant is one small change in a source file of graph/, scene/, models/ or service/: a condition negated, a comparison
or a logical operator exchanged, a number off by one, two arguments swapped, a statement removed. One that does not
compile is not counted. It is killed when a test fails, crashes or takes too long. Survivors are printed; the exit code
is 1 when less than --least percent of the counted mutants are killed.

Works on copies of the committed tree below build/mutants, one for each job, so that the tree itself is not touched.
Needs what scripts/test.sh installs, and python3.
"""

import argparse
import concurrent.futures
import dataclasses
import os
import pathlib
import queue
import random
import re
import shutil
import signal
import subprocess
import sys

FOLDERS = ("graph", "scene", "models", "service")
TIMEOUT_S = 120


@dataclasses.dataclass(frozen=True)
class Mutant:
    file: str
    line: int  # from 1
    kind: str
    old: str
    new: str

    def __str__(self):
        return f"{self.file}:{self.line}: {self.kind}: `{self.old.strip()}` -> `{self.new.strip()}`"


def closing(text, opening):
    """The position of the parenthesis that closes the one at `opening`; -1 if it is not in the text."""
    depth = 0
    for position in range(opening, len(text)):
        depth += {"(": 1, ")": -1}.get(text[position], 0)
        if depth == 0:
            return position
    return -1


def negated_conditions(line):
    for match in re.finditer(r"\b(?:if|while) \(", line):
        end = closing(line, match.end() - 1)
        if end > 0:
            yield line[: match.end()] + "!(" + line[match.end() : end] + ")" + line[end:]


EXCHANGED = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">", "&&": "||", "||": "&&"}


def exchanged_operators(line):
    for match in re.finditer(r" (==|!=|<=|>=|<|>|&&|\|\|) ", line):
        yield line[: match.start(1)] + EXCHANGED[match.group(1)] + line[match.end(1) :]


def numbers_off_by_one(line):
    for match in re.finditer(r"(?<![\w.\"])(\d+)(?![\w.\"])", line):
        yield line[: match.start()] + str(int(match.group()) + 1) + line[match.end() :]
    for match in re.finditer(r"\+\+|--", line):
        yield line[: match.start()] + {"++": "--", "--": "++"}[match.group()] + line[match.end() :]


def exchanged_truths(line):
    for match in re.finditer(r"\b(true|false)\b", line):
        yield line[: match.start()] + {"true": "false", "false": "true"}[match.group()] + line[match.end() :]


def swapped_arguments(line):
    for match in re.finditer(r"\(([\w.*&>-]+), ([\w.*&>-]+)\)", line):
        if match.group(1) != match.group(2):
            yield line[: match.start()] + f"({match.group(2)}, {match.group(1)})" + line[match.end() :]


def removed_statements(line):
    if re.match(r"\s+(?!return\b|using\b|friend\b|break\b|Q_UNUSED\b|static_cast<void>)[\w*+(\[].*;$", line):
        if line.count("(") == line.count(")"):
            yield re.match(r"\s*", line).group() + ";"
    if re.match(r"\s+return;$", line):
        yield re.match(r"\s*", line).group() + ";"


KINDS = (negated_conditions, exchanged_operators, numbers_off_by_one, exchanged_truths, swapped_arguments,
         removed_statements)


def mutants_of(root, file):
    is_comment = False
    for number, line in enumerate((root / file).read_text().splitlines(), 1):
        code = line.split("//")[0].rstrip()
        is_comment = is_comment or code.lstrip().startswith("/*")
        if not is_comment and code.strip() and not re.match(r"#|Q_ASSERT|static_assert|template|namespace", code.strip()):
            for kind in KINDS:
                for new in kind(code):
                    yield Mutant(file, number, kind.__name__.replace("_", " "), line, new)
        if "*/" in line:
            is_comment = False


def sources(root):
    """Source files; and of headers only the private ones, since the tests' own copies of others would be rebuilt."""
    for folder in FOLDERS:
        for path in sorted((root / folder).glob("*")):
            if path.suffix == ".cpp" or path.name.endswith("_p.h"):
                yield str(path.relative_to(root))


def run(command, **options):
    """Ends the whole group of processes when the time is over: a build's compilers, a test's children."""
    with subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True,
                          **options) as process:
        try:
            return process.wait(TIMEOUT_S) == 0
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            return False


class Workplace:
    """A copy of the tree with a build of its own."""

    def __init__(self, root, folder):
        self.tree = folder / "tree"
        self.build = folder / "build"
        shutil.rmtree(self.tree, ignore_errors=True)
        self.tree.mkdir(parents=True)
        archive = subprocess.Popen(["git", "archive", "HEAD"], cwd=root, stdout=subprocess.PIPE)
        subprocess.run(["tar", "-x", "-C", self.tree], stdin=archive.stdout, check=True)
        subprocess.run(["cmake", "-S", self.tree, "-B", self.build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                        "-DCMAKE_CXX_FLAGS=-O0", "-DHALVEX_BUILD_HOST=OFF"], check=True, stdout=subprocess.DEVNULL)
        subprocess.run(["cmake", "--build", self.build], check=True, stdout=subprocess.DEVNULL)
        self.tests = self._tests()

    def _tests(self):
        """Programs by folder. What builds or inspects the library instead of running it takes too long here."""
        found = {}
        for path in sorted((self.build / "tests").glob("*/tst_*")):
            if path.is_file() and os.access(path, os.X_OK):
                found[path] = path.parent.name
        return found

    def tests_for(self, file):
        """The most likely to fail first: the class's own, those of its folder, all others."""
        stem = pathlib.Path(file).stem.replace("_p", "")
        folder = file.split("/")[0]
        return sorted(self.tests, key=lambda test: (stem not in test.name, self.tests[test] != folder, test.name))

    def judge(self, mutant):
        """"killed by ...", "survived" or "does not compile"."""
        path = self.tree / mutant.file
        original = path.read_text()
        lines = original.splitlines(keepends=True)
        lines[mutant.line - 1] = mutant.new + "\n"
        path.write_text("".join(lines))
        try:
            if not run(["cmake", "--build", self.build, "--target", "Halvex"]):
                return "does not compile"
            for test in self.tests_for(mutant.file):
                if not run([test], cwd=test.parent):
                    return f"killed by {test.name}"
            return "survived"
        finally:
            path.write_text(original)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("files", nargs="*", help="files, instead of all of the library")
    parser.add_argument("--count", type=int, help="as many mutants, chosen at random")
    parser.add_argument("--seed", type=int, default=1, help="of that choice (default: 1)")
    parser.add_argument("--jobs", type=int, default=2, help="at the same time (default: 2)")
    parser.add_argument("--least", type=float, default=90.0, help="percent to be killed (default: 90)")
    parser.add_argument("--list", action="store_true", help="only say what would be changed")
    options = parser.parse_args()

    root = pathlib.Path(__file__).resolve().parent.parent
    mutants = [mutant for file in options.files or sources(root) for mutant in mutants_of(root, file)]
    if options.count is not None and options.count < len(mutants):
        mutants = sorted(random.Random(options.seed).sample(mutants, options.count), key=mutants.index)
    if options.list:
        print(*mutants, sep="\n")
        return 0

    places = queue.Queue()
    for job in range(options.jobs):
        places.put(Workplace(root, root / "build" / "mutants" / str(job)))

    def judge(mutant):
        place = places.get()
        try:
            return place.judge(mutant)
        finally:
            places.put(place)

    verdicts = {}
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        for number, (mutant, verdict) in enumerate(zip(mutants, pool.map(judge, mutants)), 1):
            verdicts[mutant] = verdict
            print(f"[{number}/{len(mutants)}] {verdict}: {mutant}", flush=True)

    survivors = [mutant for mutant, verdict in verdicts.items() if verdict == "survived"]
    counted = sum(verdict != "does not compile" for verdict in verdicts.values())
    killed = counted - len(survivors)
    percent = 100.0 * killed / counted if counted else 100.0
    print(f"\n{killed} of {counted} mutants that compile were killed ({percent:.1f} %). Survivors:", *survivors, sep="\n")
    return 0 if percent >= options.least else 1


if __name__ == "__main__":
    sys.exit(main())
