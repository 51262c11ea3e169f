#!/usr/bin/env python3
"""Changes the library in one place at a time and looks whether a test notices.

    scripts/mutate.py                              a sample of 100 with a fresh seed, which is printed
    scripts/mutate.py --count 25 --seed 7          a sample that can be had again
    scripts/mutate.py --all                        every mutant. What was interrupted goes on the next time
    scripts/mutate.py service/CNodeService.cpp     the mutants of some files or folders
    scripts/mutate.py service/CNodeService.cpp:42  those of one line
    scripts/mutate.py --list                       says what would be changed

A mutant is one small change in graph/, scene/, models/ or service/, public headers included; KINDS below names them.
One that does not compile is not counted. It is killed when a test fails or crashes, and does so again when that test is
repeated; Qt Test fails a function that stands still. One that only makes tests slow is "too slow", which is no kill.
With --also asan, those that are not killed are judged again in a build with sanitizers; the rate is told without and
with what these kill.

A mutant in a source is shown to those tests alone that enter the function it stands in, as the counters of coverage
tell: others do the same with it as without. What a program does that dies of a signal is not counted. Tests of other
classes that take longer than --longest seconds are left out; what survives with a smaller bound is judged again with a
larger one. One in a public header is shown to the tests of its folder: all others would have to be built again.

The reason why a mutant survives stands on the line above it: "// Survives KIND: REASON", with several kinds if there
are, between commas. It counts as a survivor all the same. The exit code is 1 when less than --least percent are killed,
or when a reason is wrong: there is no such mutant, or it was killed.

Works on clones of the committed tree in build/mutants, one for each job, so that the tree itself is not touched, and
builds there what the preset "coverage" builds. Verdicts are kept in out/mutants/. A kill is good as long as its file
has the same text but for comments, any other verdict as long as the tests are the same too. Needs what scripts/test.sh
installs, git and python3.
"""

import argparse
import concurrent.futures
import contextlib
import dataclasses
import hashlib
import itertools
import json
import os
import pathlib
import queue
import random
import re
import resource
import signal
import subprocess
import sys
import tempfile
import time

FOLDERS = ("graph", "scene", "models", "service")
TESTS = r"^(tst|stress)_"
# Tests of what is not changed here, and two that look for what only long runs show.
LEFT_OUT = r"^(tst_(PluginRounds|CId|CGrabResultPtr|ShippersTexts|ALocalizedPlugin))$|_is_unlinked$"
SLOW_TESTS = 3  # so many are too slow: no others are tried
TOO_SLOW = "too slow"


@dataclasses.dataclass(frozen=True)
class Mutant:
    file: str
    code: str  # names the text of the file but for its comments
    ordinal: str  # among those of the file
    line: int  # from 1
    kind: str
    start: int
    old: str
    new: str

    def __str__(self):
        return f"{self.file}:{self.line}: {self.kind}: `{' '.join(self.old.split())}` -> `{' '.join(self.new.split())}`"

    def is_in_public_header(self):
        return self.file.endswith(".h") and not self.file.endswith("_p.h")

    def key(self):
        return f"{self.file} {self.code} {self.ordinal}"


# Comments, what is for other compilers or another Qt, the preprocessor, assertions, what makes a function abstract; and
# the inside of texts.
LEFT_ALONE = (r"//.*|/\*[\s\S]*?\*/|^(?:#else|#if QT_VERSION >= QT_VERSION_CHECK\(6)[\s\S]*?^#endif|^ *#(?:.*\\\n)*.*"
              r"|\b(?:Q_ASSERT|static_assert)\([^;]*;|(?:(?<=\))|(?<= const)) = 0;"
              r"|\"(?:[^\"\\\n]|\\.)*\"|'(?:[^'\\\n]|\\.)+'")


def code_of(text):
    """The same length, with other signs for what is not changed."""
    def blanked(match):
        return re.sub(r"[^\n]", "$" if match.group()[0] in "\"'" else " ", match.group())
    return re.sub(LEFT_ALONE, blanked, text, flags=re.MULTILINE)


def name_of_code(text):
    """The same for texts that differ in comments or in how they are laid out."""
    without = re.sub(LEFT_ALONE, lambda match: "" if match.group().startswith("/") else match.group(), text,
                     flags=re.MULTILINE)
    return hashlib.sha1(" ".join(without.split()).encode()).hexdigest()


def closing(code, opening):
    """The position of the parenthesis that closes the one at `opening`; -1 if there is none."""
    depth = 0
    for position in range(opening, len(code)):
        depth += {"(": 1, ")": -1}.get(code[position], 0)
        if depth == 0:
            return position
    return -1


# What follows finds changes in code: each is the start and the end of what is replaced, and the new text. In `code`,
# texts are blanked; `text` is the same with them.


def negated_conditions(code, text):
    for match in re.finditer(r"\b(?:if|while) \(", code):
        end = closing(code, match.end() - 1)
        first, separator, condition = text[match.end() : end].rpartition("; ")
        declared = re.match(r"[\w:<>,* ]+[ *](\w+) = ", condition)
        negated = f"{condition}; !{declared.group(1)}" if declared else f"!({condition})"
        yield match.end(), end, first + separator + negated


def exchanged(pattern, pairs):
    """A kind that exchanges one token for another: pairs of both."""
    others = dict(pair.split() for pair in pairs.split(","))

    def kind(code, _):
        for match in re.finditer(pattern, code):
            if match.group(1) in others:
                yield match.start(1), match.end(1), others[match.group(1)]
    return kind


def numbers_off_by_one(code, _):
    for match in re.finditer(r"(?<![\w.$])(\d+)(?![\w.])", code):
        yield match.start(), match.end(), str(int(match.group()) + 1)


def swapped_arguments(code, text):
    for match in re.finditer(r"\(([\w.*&>-]+),\s+([\w.*&>-]+)\)", code):
        if match.group(1) != match.group(2):
            yield match.start(), match.end(), f"({match.group(2)}, {match.group(1)})"


def swapped_arms(code, text):
    """Of `condition ? one : other`."""
    for match in re.finditer(r"\s\? ", code):
        depth = middle = 0
        for end in range(match.end(), len(code)):
            depth += {"(": 1, "{": 1, ")": -1, "}": -1}.get(code[end], 0)
            if depth < 0 or depth == 0 and code[end] in ",;":
                break
            if depth == 0 and not middle and re.match(r"\s:\s", code[end : end + 3]):
                middle = end
        if middle:
            yield match.end(), end, text[middle + 3 : end] + text[middle : middle + 3] + text[match.end() : middle]


@dataclasses.dataclass
class Block:
    """Between two braces or parentheses."""
    is_body: bool  # of a function, or within one
    has_statements: bool
    start: int = -1  # of the statement under way
    is_guarded: bool = False  # it belongs to a condition or a loop without braces

    def end_statement(self, is_next_guarded=False):
        self.start, self.is_guarded = -1, is_next_guarded


CONTROL = r"(if|if constexpr|for|while|switch|catch) \("
LABEL = r"\b(case\b.*|default|public|private|protected|Q_SIGNALS|Q_SLOTS)\s*$"
SCOPE = r"\b(class|struct|enum|union|namespace)\b[^()]*$"
OPENS_BLOCK = r"(^|\n *|[)\]]|\b(else|do|try|const|noexcept|override|final|mutable)|-> [\w:<>*& ]+)\s?$"


def statements(code):
    """Of functions: start, end, the block around and whether it is guarded. Control statements are not among them, what
    they guard is."""
    blocks = [Block(False, True)]
    for position, sign in enumerate(code):
        block = blocks[-1]
        if block.has_statements and block.start < 0 and not sign.isspace() and sign != "}":
            block.start = position
        head = code[max(block.start, position - 200) : position]
        if sign == "(":
            blocks.append(Block(block.is_body, False))
        elif sign == "{":
            is_scope = block.has_statements and re.search(SCOPE, head)
            is_block = re.search(OPENS_BLOCK, head if block.has_statements else code[position - 60 : position])
            blocks.append(Block(block.is_body or bool(is_block and not is_scope), bool(is_scope or is_block)))
        elif sign in ")}":
            had_statements = blocks.pop().has_statements
            block = blocks[-1]
            if sign == ")" and re.match(CONTROL, code[block.start : block.start + 20]):
                block.end_statement(is_next_guarded=True)
            elif sign == "}" and had_statements and block.has_statements:
                block.end_statement()
        elif block.has_statements and sign == ";":
            if block.is_body and block.start < position:
                yield block.start, position + 1, id(block), block.is_guarded
            block.end_statement()
        elif block.has_statements and re.fullmatch(r"else\s", code[block.start : position + 2]):
            block.end_statement(is_next_guarded=True)
        elif sign == ":" and "::" not in code[position - 1 : position + 2] and re.search(LABEL, head):
            block.end_statement()


# What is declared is used: without its declaration nothing compiles. A guard is not used, it has parentheses.
DECLARATION = r"(?!delete |Q_EMIT )((explicit|static|void|bool) .*|[\w:<>,*&\s]+[\s*&]\w+( = .*|\{.*\})?;)"
MAKES = r"(?!delete |Q_EMIT )(?:decltype\([\w.]+\) |[\w:<>,*&\s]+[\s*&])(\w+)(?: =|[({;])"  # with parentheses, too
KEPT = r"return\b(?!;)|using\b|friend\b|break\b|static_cast<void>|Q_UNUSED"


def removed_statements(code, _):
    for start, end, _, _ in statements(code):
        if not re.match(KEPT, code[start:end]) and not re.fullmatch(DECLARATION, code[start:end], re.DOTALL):
            yield start, end, ";"


PLACE = r"(?<![\w.:])[A-Za-z_]\w*(?:\.\w+(?!\w*\())*"  # a variable with the members that are named
CHANGED = (rf"({PLACE})(?:\[[^\]]*\])? \W?= ", rf"(?:\+\+|--)({PLACE})", rf"({PLACE})(?:\+\+|--)",
           rf"({PLACE})\.\w+\(", rf"\b(?:move|exchange)\(({PLACE})", rf"[(,] ?&({PLACE})")
# Of the class's own, through a pointer, or of a destructor that may be anybody's: it may change all.
CALL = r"(?<![\w.:])(?!q?u?int\d*\(|bool\(|double\()[a-z]\w*\(|\bthis\b|\.(?:reset|clear)\("
WARNS = r"HALVEX_WARN_"  # in builds with assertions, of what holds for the whole function


def do_meet(one, other):
    """Whether one of two statements may see what the other one changes."""
    one, other = (re.sub(r"^([\w:<>,*&\s]+ \w+)\(", r"\1 (", each) for each in (one, other))
    if re.search(CALL, one) or re.search(CALL, other):
        return True
    one, other = (each.replace("->", ".") for each in (one, other))
    places = [set(re.findall(PLACE, each)) for each in (one, other)]
    changed = [{place for pattern in CHANGED for place in re.findall(pattern, each)} for each in (one, other)]
    seen = (*itertools.product(changed[0], places[1]), *itertools.product(changed[1], places[0]))
    return any(f"{place}.".startswith(f"{change}.") or f"{change}.".startswith(f"{place}.") for change, place in seen)


def exchanged_neighbours(code, text):
    for (start, middle, block, first), (following, end, other, second) in itertools.pairwise(statements(code)):
        one, two = code[start:middle], code[following:end]
        if block != other or first or second or code[middle:following].strip() or not do_meet(one, two):
            continue
        if re.match(WARNS, one) or re.match(WARNS, two):
            continue
        signals = [re.match(r"connect\(([^,]+, [^,]+),", each) for each in (one, two)]
        if all(signals) and signals[0].group(1) != signals[1].group(1):
            continue  # the order tells only of slots of the same signal
        made, also_made = (re.match(MAKES, each) for each in (one, two))
        if made and (also_made or re.search(rf"\b{made.group(1)}\b", two)):
            continue  # another order does not compile, or makes no difference
        if not re.match(r"return|break|continue|throw|using|static|Q_UNUSED", two):
            yield start, end, text[following:end] + text[middle:following] + text[start:middle]


def returned_values(code, text):
    for start, end, _, _ in statements(code):
        match = re.fullmatch(r"return\s+(.+);", code[start:end], re.DOTALL)
        if not match or re.fullmatch(r"true|false|nullptr|std::nullopt|0|\*this|\{\}|[\w:]+\(\)", match.group(1)):
            continue
        yield start, end, "return {};"
        if not re.search(r"[{$]| [=!]= ", match.group(1)):
            yield start, end, f"return !({text[start + match.start(1) : end - 1]});"


BINARY = r"\s([^\s\w]+)(?=\s)"
KINDS = {
    "negated condition": negated_conditions,
    "exchanged operator": exchanged(BINARY, "== !=,!= ==,< <=,<= <,> >=,>= >,&& ||,|| &&"),
    "arithmetic": exchanged(BINARY, "+ -,- +,* /,/ *,% *,& |,| &,^ &,<< >>,>> <<,+= -=,-= +=,|= &=,&= |="),
    "counted the other way": exchanged(r"(\+\+|--)", "++ --,-- ++"),
    "exchanged truth": exchanged(r"\b(true|false)\b", "true false,false true"),
    "number off by one": numbers_off_by_one,
    "swapped arguments": swapped_arguments,
    "swapped arms": swapped_arms,
    "removed statement": removed_statements,
    "exchanged neighbours": exchanged_neighbours,
    "returned value": returned_values,
}


def committed(root, *arguments):
    return subprocess.check_output(["git", *arguments], cwd=root, text=True).rstrip("\n")


def read_library(root):
    """All mutants in the order of the text; and the reasons of survivors by file, line and kind."""
    mutants = []
    reasons = {}
    for entry in committed(root, "ls-tree", "-r", "HEAD", *FOLDERS).splitlines():
        blob, file = entry.split(maxsplit=2)[2].split("\t")
        if file.endswith((".cpp", ".h")):
            text = committed(root, "cat-file", "blob", blob)
            code = code_of(text)
            found = sorted(((start, end, new, kind) for kind, changes in KINDS.items()
                            for start, end, new in changes(code, text)), key=lambda each: each[0])
            name = name_of_code(text)
            mutants += [Mutant(file, name, f"{ordinal}/{len(found)}", text.count("\n", 0, start) + 1, kind, start,
                               text[start:end], new) for ordinal, (start, end, new, kind) in enumerate(found)]
            for number, line in enumerate(text.splitlines(), 1):
                if match := re.fullmatch(r"\s*// Survives ([^:]+): (.+)", line):
                    reasons |= {(file, number + 1, kind): match.group(2) for kind in match.group(1).split(", ")}
    return mutants, reasons


def tests_of(root):
    """Names the text of all tests that judge mutants: those of host and kit are not among them."""
    entries = committed(root, "ls-tree", "HEAD:tests").splitlines()
    judging = (entry for entry in entries if entry.split("\t")[1] not in ("host", "testing"))
    return hashlib.sha1("".join(judging).encode()).hexdigest()


@dataclasses.dataclass
class Test:
    name: str
    command: list
    folder: str
    seconds: float = 60.0  # it takes; measured
    entered: frozenset = frozenset()  # functions of the library: file and first line


class Run:
    """A test that runs, with all that it starts."""

    def __init__(self, test):
        self.test = test
        self.output = tempfile.TemporaryFile()
        self.worked = 0.0  # seconds of the processor's time
        self.latest = time.monotonic() + max(30.0, 10 * test.seconds)
        busiest = int(max(5.0, 5 * test.seconds))  # by the processor's time: the machine may do other things
        still = 1000 * int(max(15.0, 5 * test.seconds))  # milliseconds after which Qt Test fails a function
        # Counters of another mutant lie about, and their reader complains.
        self.process = subprocess.Popen(["prlimit", f"--cpu={busiest}:{busiest + 1}", *test.command], cwd=test.folder,
                                        stdin=subprocess.DEVNULL, stdout=self.output, stderr=subprocess.STDOUT,
                                        start_new_session=True,
                                        env={**os.environ, "GCOV_ERROR_FILE": os.devnull,
                                             "QTEST_DISABLE_STACK_DUMP": "1",  # a debugger takes seconds
                                             "QTEST_FUNCTION_TIMEOUT": str(still)})

    def failure(self):
        """What has failed so far, even if the program has not ended; empty if nothing has."""
        self.output.seek(0)
        said = self.output.read()
        if failed := re.search(rb"^FAIL!  : (\w+::\w+)", said, re.MULTILINE):
            # A function that Qt Test has ended did not stand still if it worked meanwhile.
            is_slow = b"Test function timed out" in said and self.worked > self.test.seconds + 1
            return TOO_SLOW if is_slow else failed.group(1).decode()
        if self.process.returncode == -signal.SIGXCPU or time.monotonic() > self.latest:
            return TOO_SLOW
        return f"{self.test.name}, exit code {self.process.returncode}" if self.process.returncode else ""

    def note_work(self):
        with contextlib.suppress(OSError):
            fields = pathlib.Path(f"/proc/{self.process.pid}/stat").read_text().rpartition(")")[2].split()
            self.worked = (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")

    def wait(self):
        """The first failure, or the end."""
        try:
            while True:
                self.note_work()
                has_ended = self.process.poll() is not None
                failure = self.failure()
                if has_ended or failure:
                    return failure
                time.sleep(0.01)
        finally:
            if self.process.poll() is None:
                os.killpg(self.process.pid, signal.SIGKILL)
                self.process.wait()
            self.output.close()


class Workplace:
    """A copy of the tree with a build of its own."""

    def __init__(self, root, preset, longest, number):
        self.longest = longest
        self.tree = root / "build" / "mutants" / str(number)
        self.build = self.tree / "build" / preset
        self.functions = set()  # of the library's sources: file, first and last line
        # A clone, because git rewrites those files alone that differ: the build of the last time is still good.
        if not self.tree.exists():
            subprocess.run(["git", "clone", "--quiet", "--shared", "--no-checkout", root, self.tree], check=True)
        subprocess.run(["git", "fetch", "--quiet", root, "HEAD"], cwd=self.tree, check=True)
        subprocess.run(["git", "checkout", "--quiet", "--force", "--detach", "FETCH_HEAD"], cwd=self.tree, check=True)
        # Without debug information: counters need none, and each mutant is built.
        subprocess.run(["cmake", "--preset", preset, "-DHALVEX_BUILD_HOST=OFF", "-DHALVEX_BUILD_TESTING_KIT=OFF",
                        "-DCMAKE_CXX_FLAGS_DEBUG=", "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON"],
                       cwd=self.tree, check=True, stdout=subprocess.DEVNULL)
        try:
            self._make(test["name"] for test in self._known_tests())
        except subprocess.CalledProcessError as error:
            raise SystemExit(error.stdout.decode()) from error
        self.tests = [Test(test["name"], test["command"], str(pathlib.Path(test["command"][0]).parent))
                      for test in self._known_tests()]

    def _make(self, tests):
        subprocess.run(["ninja", "-C", self.build, "-j1", "Halvex", *tests], check=True, capture_output=True)

    def _known_tests(self):
        """As ctest tells of them: those of what is changed here. Commands are missing as long as they are not built."""
        known = json.loads(subprocess.check_output(["ctest", "--show-only=json-v1"], cwd=self.build))["tests"]
        return [test for test in known if re.search(TESTS, test["name"]) and not re.search(LEFT_OUT, test["name"])]

    def measure(self, test):
        """How long a test takes, and what it enters. The library is not changed yet."""
        counters = [path for folder in FOLDERS for path in (self.build / folder).rglob("*.gcda")]
        for counter in counters:
            counter.unlink()
        began = time.monotonic()
        if failure := Run(test).wait():
            raise SystemExit(f"The library is not changed yet, but a test fails: {test.name}: {failure}")
        test.seconds = time.monotonic() - began
        functions = list(self._counted_functions())
        self.functions |= {(file, first, last) for file, first, last, _ in functions}
        test.entered = frozenset((file, first) for file, first, _, count in functions if count)

    def _counted_functions(self):
        """Of the library's sources: file, first and last line, and how often it was entered; none without counters."""
        counters = [path for folder in FOLDERS for path in (self.build / folder).rglob("*.gcda")]
        if not counters:
            return
        said = subprocess.check_output(["gcov", "--json-format", "--stdout", *counters], cwd=self.tree,
                                       stderr=subprocess.DEVNULL, text=True)
        for line in said.splitlines():
            for file in json.loads(line)["files"]:
                path = pathlib.Path(self.build, file["file"])
                if path.suffix == ".cpp" and path.is_relative_to(self.tree):
                    for each in file["functions"]:
                        yield str(path.relative_to(self.tree)), each["start_line"], each["end_line"], \
                            each["execution_count"]

    def _groups_for(self, mutant, around):
        """The most likely to fail first: the class's own tests, those of its folder, all others; quick before slow. Of
        the others, those that take too long are left out; all of them for a public header, which has each built anew."""
        stem = re.sub(r"(_p|Document|Worker)?\.\w+$", "", mutant.file.split("/")[-1])
        able = [test for test in self.tests if not around or around & test.entered]
        own = [test for test in able if stem in test.name]
        near = [test for test in able if test.folder.endswith(f"/tests/{mutant.file.split('/')[0]}")]
        others = near if mutant.is_in_public_header() else able
        wanted = own + [test for test in others if test.seconds <= self.longest and test not in own]
        wanted.sort(key=lambda test: (test not in own, test not in near, test.seconds))
        return [list(tests) for _, tests in itertools.groupby(wanted, lambda test: (test in own, test in near))]

    def _verdict(self, mutant, around):
        slow = 0
        for tests in self._groups_for(mutant, around):
            self._make(test.name for test in tests)  # a header has them built again: one group at a time
            for test in tests:
                failure = Run(test).wait()
                if failure == TOO_SLOW:
                    slow += 1
                elif failure and Run(test).wait() not in ("", TOO_SLOW):
                    return f"killed by {failure}"
                elif failure:
                    print(f"    failed once only: {failure}")
                if slow == SLOW_TESTS:
                    return TOO_SLOW
        return TOO_SLOW if slow else "survived"

    def judge(self, mutant, around):
        """"killed by ...", "survived", "too slow" or "does not compile"; `around` are the functions it stands in."""
        path = self.tree / mutant.file
        original = path.read_text()
        path.write_text(original[: mutant.start] + mutant.new + original[mutant.start + len(mutant.old) :])
        try:
            return self._verdict(mutant, around)
        except subprocess.CalledProcessError:
            return "does not compile"
        finally:
            path.write_text(original)


class Workplaces:
    """As many as there are jobs, ready to judge."""

    def __init__(self, root, preset, jobs, longest):
        with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
            self.free = queue.SimpleQueue()
            places = list(pool.map(lambda number: Workplace(root, preset, longest, number), range(1, jobs + 1)))
            waiting = queue.SimpleQueue()
            for test in places[0].tests:
                waiting.put(test.name)
            measured = list(pool.map(lambda place: self._measure(place, waiting), places))
        known = {test.name: test for tests in measured for test in tests}
        self.functions = set().union(*(place.functions for place in places))
        for place in places:
            for test in place.tests:
                test.seconds, test.entered = known[test.name].seconds, known[test.name].entered
            self.free.put(place)

    @staticmethod
    def _measure(place, waiting):
        """Each place takes the next test, so that each is measured in one of them."""
        measured = []
        by_name = {test.name: test for test in place.tests}
        with contextlib.suppress(queue.Empty):
            while True:
                test = by_name[waiting.get_nowait()]
                place.measure(test)
                measured.append(test)
        return measured

    def judge(self, mutant):
        around = {(file, first) for file, first, last in self.functions
                  if file == mutant.file and first <= mutant.line <= last}
        place = self.free.get()
        try:
            return place.judge(mutant, around)
        finally:
            self.free.put(place)


def judge_all(root, preset, mutants, jobs, longest):
    """Verdicts by mutant. Those that an earlier run has found are not asked for again."""
    file = root / "out" / "mutants" / f"{preset}.jsonl"
    file.parent.mkdir(parents=True, exist_ok=True)
    tests = tests_of(root)
    lines = file.read_text().splitlines() if file.exists() else []
    entries = [json.loads(line) for line in lines if line.endswith("}")]  # the last one may be cut
    known = {entry["mutant"]: entry["verdict"] for entry in entries
             if entry["tests"] == tests and entry["longest"] >= longest or entry["verdict"].startswith("killed")}
    verdicts = {mutant: known[mutant.key()] for mutant in mutants if mutant.key() in known}
    # A public header has all tests built again for each mutant: those come last.
    unknown = sorted((mutant for mutant in mutants if mutant not in verdicts), key=Mutant.is_in_public_header)
    if not unknown:
        return verdicts
    places = Workplaces(root, preset, jobs, longest)
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool, file.open("a") as out:
        judged = {pool.submit(places.judge, mutant): mutant for mutant in unknown}
        for future in concurrent.futures.as_completed(judged):
            mutant, verdict = judged[future], future.result()
            verdicts[mutant] = verdict
            print(json.dumps({"mutant": mutant.key(), "what": str(mutant), "verdict": verdict, "tests": tests,
                              "longest": longest}), file=out, flush=True)
            print(f"[{len(verdicts)}/{len(mutants)}] {verdict}: {mutant}", flush=True)
    return verdicts


def report(verdicts, also, reasons):
    """Prints the rate and what lives; returns the rate in percent, and whether the reasons are right."""
    counted = {mutant: verdict for mutant, verdict in verdicts.items() if verdict != "does not compile"}
    alive = [mutant for mutant, verdict in counted.items() if not verdict.startswith("killed")]
    slow = sum(counted[mutant] == TOO_SLOW for mutant in alive)
    rate = 100.0 * (len(counted) - len(alive)) / max(1, len(counted))
    print(f"\nKilled: {len(counted) - len(alive)} of {len(counted)}, {rate:.1f} %. Too slow, which is no kill: {slow}. "
          f"Survived: {len(alive) - slow}. Not counted, as they do not compile: {len(verdicts) - len(counted)}.")
    if also:
        killed = len(counted) - sum(not verdict.startswith("killed") for verdict in also.values())
        print(f"With what sanitizers kill: {killed} of {len(counted)}, {100.0 * killed / len(counted):.1f} %.")
    wrong = 0
    for mutant, verdict in counted.items():
        reason = reasons.get((mutant.file, mutant.line, mutant.kind))
        if mutant in alive:
            print(f"{mutant}\n    {also.get(mutant, verdict)}; {reason or 'no reason is known'}")
        elif reason:
            wrong += 1
            print(f"{mutant}\n    {verdict}, although a comment says why it survives")
    return rate, wrong == 0


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("files", nargs="*", help="files, lines of files or folders instead of a sample")
    parser.add_argument("--all", action="store_true", help="every mutant")
    parser.add_argument("--count", type=int, default=100, help="size of the sample (default: 100)")
    parser.add_argument("--seed", type=int, default=random.SystemRandom().randrange(10**6),
                        help="of the sample (default: another each time)")
    parser.add_argument("--also", metavar="PRESET", help="judge what is not killed in that build, too: asan")
    parser.add_argument("--jobs", type=int, default=2, help="mutants at the same time (default: 2)")
    parser.add_argument("--longest", type=float, default=60.0,
                        help="seconds that a test of another class may take (default: 60)")
    parser.add_argument("--least", type=float, default=92.0, help="percent to be killed (default: 92)")
    parser.add_argument("--list", action="store_true", help="only say what would be changed")
    options = parser.parse_args()

    root = pathlib.Path(__file__).resolve().parent.parent
    mutants, reasons = read_library(root)
    outdated = reasons.keys() - {(mutant.file, mutant.line, mutant.kind) for mutant in mutants}
    if outdated:
        sys.exit("Reasons for mutants that do not exist: " + str(sorted(outdated)))

    if options.files:
        mutants = [mutant for mutant in mutants
                   if {mutant.file, f"{mutant.file}:{mutant.line}", mutant.file.split("/")[0]} & set(options.files)]
    elif not options.all and not options.list:
        print(f"{options.count} of {len(mutants)} mutants, --seed {options.seed}")
        chosen = random.Random(options.seed).sample(range(len(mutants)), min(options.count, len(mutants)))
        mutants = [mutants[index] for index in sorted(chosen)]
    if options.list:
        print(*mutants, sep="\n")
        return 0

    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))  # many will crash
    verdicts = judge_all(root, "coverage", mutants, options.jobs, options.longest)
    alive = [mutant for mutant, verdict in verdicts.items() if verdict in ("survived", TOO_SLOW)]
    also = judge_all(root, options.also, alive, options.jobs, options.longest) if options.also else {}
    rate, are_reasons_right = report(verdicts, also, reasons)
    return 0 if rate >= options.least and are_reasons_right else 1


if __name__ == "__main__":
    sys.exit(main())
