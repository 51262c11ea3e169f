#!/usr/bin/env python3
"""Changes the library in one place at a time and looks whether a test notices.

    scripts/mutate.py                              every mutant; hours
    scripts/mutate.py --count 100 --seed 7         a sample
    scripts/mutate.py --count 25 --new             one of those that are not known to survive
    scripts/mutate.py service/CNodeService.cpp     the mutants of some files
    scripts/mutate.py service/CNodeService.cpp:42  those of one line
    scripts/mutate.py --list                       says what would be changed

A mutant is one small change in a source file of graph/, scene/, models/ or service/: a condition negated, a comparison
or a logical operator exchanged, a number off by one, two arguments swapped, a statement removed. One that does not
compile is not counted. It is killed when a test fails, crashes or takes much longer than usual. Survivors are printed,
with the reason if scripts/mutants-explained.txt has one; explained or not, they count as survivors. The exit code is 1
when less than --least percent of the counted mutants are killed, or when that file explains what is not there any more.

Works on a clone of the committed tree below build/mutants, so that the tree itself is not touched. Needs what
scripts/test.sh installs, git and python3.
"""

import argparse
import collections
import dataclasses
import json
import os
import pathlib
import random
import re
import resource
import signal
import subprocess
import sys
import tempfile
import time

FOLDERS = ("graph", "scene", "models", "service")
EXPLAINED = "scripts/mutants-explained.txt"

TESTS = r"^(tst|stress)_"
# Tests of what is not changed here, and two that look for what only long runs show.
LEFT_OUT = r"^(tst_(PluginRounds|CId|CGrabResultPtr|ShippersTexts|ALocalizedPlugin)|stress_NodeService)$|_is_unlinked$"


@dataclasses.dataclass(frozen=True)
class Mutant:
    file: str
    line: int  # from 1
    kind: str
    old: str
    new: str
    before: str  # the line before

    def __str__(self):
        return f"{self.file}:{self.line}: {self.change()}"

    def change(self):
        old = self.old.strip()
        if re.fullmatch(r"\w+;", old):
            old = f"{self.before.strip()} {old}"  # a "return;" alone says nothing
        return f"{self.kind}: `{old}` -> `{self.new.strip()}`"


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
        if end < 0:
            continue
        condition = line[match.end() : end]
        declared = re.match(r"[\w:<>,* ]+[ *](\w+) = ", condition)
        negated = f"{condition}; !{declared.group(1)}" if declared else f"!({condition})"
        yield line[: match.end()] + negated + line[end:]


EXCHANGED = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">", "&&": "||", "||": "&&"}


def exchanged_operators(line):
    for match in re.finditer(r" (==|!=|<=|>=|<|>|&&|\|\|)(?= |$)", line):
        yield line[: match.start(1)] + EXCHANGED[match.group(1)] + line[match.end(1) :]


def is_in_text(line, position):
    """Whether the position is within a string literal."""
    return line.count('"', 0, position) % 2 == 1


def numbers_off_by_one(line):
    for match in re.finditer(r"(?<![\w.])(\d+)(?![\w.])", line):
        if not is_in_text(line, match.start()):
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


# What is declared is used: without its declaration nothing compiles. A guard is not used, it has parentheses.
DECLARATION = r"(explicit|static|void|bool) |[\w:<>,*& ]+[ *&]\w+( = .*|\{.*\})?;$"


def removed_statements(line):
    code = line.strip()
    if re.match(r"(?!return\b|using\b|friend\b|break\b|static_cast<void>)[\w*+(\[].*;$", code) and not re.match(
        DECLARATION, code
    ):
        if line.startswith(" ") and line.count("(") == line.count(")"):
            yield re.match(r"\s*", line).group() + ";"
    for match in re.finditer(r"\{ (?!return\b)[^{}]+; \}", line):
        yield line[: match.start()] + "{}" + line[match.end() :]
    if re.match(r"\s+return;$", line):
        yield re.match(r"\s*", line).group() + ";"


KINDS = (negated_conditions, exchanged_operators, numbers_off_by_one, exchanged_truths, swapped_arguments,
         removed_statements)


def committed(root, *arguments):
    return subprocess.check_output(["git", *arguments], cwd=root, text=True)


def mutants_of(root, file):
    is_comment = False
    before = ""
    for number, line in enumerate(committed(root, "show", f"HEAD:{file}").splitlines(), 1):
        code = line.split("//")[0].rstrip()
        is_comment = is_comment or code.lstrip().startswith("/*")
        if not is_comment and code.strip() and not re.match(r"#|Q_ASSERT|static_assert|template|namespace", code.strip()):
            for kind in KINDS:
                for new in kind(code):
                    yield Mutant(file, number, kind.__name__.replace("_", " "), line, new, before)
        if "*/" in line:
            is_comment = False
        before = line


def sources(root):
    """Source files; and of headers only the private ones, which few tests would be built again for."""
    files = committed(root, "ls-tree", "-r", "--name-only", "HEAD", *FOLDERS).splitlines()
    return [file for file in files if file.endswith((".cpp", "_p.h"))]


class Running:
    """A test that runs, with all that it starts."""

    def __init__(self, test):
        self.test = test
        self.output = tempfile.TemporaryFile()
        self.process = subprocess.Popen(test.command, cwd=test.folder, stdin=subprocess.DEVNULL, stdout=self.output,
                                        stderr=subprocess.STDOUT, start_new_session=True)
        self.began = time.monotonic()

    def seconds(self):
        return time.monotonic() - self.began

    def failure(self):
        """What has failed so far, even if the program has not ended; empty if nothing has."""
        self.output.seek(0)
        failed = re.search(rb"^FAIL!  : (\w+::\w+)", self.output.read(), re.MULTILINE)
        if failed:
            return failed.group(1).decode()
        if self.process.returncode:
            return f"{self.test.name}, exit code {self.process.returncode}"
        return f"{self.test.name}, too slow" if self.seconds() > self.test.longest() else ""

    def end(self):
        if self.process.poll() is None:
            os.killpg(self.process.pid, signal.SIGKILL)
            self.process.wait()
        self.output.close()


@dataclasses.dataclass
class Test:
    name: str
    command: list
    folder: str
    seconds: float = 60.0  # it takes; measured

    def longest(self):
        return max(5.0, 5 * self.seconds)


class Workplace:
    """A copy of the tree with a build of its own."""

    def __init__(self, root, jobs, longest):
        self.jobs = jobs
        self.longest = longest
        self.tree = root / "build" / "mutants" / "tree"
        self.build = root / "build" / "mutants" / "build"
        # A clone, because git rewrites those files alone that differ: the build of the last time is still good.
        if not self.tree.exists():
            subprocess.run(["git", "clone", "--quiet", "--shared", "--no-checkout", root, self.tree], check=True)
        subprocess.run(["git", "fetch", "--quiet", root, "HEAD"], cwd=self.tree, check=True)
        subprocess.run(["git", "checkout", "--quiet", "--force", "--detach", "FETCH_HEAD"], cwd=self.tree, check=True)
        subprocess.run(["cmake", "-S", self.tree, "-B", self.build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                        "-DCMAKE_CXX_FLAGS_DEBUG=-O0", "-DHALVEX_BUILD_HOST=OFF",
                        "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON"], check=True, stdout=subprocess.DEVNULL)
        self.targets = ["Halvex", *(test["name"] for test in self._known_tests())]
        try:
            self._make()
        except subprocess.CalledProcessError as error:
            sys.exit(error.stdout.decode())
        self.tests = [Test(test["name"], test["command"], str(pathlib.Path(test["command"][0]).parent))
                      for test in self._known_tests()]
        self._measure()

    def _make(self):
        """The library, and the tests that include what was changed."""
        subprocess.run(["ninja", "-C", self.build, f"-j{self.jobs}", *self.targets], check=True, capture_output=True)

    def _known_tests(self):
        """As ctest tells of them: those of what is changed here. Commands are missing as long as they are not built."""
        known = json.loads(subprocess.check_output(["ctest", "--show-only=json-v1"], cwd=self.build))["tests"]
        return [test for test in known if re.search(TESTS, test["name"]) and not re.search(LEFT_OUT, test["name"])]

    def _measure(self):
        """How long each takes; with the library as it is, none may fail."""
        failure, seconds = self._run(self.tests)
        if failure:
            sys.exit(f"The library is not changed yet, but a test fails: {failure}")
        for test in self.tests:
            test.seconds = seconds[test.name]

    def tests_for(self, file):
        """The most likely to fail first: the class's own, those of its folder, all others; quick ones before slow.
        Those that take too long are left out, but for the class's own."""
        stem = re.sub(r"(_p|Document|Worker)?\.\w+$", "", file.split("/")[1])
        folder = f"/tests/{file.split('/')[0]}"
        wanted = [test for test in self.tests if test.seconds <= self.longest or stem in test.name]
        return sorted(wanted, key=lambda test: (stem not in test.name, test.seconds > 3,
                                                not test.folder.endswith(folder), test.seconds))

    def _run(self, tests):
        """What failed first, empty if nothing did; and how long each of those took that came to their end."""
        seconds = {}
        waiting = collections.deque(tests)
        running = []
        try:
            while waiting or running:
                while waiting and len(running) < self.jobs:
                    running.append(Running(waiting.popleft()))
                time.sleep(0.01)
                for each in list(running):
                    has_ended = each.process.poll() is not None
                    if failure := each.failure():
                        return failure, seconds
                    if has_ended:
                        seconds[each.test.name] = each.seconds()
                        each.end()
                        running.remove(each)
            return "", seconds
        finally:
            for each in running:
                each.end()

    def judge(self, mutant):
        """"killed by ...", "survived" or "does not compile"."""
        path = self.tree / mutant.file
        original = path.read_text()
        lines = original.splitlines(keepends=True)
        lines[mutant.line - 1] = mutant.new + "\n"
        path.write_text("".join(lines))
        try:
            self._make()
            failure, _ = self._run(self.tests_for(mutant.file))
            return f"killed by {failure}" if failure else "survived"
        except subprocess.CalledProcessError:
            return "does not compile"
        finally:
            path.write_text(original)


def keys_of(mutants):
    """What names each mutant in the file of explanations: lines move. Where a file has the same line several times, a
    reason is good for one of them only."""
    lines = collections.defaultdict(list)
    for mutant in mutants:
        lines[f"{mutant.file}: {mutant.change()}"].append(mutant)
    return {mutant: key if len(same) == 1 else f"{key} ({number} of {len(same)})"
            for key, same in lines.items() for number, mutant in enumerate(same, 1)}


def explanations(root):
    """Reasons by mutant: lines that begin with "#" give the reason for the mutants below them."""
    reasons = {}
    reason = []
    is_heading = False
    for line in (root / EXPLAINED).read_text().splitlines():
        if line.startswith("#"):
            reason = reason + [line[1:].strip()] if is_heading else [line[1:].strip()]
        elif line.strip():
            reasons[line.strip()] = " ".join(reason)
        is_heading = line.startswith("#")
    return reasons


def chosen(mutants, files):
    """The mutants of these files, or of one line of a file."""
    return [mutant for mutant in mutants if mutant.file in files or f"{mutant.file}:{mutant.line}" in files]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("files", nargs="*", help="files, or lines of files, instead of all of the library")
    parser.add_argument("--count", type=int, help="as many mutants, chosen at random")
    parser.add_argument("--seed", type=int, default=1, help="of that choice (default: 1)")
    parser.add_argument("--jobs", type=int, default=2, help="tests at the same time (default: 2)")
    parser.add_argument("--longest", type=float, default=60.0,
                        help="seconds that the tests of other classes may take (default: 60)")
    parser.add_argument("--least", type=float, default=90.0, help="percent to be killed (default: 90)")
    parser.add_argument("--new", action="store_true", help=f"leave out what {EXPLAINED} says to survive")
    parser.add_argument("--list", action="store_true", help="only say what would be changed")
    options = parser.parse_args()

    root = pathlib.Path(__file__).resolve().parent.parent
    every = [mutant for file in sources(root) for mutant in mutants_of(root, file)]
    reasons = explanations(root)
    keys = keys_of(every)
    outdated = reasons.keys() - set(keys.values())
    if outdated:
        print(f"{EXPLAINED} explains what is not there any more:", *sorted(outdated), sep="\n")
        return 1

    mutants = chosen(every, options.files) if options.files else every
    if options.new:
        mutants = [mutant for mutant in mutants if keys[mutant] not in reasons]
    if options.count is not None and options.count < len(mutants):
        mutants = sorted(random.Random(options.seed).sample(mutants, options.count), key=mutants.index)
    if options.list:
        print(*mutants, sep="\n")
        return 0

    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))  # many will crash
    place = Workplace(root, options.jobs, options.longest)
    verdicts = {}
    for number, mutant in enumerate(mutants, 1):
        verdicts[mutant] = place.judge(mutant)
        print(f"[{number}/{len(mutants)}] {verdicts[mutant]}: {mutant}", flush=True)

    survivors = [mutant for mutant, verdict in verdicts.items() if verdict == "survived"]
    counted = sum(verdict != "does not compile" for verdict in verdicts.values())
    killed = counted - len(survivors)
    percent = 100.0 * killed / counted if counted else 100.0
    unexplained = [mutant for mutant in survivors if keys[mutant] not in reasons]
    print(f"\n{killed} of {counted} mutants that compile were killed ({percent:.1f} %). {len(survivors)} survived, "
          f"{len(unexplained)} of them unexplained.")
    for mutant in survivors:
        print(f"{mutant}\n    {reasons.get(keys[mutant], 'unexplained')}")
    for mutant, verdict in verdicts.items():
        if verdict != "survived" and keys[mutant] in reasons:
            print(f"{keys[mutant]}\n    {verdict}, although {EXPLAINED} says why it survives")
    return 0 if percent >= options.least else 1


if __name__ == "__main__":
    sys.exit(main())
